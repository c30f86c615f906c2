# The Phase I screen and the settings rules behind it.
tt_tests(LIBS tt_generation_forms TESTS tst_frmautogenerationphasei tst_phaseonesettings)
