# One source for Qt 5.15 and Qt 6: targets are named Qt${QT_VERSION_MAJOR}::Core and so on.
find_package(QT NAMES ${TAVORO_QT} REQUIRED COMPONENTS Core)
find_package(Qt${QT_VERSION_MAJOR} REQUIRED COMPONENTS Core Network Sql)
if(TAVORO_BUILD_TESTS)
    find_package(Qt${QT_VERSION_MAJOR} REQUIRED COMPONENTS Test)
endif()
