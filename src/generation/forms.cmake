# The generation screens: Phase I settings and run, and what they share with the other generation screens.
tt_library(tt_generation_forms WIDGETS
    generationscreens.cpp generationscreens.h
    runprogress.cpp runprogress.h
    frmautogenerationphasei.cpp frmautogenerationphaseiactions.cpp frmautogenerationphasei.h
    settingsgrid.cpp settingsgrid.h
)
target_link_libraries(tt_generation_forms PUBLIC tt_generation tt_reports_forms tt_schooldata_forms tt_foundation_forms)
# Completing the week from the screens.
target_sources(tt_generation_forms PRIVATE completionrun.cpp completionrun.h)
