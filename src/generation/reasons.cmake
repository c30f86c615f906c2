# Why a pending allotment stayed open, told from the rules of the generator.
target_sources(tt_generation PRIVATE pendingreasons.cpp pendingreasons.h)
