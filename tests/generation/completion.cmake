# Completing the week by moving periods, the rule check and the proofs of an impossible week.
tt_tests(LIBS tt_generation TESTS tst_completion)
