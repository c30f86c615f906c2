target_sources(tt_generation PRIVATE
    random.cpp random.h
    schoolsnapshot.cpp schoolsnapshot.h
    timetablestate.cpp timetablestate.h
    worklist.cpp worklist.h
    placer.cpp placer.h
    phaseonechecks.cpp phaseonechecks.h
    generationengine.cpp generationengine.h
)
