# The Phase II screen and the pending periods window it shares with Phase I.
target_sources(tt_generation_forms PRIVATE
    frmautogenerationphaseii.cpp frmautogenerationphaseii.h
    frmpendingperiods.cpp frmpendingperiods.h
)
