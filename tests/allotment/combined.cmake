tt_tests(LIBS tt_allotment_forms TESTS
    tst_frmcombinedsubjectentry
    tst_frmcombinedclassentry
    tst_frmcombinedteacherentry
)
