target_sources(tt_allotment PRIVATE workallotment.cpp workallotment.h)
target_sources(tt_allotment_forms PRIVATE
    allotmentgrid.cpp allotmentgrid.h
    frmworkallotmententry.cpp frmworkallotmententrycells.cpp frmworkallotmententry.h
)
