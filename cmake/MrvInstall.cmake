# Installs the library with its headers, the CMake package mrvCore::mrvCore and a pkg-config file.

include(CMakePackageConfigHelpers)

set(mrvPackageFolder "${CMAKE_INSTALL_LIBDIR}/cmake/mrvCore")

install(TARGETS mrvCore EXPORT mrvCoreTargets
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}")
# The frozen forms of the persistent classes are no part of the interface.
install(DIRECTORY "${PROJECT_SOURCE_DIR}/mrvCore" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
    FILES_MATCHING PATTERN "*.h" PATTERN "_compatibility" EXCLUDE)
install(EXPORT mrvCoreTargets NAMESPACE mrvCore:: DESTINATION "${mrvPackageFolder}")

configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/mrvCoreConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/mrvCoreConfig.cmake" INSTALL_DESTINATION "${mrvPackageFolder}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/mrvCoreConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
# Relative to the file itself: the prefix is chosen when the package is made or installed.
string(REGEX REPLACE "[^/]+" ".." mrvPrefixFromPkgConfig "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
configure_file("${CMAKE_CURRENT_LIST_DIR}/mrvCore.pc.in" "${PROJECT_BINARY_DIR}/mrvCore.pc" @ONLY)

install(FILES "${PROJECT_BINARY_DIR}/mrvCoreConfig.cmake" "${PROJECT_BINARY_DIR}/mrvCoreConfigVersion.cmake"
    DESTINATION "${mrvPackageFolder}")
install(FILES "${PROJECT_BINARY_DIR}/mrvCore.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
