# Installs libraries (each is a component), headers, a pkg-config file for each library, and the package that find_package(TavoroControl) finds.
# A build with Qt 6 installs the same under names that end with Qt6.
include(CMakePackageConfigHelpers)

set(tavoro_package TavoroControl${TAVORO_SUFFIX})
set(tavoro_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/${tavoro_package})
set(tavoro_include_dir ${CMAKE_INSTALL_INCLUDEDIR}/${tavoro_package})
set(tavoro_pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# tavoro_install(NAME DESCRIPTION [REQUIRES ...]): to be called after the target's header sets are known.
# REQUIRES lists what the headers of the target include: libraries of this project, Core for Qt Core.
function(tavoro_install name description)
    cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "REQUIRES")
    install(TARGETS ${name} EXPORT ${tavoro_package}Targets
        LIBRARY COMPONENT ${name} NAMELINK_COMPONENT Devel
        ARCHIVE COMPONENT Devel
        FILE_SET HEADERS DESTINATION ${tavoro_include_dir} COMPONENT Devel)

    list(TRANSFORM arg_REQUIRES REPLACE "^(tavoro.*)$" "\\1${TAVORO_SUFFIX}")
    list(TRANSFORM arg_REQUIRES REPLACE "^(Core)$" "Qt${QT_VERSION_MAJOR}\\1")
    list(JOIN arg_REQUIRES " " requires)
    get_target_property(type ${name} TYPE)
    set(libs "")
    if(type STREQUAL "SHARED_LIBRARY")
        set(libs "-L\${libdir} -l${name}${TAVORO_SUFFIX}")
    endif()
    file(RELATIVE_PATH prefix /${tavoro_pkgconfig_dir} /)
    string(REGEX REPLACE "/$" "" prefix ${prefix})
    configure_file(${CMAKE_CURRENT_FUNCTION_LIST_DIR}/tavorolibrary.pc.in
        ${PROJECT_BINARY_DIR}/pkgconfig/${name}${TAVORO_SUFFIX}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/pkgconfig/${name}${TAVORO_SUFFIX}.pc
        DESTINATION ${tavoro_pkgconfig_dir} COMPONENT Devel)
endfunction()

# tavoro_install_package(): to be called once, after all libraries.
function(tavoro_install_package)
    if(QT_VERSION_MAJOR EQUAL 5)
        set(tavoro_other_qt 6)
        set(tavoro_other_package TavoroControlQt6)
    else()
        set(tavoro_other_qt 5)
        set(tavoro_other_package TavoroControl)
    endif()
    configure_package_config_file(${CMAKE_CURRENT_FUNCTION_LIST_DIR}/TavoroControlConfig.cmake.in
        ${PROJECT_BINARY_DIR}/${tavoro_package}Config.cmake
        INSTALL_DESTINATION ${tavoro_package_dir})
    write_basic_package_version_file(${PROJECT_BINARY_DIR}/${tavoro_package}ConfigVersion.cmake
        COMPATIBILITY SameMajorVersion)
    install(FILES
        ${PROJECT_BINARY_DIR}/${tavoro_package}Config.cmake
        ${PROJECT_BINARY_DIR}/${tavoro_package}ConfigVersion.cmake
        DESTINATION ${tavoro_package_dir} COMPONENT Devel)
    # For projects that use this build without installing it, such as that of docs/guide.md.
    export(EXPORT ${tavoro_package}Targets NAMESPACE Tavoro:: FILE ${PROJECT_BINARY_DIR}/${tavoro_package}Targets.cmake)
    install(EXPORT ${tavoro_package}Targets NAMESPACE Tavoro:: DESTINATION ${tavoro_package_dir} COMPONENT Devel)
endfunction()

# The pages, with the folders in which they link each other.
install(FILES README.md CHANGELOG.md CONTRIBUTING.md SECURITY.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT Documentation)
install(DIRECTORY docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs COMPONENT Documentation
    FILES_MATCHING PATTERN "*.md" PATTERN "*.png" PATTERN "schema" EXCLUDE)
