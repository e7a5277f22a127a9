# What every target of the project shares: language level, warnings, Qt definitions, sanitizers.
# Settings travel as one INTERFACE target and one helper per kind of target, never as global flags.
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
    # Qt 6's logging macros leave their variadic part empty, as C++20 allows and every compiler takes.
    $<$<CXX_COMPILER_ID:Clang>:-Wno-gnu-zero-variadic-macro-arguments>
    # Without FMA contraction a number reads the same on every machine.
    $<$<CXX_COMPILER_ID:GNU,Clang>:-ffp-contract=off>)
target_compile_definitions(tavoro_settings INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_MESSAGELOGCONTEXT) # release builds otherwise lose file and line of a log message
if(TAVORO_SANITIZE)
    target_compile_options(tavoro_settings INTERFACE
        -fsanitize=${TAVORO_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(tavoro_settings INTERFACE -fsanitize=${TAVORO_SANITIZE})
endif()

# tavoro_precompiled_headers(NAME LIBRARY HEADERS ...)
# Headers that many targets include, compiled once; a target takes them with target_precompile_headers(... REUSE_FROM NAME).
# They save time and nothing else: each source still includes what it uses, and the preset ci-clang-qt6 does without them.
function(tavoro_precompiled_headers name library)
    add_executable(${name} EXCLUDE_FROM_ALL ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/headerowner.cpp)
    target_precompile_headers(${name} PRIVATE ${ARGN})
    target_link_libraries(${name} PRIVATE ${library} tavoro_settings)
endfunction()

tavoro_precompiled_headers(tavoro_coreheaders Qt${QT_VERSION_MAJOR}::Core
    <QHash> <QLoggingCategory> <QObject> <QString> <functional> <memory> <string> <vector>)

# tavoro_library(NAME ALIAS): what all shared libraries of the project have in common.
function(tavoro_library name alias)
    add_library(${name} SHARED)
    add_library(Tavoro::${alias} ALIAS ${name})
    set_target_properties(${name} PROPERTIES
        EXPORT_NAME ${alias}
        OUTPUT_NAME ${name}${TAVORO_SUFFIX}
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR})
    target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:tavoro_settings>)
    target_precompile_headers(${name} REUSE_FROM tavoro_coreheaders)
endfunction()
