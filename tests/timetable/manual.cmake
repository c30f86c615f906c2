tt_tests(LIBS tt_timetable TESTS tst_manualweek)
target_sources(tst_manualweek PRIVATE smallschool.h)
tt_tests(LIBS tt_timetable_forms TESTS tst_frmmanualperiodsentry)
target_sources(tst_frmmanualperiodsentry PRIVATE smallschool.h)
