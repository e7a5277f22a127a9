# The package that find_package(TavoroControl) finds.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/TavoroControl)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/TavoroControlConfig.cmake.in
    ${PROJECT_BINARY_DIR}/TavoroControlConfig.cmake
    INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/TavoroControlConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/TavoroControlConfig.cmake
    ${PROJECT_BINARY_DIR}/TavoroControlConfigVersion.cmake
    DESTINATION ${package_dir} COMPONENT Devel)
install(EXPORT TavoroControlTargets NAMESPACE Tavoro:: DESTINATION ${package_dir} COMPONENT Devel)
