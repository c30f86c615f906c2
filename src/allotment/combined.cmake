# The three combined-entry screens (subject, class and teacher groups) and their search forms.
target_sources(tt_allotment PRIVATE
    combinedgroups.cpp combinedgroups.h
    combinedsubjectgroups.cpp combinedsubjectgroups.h
    combinedclassgroups.cpp combinedclassgroups.h
    combinedteachergroups.cpp combinedteachergroups.h
)
target_sources(tt_allotment_forms PRIVATE
    combinedentryform.cpp combinedentryform.h
    combinedmainrowform.cpp combinedmainrowform.h combinedlistedform.h
    combinedsearchform.cpp combinedsearchform.h
    frmcombinedsubjectentry.cpp frmcombinedsubjectentry.h frmcombinedsubjectentrysearch.h
    frmcombinedclassentry.cpp frmcombinedclassentry.h frmcombinedclassentrysearch.h
    frmcombinedteacherentry.cpp frmcombinedteacherentry.h frmcombinedteacherentrysearch.h
)
