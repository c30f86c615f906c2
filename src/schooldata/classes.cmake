target_sources(tt_schooldata PRIVATE
    classdivisions.cpp classdivisions.h
    classdivisionstore.cpp classdivisionstore.h
)
target_sources(tt_schooldata_forms PRIVATE
    celleditoroverlay.cpp celleditoroverlay.h
    classdivisiongrids.cpp classdivisiongrids.h
    frmclasssectionentry.cpp frmclasssectionentry.h
)
