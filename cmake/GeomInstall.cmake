# SPDX-License-Identifier: MIT
# Installation: headers, libraries, the CMake package "geometry" and geometry.pc.
include(CMakePackageConfigHelpers)

install(TARGETS kit geometry EXPORT geometryTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY "${PROJECT_SOURCE_DIR}/Subsystems/Kit/"
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/Subsystems/Kit FILES_MATCHING PATTERN "*.h"
        PATTERN "Formatting.h" EXCLUDE)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/geometry/"
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/geometry FILES_MATCHING PATTERN "*.h"
        PATTERN "engine" EXCLUDE PATTERN "detail" EXCLUDE)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/geometry)
install(EXPORT geometryTargets NAMESPACE geom:: DESTINATION ${package_dir})
configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/geometryConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/geometryConfig.cmake" INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file("${PROJECT_BINARY_DIR}/geometryConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/geometryConfig.cmake"
              "${PROJECT_BINARY_DIR}/geometryConfigVersion.cmake"
        DESTINATION ${package_dir})

# The prefix is found from where the file stands, so an installed tree may be moved.
file(RELATIVE_PATH prefix_from_pc "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
configure_file("${CMAKE_CURRENT_LIST_DIR}/geometry.pc.in" "${PROJECT_BINARY_DIR}/geometry.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/geometry.pc" DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
