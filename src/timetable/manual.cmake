# The manual periods screen: the weeks and lists it shows, its widgets, and the over-allotted classes window.
target_sources(tt_timetable PRIVATE
    manuallists.cpp manuallists.h
    manualweek.cpp manualweek.h
)
target_sources(tt_timetable_forms PRIVATE
    frmblankperiods.cpp frmblankperiods.h
    frmmanualperiodsentry.cpp frmmanualperiodsentryclicks.cpp frmmanualperiodsentry.h
    manualwidgets.cpp manualwidgets.h
)
