# What `cmake --install` puts in place, in three components, and the packages made of them:
#   plugin     the plug-in and its translations (installed where they are built)
#   sdk        what another host needs to build and try itself
#   workbench  the substitute host
include(CMakePackageConfigHelpers)

set(headers_dir "${CMAKE_INSTALL_INCLUDEDIR}/trackingsettings")
set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/TrackingSettings")

list(TRANSFORM host_headers PREPEND "${HOST_INTERFACE_DIR}/" OUTPUT_VARIABLE host_header_files)
install(FILES ${host_header_files}
    DESTINATION "${headers_dir}/hostinterface" COMPONENT sdk)
install(DIRECTORY simulator/ DESTINATION "${headers_dir}/simulator" COMPONENT sdk
    FILES_MATCHING PATTERN "*.h")
install(DIRECTORY scenarios DESTINATION "${TRACKING_DATA_INSTALL_DIR}" COMPONENT sdk)
install(DIRECTORY examples/minimalhost
    DESTINATION "${TRACKING_DATA_INSTALL_DIR}/examples" COMPONENT sdk)
install(TARGETS hostinterface tracking_simulator EXPORT TrackingSettings
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT sdk)
install(EXPORT TrackingSettings NAMESPACE TrackingSettings::
    FILE TrackingSettingsTargets.cmake DESTINATION "${package_dir}" COMPONENT sdk)
configure_package_config_file(cmake/TrackingSettingsConfig.cmake.in
    "${CMAKE_BINARY_DIR}/TrackingSettingsConfig.cmake"
    INSTALL_DESTINATION "${package_dir}"
    PATH_VARS TRACKING_DATA_INSTALL_DIR TRACKING_PLUGIN_INSTALL_DIR)
write_basic_package_version_file("${CMAKE_BINARY_DIR}/TrackingSettingsConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES
    "${CMAKE_BINARY_DIR}/TrackingSettingsConfig.cmake"
    "${CMAKE_BINARY_DIR}/TrackingSettingsConfigVersion.cmake"
    DESTINATION "${package_dir}" COMPONENT sdk)

install(TARGETS workbench RUNTIME
    DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT workbench)
install(FILES packaging/trackingsettings-workbench.desktop
    DESTINATION "${CMAKE_INSTALL_DATADIR}/applications" COMPONENT workbench)
install(FILES packaging/trackingsettings-workbench.svg
    DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps" COMPONENT workbench)
configure_file(packaging/workbench.1.in "${CMAKE_BINARY_DIR}/workbench.1" @ONLY)
install(FILES "${CMAKE_BINARY_DIR}/workbench.1"
    DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT workbench)

set(TRACKING_PACKAGE_CONTACT "Tracking settings maintainers <maintainers@example.org>" CACHE STRING
    "Who answers for the Debian packages: name and mail address")
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "${TRACKING_PACKAGE_CONTACT}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Settings module of an optical tracking system's frontend")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL plugin sdk workbench)
set(CPACK_COMPONENTS_GROUPING IGNORE)
# Separating the debug symbols also strips the files.
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)

set(CPACK_DEBIAN_PLUGIN_PACKAGE_NAME trackingsettings)
set(CPACK_COMPONENT_PLUGIN_DESCRIPTION "The plug-in that the frontend loads, and its translations.")
set(CPACK_DEBIAN_PLUGIN_DEBUGINFO_PACKAGE ON)

set(CPACK_DEBIAN_SDK_PACKAGE_NAME trackingsettings-dev)
set(CPACK_COMPONENT_SDK_DESCRIPTION
    "Interface headers, simulated controller, scenarios and an example for hosts of the plug-in.")
set(CPACK_DEBIAN_SDK_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_SDK_PACKAGE_DEPENDS "${qt_dev_package}, trackingsettings (= ${PROJECT_VERSION})")

set(CPACK_DEBIAN_WORKBENCH_PACKAGE_NAME trackingsettings-workbench)
set(CPACK_COMPONENT_WORKBENCH_DESCRIPTION
    "A substitute host with a simulated controller, for trying the plug-in without cameras.")
set(CPACK_DEBIAN_WORKBENCH_DEBUGINFO_PACKAGE ON)
# The scenarios belong to the development package.
set(CPACK_DEBIAN_WORKBENCH_PACKAGE_DEPENDS
    "trackingsettings (= ${PROJECT_VERSION}), trackingsettings-dev (= ${PROJECT_VERSION})")
include(CPack)
