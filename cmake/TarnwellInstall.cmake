include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(TARGETS Tarnwell EXPORT TarnwellTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/tarnwell DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT TarnwellTargets NAMESPACE Tarnwell:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Tarnwell)

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/TarnwellConfig.cmake.in
  ${PROJECT_BINARY_DIR}/TarnwellConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Tarnwell)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/TarnwellConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/TarnwellConfig.cmake ${PROJECT_BINARY_DIR}/TarnwellConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Tarnwell)
