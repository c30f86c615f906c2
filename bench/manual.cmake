# One click on the manual periods screen of the large sample school, with the redraw of both week grids.
add_executable(bench_manualclick ${CMAKE_CURRENT_LIST_DIR}/manualclick.cpp)
target_link_libraries(bench_manualclick PRIVATE tt_timetable_forms Qt6::Test tt_warnings)
