# Settings of every target: language level, warnings, Qt definitions, sanitizers.
# Targets link the INTERFACE target tavoro_settings; there are no global flags.
set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_INSTALL_RPATH $ORIGIN $ORIGIN/../${CMAKE_INSTALL_LIBDIR})

set(TAVORO_SANITIZE "" CACHE STRING "Sanitizers to compile with, as for -fsanitize=")

add_library(tavoro_settings INTERFACE)
target_compile_options(tavoro_settings INTERFACE
    $<$<CXX_COMPILER_ID:GNU,Clang>:-Wall;-Wextra;-Wpedantic;-Wshadow;-Wconversion;-Werror=uninitialized>
    # In a unity build, a local name would shadow what another source declares in its unnamed namespace.
    $<$<BOOL:${CMAKE_UNITY_BUILD}>:-Wno-shadow>
    # Checks that clang-tidy has as well, where they cost far more time.
    $<$<CXX_COMPILER_ID:GNU,Clang>:-Wzero-as-null-pointer-constant;-Wempty-body>
    # The variadic part of Qt 6's logging macros is empty, which C++20 allows and every compiler accepts.
    $<$<CXX_COMPILER_ID:Clang>:-Wno-gnu-zero-variadic-macro-arguments>
    # Without FMA contraction, floating-point results are the same on every machine.
    $<$<CXX_COMPILER_ID:GNU,Clang>:-ffp-contract=off>)
target_compile_definitions(tavoro_settings INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_MESSAGELOGCONTEXT) # Release builds otherwise omit file and line of log messages.
if(TAVORO_SANITIZE)
    target_compile_options(tavoro_settings INTERFACE
        -fsanitize=${TAVORO_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(tavoro_settings INTERFACE -fsanitize=${TAVORO_SANITIZE})
endif()

# tavoro_precompiled_headers(NAME LIBRARY HEADERS ...)
# Compiles headers that many targets include once; a target uses them with target_precompile_headers(... REUSE_FROM NAME).
# They only save time: each source still includes what it uses, and the preset ci compiles the sources without them.
function(tavoro_precompiled_headers name library)
    add_executable(${name} EXCLUDE_FROM_ALL ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/headerowner.cpp)
    target_precompile_headers(${name} PRIVATE ${ARGN})
    target_compile_options(${name} PRIVATE ${tavoro_folder_macros})
    target_link_libraries(${name} PRIVATE ${library} tavoro_settings)
endfunction()

# Qt 6 Test defines these with the folder of each target. clang refuses headers that were precompiled with other values.
set(tavoro_folder_macros -UQT_TESTCASE_BUILDDIR -UQT_TESTCASE_SOURCEDIR)
tavoro_precompiled_headers(tavoro_coreheaders Qt${QT_VERSION_MAJOR}::Core
    <QHash> <QLoggingCategory> <QObject> <QString> <functional> <memory> <string> <vector>)

# tavoro_library(NAME ALIAS): adds a shared library with the settings that all libraries share.
function(tavoro_library name alias)
    add_library(${name} SHARED)
    add_library(Tavoro::${alias} ALIAS ${name})
    set_target_properties(${name} PROPERTIES
        EXPORT_NAME ${alias}
        OUTPUT_NAME ${name}${TAVORO_SUFFIX}
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR})
    target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:tavoro_settings>)
    target_compile_features(${name} PUBLIC cxx_std_17) # for applications: the headers need it
    target_precompile_headers(${name} REUSE_FROM tavoro_coreheaders)
endfunction()
