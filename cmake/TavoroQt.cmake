# Finds the first Qt of TAVORO_QT that is installed. Its targets are named Qt${QT_VERSION_MAJOR}::Core and so on.
# The versions are searched one after the other, since find_package(QT NAMES Qt5 Qt6) takes Qt 6 where both share a folder.
foreach(candidate IN LISTS TAVORO_QT)
    find_package(${candidate} QUIET COMPONENTS Core)
    if(${candidate}_FOUND)
        string(REGEX REPLACE "^Qt" "" QT_VERSION_MAJOR ${candidate})
        break()
    endif()
endforeach()
if(NOT QT_VERSION_MAJOR)
    message(FATAL_ERROR "Could not find Qt. Looked for: ${TAVORO_QT} (TAVORO_QT).")
endif()

find_package(Qt${QT_VERSION_MAJOR} REQUIRED COMPONENTS Core Network Sql)
if(TAVORO_BUILD_PANEL)
    find_package(Qt${QT_VERSION_MAJOR} QUIET OPTIONAL_COMPONENTS Widgets)
endif()
if(TAVORO_BUILD_TESTS)
    find_package(Qt${QT_VERSION_MAJOR} REQUIRED COMPONENTS Test)
endif()

# Ends the names of installed libraries and packages, so that the builds with Qt 5 and Qt 6 can be installed side by side.
if(QT_VERSION_MAJOR EQUAL 5)
    set(TAVORO_SUFFIX "")
else()
    set(TAVORO_SUFFIX Qt${QT_VERSION_MAJOR})
endif()
