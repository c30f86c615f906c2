# The complete week each sample school is built around, through the rule check.
tt_tests(LIBS tt_generation TESTS tst_sampleweek)
