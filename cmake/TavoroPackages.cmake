# Debian packages: "cpack" in a build folder of the preset debian or debian-qt6 writes them. The build with Qt 6 makes only the libraries and
# their headers. scripts/test-packages builds, checks, installs and removes all of them.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VENDOR "tavorocontrol")
set(CPACK_PACKAGE_CONTACT "tavorocontrol maintainers <maintainers@tavorocontrol.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SOURCE tavorocontrol)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS
    ${CMAKE_CURRENT_LIST_DIR}/debian/compressmanpages.cmake ${CMAKE_CURRENT_LIST_DIR}/debian/movesystemfiles.cmake)
set(CPACK_COMPONENTS_ALL "")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "")

set(debian_dir ${CMAKE_CURRENT_LIST_DIR}/debian)
set(debian_version ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
execute_process(
    COMMAND sh ${debian_dir}/makechangelog ${PROJECT_SOURCE_DIR}/CHANGELOG.md tavorocontrol "${CPACK_PACKAGE_CONTACT}"
    COMMAND gzip -9n
    OUTPUT_FILE ${PROJECT_BINARY_DIR}/changelog.Debian.gz
    COMMAND_ERROR_IS_FATAL ANY)

# tavoro_package(COMPONENT PACKAGE SECTION SUMMARY TEXT [COMPONENTS ...] [DEPENDS ...] [RECOMMENDS ...])
# Makes a package of an installed component. COMPONENTS are those on whose packages it depends, DEPENDS and RECOMMENDS are packages of Debian.
macro(tavoro_package component package section summary text)
    cmake_parse_arguments(arg "" "" "COMPONENTS;DEPENDS;RECOMMENDS" ${ARGN})
    string(TOUPPER ${component} upper)
    list(APPEND CPACK_COMPONENTS_ALL ${component})
    set(CPACK_COMPONENT_${upper}_DEPENDS ${arg_COMPONENTS})
    set(CPACK_COMPONENT_${upper}_DESCRIPTION "${summary}\n${text}")
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${package})
    set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
    list(JOIN arg_DEPENDS ", " CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS)
    list(JOIN arg_RECOMMENDS ", " CPACK_DEBIAN_${upper}_PACKAGE_RECOMMENDS)
    install(FILES ${debian_dir}/copyright ${PROJECT_BINARY_DIR}/changelog.Debian.gz
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${component})
    install(FILES ${debian_dir}/lintian-overrides RENAME ${package}
        DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides COMPONENT ${component})
endmacro()

# tavoro_library_package(TARGET SUMMARY TEXT [COMPONENTS ...] [DEPENDS ...]): the package of a shared library, with its symbols file.
macro(tavoro_library_package target summary text)
    string(TOLOWER "${target}${TAVORO_SUFFIX}" name)
    string(REGEX REPLACE "([0-9])$" "\\1-" name ${name}) # a name that ends with a digit is separated from the version
    set(package lib${name}${PROJECT_VERSION_MAJOR})
    tavoro_package(${target} ${package} libs "${summary}" "${text}" ${ARGN})
    string(TOUPPER ${target} upper)
    set(symbols_dir ${PROJECT_BINARY_DIR}/symbols/${package})
    file(MAKE_DIRECTORY ${symbols_dir})
    add_custom_command(OUTPUT ${symbols_dir}/symbols
        COMMAND sh ${debian_dir}/makesymbols $<TARGET_FILE:${target}> ${package} ${PROJECT_VERSION} ${symbols_dir}
        DEPENDS ${target} VERBATIM)
    add_custom_target(${target}_symbols ALL DEPENDS ${symbols_dir}/symbols)
    # CPack would add scripts that call ldconfig, which the trigger already does.
    set(CPACK_DEBIAN_${upper}_PACKAGE_CONTROL_EXTRA
        ${symbols_dir}/symbols ${debian_dir}/triggers ${debian_dir}/postinst ${debian_dir}/postrm)
    get_target_property(folder ${target} BINARY_DIR)
    list(APPEND CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${folder})
    list(APPEND tavoro_libraries ${target})
endmacro()

tavoro_library_package(tavoroproto "records of networked video processors"
    "This library contains the records that devices exchange, and their JSON\ncodec.")
tavoro_library_package(tavorossproxy "channels to networked video processors"
    "This library connects to devices over TCP, finds them on the network and\nexchanges commands with them."
    COMPONENTS tavoroproto)
tavoro_library_package(tavorobizmodel "model of networked video processors"
    "This library holds the data of each device in memory, signals changes, and\nkeeps them in a store."
    COMPONENTS tavoroproto DEPENDS libqt${QT_VERSION_MAJOR}sql${QT_VERSION_MAJOR}-sqlite)
tavoro_library_package(tavorocontrol "control of networked video processors"
    "This library offers each operation of a device as a blocking call with typed\nrecords."
    COMPONENTS tavorossproxy tavorobizmodel)
tavoro_library_package(tavorooperations "operations of networked video processors by name"
    "This library lists, describes and calls all operations of a device by name,\nwith JSON."
    COMPONENTS tavorocontrol)
tavoro_library_package(tavorosession "asynchronous sessions with networked video processors"
    "This library keeps sessions with devices: it connects, reads, calls in the\nbackground and follows changes."
    COMPONENTS tavorooperations)
tavoro_library_package(tavoromodels "item models of networked video processors"
    "This library shows devices, connectors, screens, layers and files as Qt item\nmodels."
    COMPONENTS tavorosession)

string(TOLOWER "libtavorocontrol${TAVORO_SUFFIX}-dev" dev_package)
if(QT_VERSION_MAJOR EQUAL 5)
    set(qt_dev_package qtbase5-dev)
else()
    set(qt_dev_package qt6-base-dev)
endif()
tavoro_package(Devel ${dev_package} libdevel "headers to control networked video processors"
    "These are the headers, CMake package and pkg-config files of the libraries\nfor Qt ${QT_VERSION_MAJOR}."
    COMPONENTS ${tavoro_libraries} DEPENDS ${qt_dev_package})
if(TAVORO_BUILD_TOOLS)
    tavoro_package(Tools tavorocontrol-tools video "command-line tools for networked video processors"
        "The tool tavoroctl operates devices from scripts and terminals. The program\ntavorosim simulates a device. A dissector shows exchanges in Wireshark."
        COMPONENTS tavorooperations)
    tavoro_package(Documentation tavorocontrol-doc doc "documentation of tavorocontrol"
        "These are the manual pages of the libraries and tools, and every record of\nthe protocol as JSON Schema.")
    set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)
    if(TARGET tavorogate)
        tavoro_package(Gateway tavorogate net "gateway between networked video processors and MQTT"
            "This service publishes the state of devices to an MQTT broker and carries out\ncalls that arrive from it."
            COMPONENTS tavorosession RECOMMENDS mosquitto)
        set(CPACK_DEBIAN_GATEWAY_PACKAGE_CONTROL_EXTRA ${debian_dir}/gateway/conffiles)
    endif()
    if(TARGET tavoropanel)
        tavoro_package(Panel tavoropanel video "operator's panel for networked video processors"
            "This program shows the screens and layers of devices and operates them live."
            COMPONENTS tavoromodels RECOMMENDS breeze-icon-theme)
    endif()
    if(TAVORO_HAS_PYTHON)
        # The module is for one version of Python.
        math(EXPR next_python "${Python3_VERSION_MINOR} + 1")
        tavoro_package(Python python3-tavoro python "Python package for networked video processors"
            "This package operates devices from Python: calls that block or are awaited,\ntransfers, changes, and the device as a view."
            COMPONENTS tavorosession DEPENDS "python3 (>= 3.${Python3_VERSION_MINOR})" "python3 (<< 3.${next_python})")
        set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA ${debian_dir}/python/postinst ${debian_dir}/python/prerm)
    endif()
endif()
include(CPack)
