# Installation: library, headers, CMake package "Nexo" and pkg-config file "nexo".
include(CMakePackageConfigHelpers)

install(TARGETS nexo EXPORT NexoTargets)
install(DIRECTORY nexo/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/nexo FILES_MATCHING PATTERN "*.h"
        PATTERN linux EXCLUDE)
install(EXPORT NexoTargets NAMESPACE Nexo:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Nexo)

write_basic_package_version_file(${CMAKE_BINARY_DIR}/NexoConfigVersion.cmake COMPATIBILITY SameMajorVersion)
file(WRITE ${CMAKE_BINARY_DIR}/NexoConfig.cmake "include(\${CMAKE_CURRENT_LIST_DIR}/NexoTargets.cmake)\n")
install(FILES ${CMAKE_BINARY_DIR}/NexoConfig.cmake ${CMAKE_BINARY_DIR}/NexoConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Nexo)

configure_file(cmake/nexo.pc.in ${CMAKE_BINARY_DIR}/nexo.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/nexo.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
