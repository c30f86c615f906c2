target_sources(tt_reports PRIVATE teachertimetable.cpp teachertimetable.h)
target_sources(tt_reports_forms PRIVATE frmrptteachertt.cpp frmrptteachertt.h)
