target_sources(tt_reports PRIVATE
    launcher.h reportgrid.cpp reportgrid.h reportgridmodel.cpp reportgridmodel.h
    gridtextfile.cpp gridtextfile.h excelexport.cpp excelexport.h)
target_sources(tt_reports_forms PRIVATE desktoplauncher.cpp desktoplauncher.h)
