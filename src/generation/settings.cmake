# The Phase I settings as the screen edits them: the grids' rows, their limits and their Save and Delete.
target_sources(tt_generation PRIVATE phaseonesettings.cpp phaseonesettings.h)
