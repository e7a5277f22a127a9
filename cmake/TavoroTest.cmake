# tavoro_add_test(NAME [SOURCES ...] [LIBRARIES ...] [LABELS ...] [HEADERS TARGET])
# Adds the Qt Test program tst_NAME from NAME/tst_NAME.cpp in the calling folder; CTest runs it under the name NAME.
# HEADERS names the precompiled headers, tavoro_testheaders by default.
# Tests with the label "threads" also run under ThreadSanitizer. The target threaded_tests builds only these.
add_custom_target(threaded_tests)

# The longest tests start first, so that both cores are busy until the end.
set(tavoro_long_tests
    codecequivalence devicestorefaults devicestoresyscalls dissector faultmemory faultoperations tavorosimfoldercalls)

function(tavoro_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "HEADERS" "SOURCES;LIBRARIES;LABELS")
    set(source ${CMAKE_CURRENT_SOURCE_DIR}/${name}/tst_${name}.cpp)
    # Calls moc directly: automoc would start two more programs and compile one more file for each test.
    set(moc ${CMAKE_CURRENT_BINARY_DIR}/moc/tst_${name}.moc)
    add_executable(tst_${name} ${source} ${moc} ${arg_SOURCES})
    qt_generate_moc(${source} ${moc} TARGET tst_${name})
    target_include_directories(tst_${name} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/moc)
    # Otherwise Qt Test includes all of Qt Network in tests that link it, for comparisons that no test uses.
    target_compile_options(tst_${name} PRIVATE -UQT_NETWORK_LIB ${tavoro_folder_macros})
    if(NOT arg_HEADERS)
        set(arg_HEADERS tavoro_testheaders)
    endif()
    target_precompile_headers(tst_${name} REUSE_FROM ${arg_HEADERS})
    target_compile_definitions(tst_${name} PRIVATE TEST_DATA_DIR="${PROJECT_SOURCE_DIR}/tests/data")
    target_link_libraries(tst_${name} PRIVATE
        tavoro_settings tavoro_testsupport Qt${QT_VERSION_MAJOR}::Test ${arg_LIBRARIES})
    if(threads IN_LIST arg_LABELS)
        add_dependencies(threaded_tests tst_${name})
    endif()
    add_test(NAME ${name} COMMAND tst_${name})
    set_tests_properties(${name} PROPERTIES LABELS "${arg_LABELS}" TIMEOUT 300
        ENVIRONMENT_MODIFICATION LANGUAGE=set:en) # Tests compare English texts.
    if(name IN_LIST tavoro_long_tests)
        set_tests_properties(${name} PROPERTIES COST 100)
    endif()
endfunction()

# tavoro_add_guards(NAME LIBRARY MISTAKE WORDS [MISTAKE WORDS ...])
# Each MISTAKE in guard.cpp of the calling folder must not compile, and the compiler must say the WORDS; the test
# NAME.MISTAKE builds it. With the mistake "nothing" the file compiles, in every build.
function(tavoro_add_guards name library)
    math(EXPR last "${ARGC} - 1")
    foreach(i RANGE 2 ${last} 2)
        math(EXPR next "${i} + 1")
        set(mistake ${ARGV${i}})
        tavoro_add_guard(${name} ${library} ${mistake})
        set_target_properties(${name}_${mistake} PROPERTIES EXCLUDE_FROM_ALL ON)
        add_test(NAME ${name}.${mistake}
            COMMAND ${CMAKE_COMMAND} --build ${CMAKE_BINARY_DIR} --target ${name}_${mistake})
        set_tests_properties(${name}.${mistake} PROPERTIES
            PASS_REGULAR_EXPRESSION "${ARGV${next}}"
            RESOURCE_LOCK build
            TIMEOUT 300)
    endforeach()
    tavoro_add_guard(${name} ${library} nothing)
endfunction()

function(tavoro_add_guard name library mistake)
    add_library(${name}_${mistake} OBJECT guard.cpp)
    target_compile_definitions(${name}_${mistake} PRIVATE MISTAKE=${mistake})
    target_link_libraries(${name}_${mistake} PRIVATE tavoro_settings ${library})
endfunction()
