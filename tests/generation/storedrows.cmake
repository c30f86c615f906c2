tt_tests(LIBS tt_generation TESTS tst_storedrows)
