# Helpers shared by every target of the project.

# tt_library(name CORE|WIDGETS sources...): a static library of one subsystem folder, compiled with the
# matching precompiled header.
function(tt_library name kind)
    add_library(${name} STATIC ${ARGN})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE tt_warnings)
    if(kind STREQUAL "WIDGETS")
        target_link_libraries(${name} PUBLIC Qt6::Widgets)
        target_precompile_headers(${name} REUSE_FROM tt_pch_widgets)
    else()
        target_precompile_headers(${name} REUSE_FROM tt_pch_core)
    endif()
endfunction()

# tt_tests(LIBS libs... TESTS names...): one offscreen QtTest executable per tst_<name>.cpp. Tests build
# without the shared precompiled header: QtTest defines a different QT_TESTCASE_BUILDDIR in every folder.
function(tt_tests)
    cmake_parse_arguments(TT "" "" "LIBS;TESTS" ${ARGN})
    foreach(test ${TT_TESTS})
        add_executable(${test} ${test}.cpp)
        target_link_libraries(${test} PRIVATE ${TT_LIBS} tt_testsupport Qt6::Test tt_warnings)
        add_test(NAME ${test} COMMAND ${test})
        set_tests_properties(${test} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen" TIMEOUT 300)
    endforeach()
endfunction()
