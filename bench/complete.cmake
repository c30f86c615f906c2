# The completion of the week on every sample school.
add_executable(benchcomplete benchcomplete.cpp toolrun.h)
target_link_libraries(benchcomplete PRIVATE Qt6::Core tt_warnings)
