# Installation: library, CMake package "Nexo" with the targets Nexo::nexo and Nexo::pugixml, pkg-config file
# "nexo". Both describe the place where they lie, so an installed tree can be moved as a whole.
include(CMakePackageConfigHelpers)

install(TARGETS nexo EXPORT NexoTargets)
install(EXPORT NexoTargets NAMESPACE Nexo:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Nexo)

write_basic_package_version_file(${CMAKE_BINARY_DIR}/NexoConfigVersion.cmake COMPATIBILITY SameMajorVersion)
configure_package_config_file(cmake/NexoConfig.cmake.in ${CMAKE_BINARY_DIR}/NexoConfig.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Nexo)
install(FILES ${CMAKE_BINARY_DIR}/NexoConfig.cmake ${CMAKE_BINARY_DIR}/NexoConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Nexo)

set(pc_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX}/${pc_dir}
           OUTPUT_VARIABLE NEXO_PREFIX_FROM_PC)
configure_file(cmake/nexo.pc.in ${CMAKE_BINARY_DIR}/nexo.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/nexo.pc DESTINATION ${pc_dir})
