# tavoro_add_test(NAME [SOURCES ...] [LIBRARIES ...] [LABELS ...])
# One Qt Test executable tst_NAME from auto/NAME/tst_NAME.cpp, run by CTest under the name NAME.
# Tests with the label "threads" are the ones that run again under ThreadSanitizer: the target threaded_tests
# builds just those.
add_custom_target(threaded_tests)

function(tavoro_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES;LABELS")
    add_executable(tst_${name} ${CMAKE_CURRENT_SOURCE_DIR}/auto/${name}/tst_${name}.cpp ${arg_SOURCES})
    set_target_properties(tst_${name} PROPERTIES AUTOMOC ON)
    target_compile_definitions(tst_${name} PRIVATE TEST_DATA_DIR="${PROJECT_SOURCE_DIR}/tests/data")
    target_link_libraries(tst_${name} PRIVATE
        tavoro_settings tavoro_testsupport Qt${QT_VERSION_MAJOR}::Test ${arg_LIBRARIES})
    if(threads IN_LIST arg_LABELS)
        add_dependencies(threaded_tests tst_${name})
    endif()
    add_test(NAME ${name} COMMAND tst_${name})
    set_tests_properties(${name} PROPERTIES LABELS "${arg_LABELS}" TIMEOUT 300)
endfunction()
