target_sources(tt_schooldata PRIVATE
    teacherservice.cpp teacherservice.h
    teachersearch.cpp teachersearch.h
)
target_sources(tt_schooldata_forms PRIVATE
    optionaldateedit.cpp optionaldateedit.h
    teachercombos.h
    teacherdetailsframe.cpp teacherdetailsframe.h
    frmteachermaster.cpp frmteachermaster.h
    frmteachersearch.cpp frmteachersearch.h
)
