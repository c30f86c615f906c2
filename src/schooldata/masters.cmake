target_sources(tt_schooldata PRIVATE
    masterrecord.cpp masterrecord.h
    referencemasterservice.cpp referencemasterservice.h
    cityservice.cpp cityservice.h
    subjectservice.cpp subjectservice.h
)
target_sources(tt_schooldata_forms PRIVATE
    masterscreen.cpp masterscreen.h
    referencemasterscreen.cpp referencemasterscreen.h
    frmstatemaster.h
    frmbloodgroupmaster.h
    frmsalutationmaster.h
    frmcitymaster.cpp frmcitymaster.h
    frmsubjectmaster.cpp frmsubjectmaster.h
)
