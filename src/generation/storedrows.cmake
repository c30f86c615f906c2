# Writing rows to the store at the cost of what changed: the work lists and TimeTable of every generation step.
target_sources(tt_generation PRIVATE storedrows.cpp storedrows.h)
