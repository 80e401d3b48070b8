# Install rules: the shared library, its headers, an exported CMake package
# (find_package(kvdao) gives kvdao::kvdao) and a pkg-config file.
include(CMakePackageConfigHelpers)

install(TARGETS kvdao EXPORT kvdaoTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/kvdao DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(FILES ${PROJECT_BINARY_DIR}/include/kvdao/version.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kvdao)
if(TARGET kvdao_cli)
  install(TARGETS kvdao_cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

set(KVDAO_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/kvdao)
install(EXPORT kvdaoTargets NAMESPACE kvdao:: DESTINATION ${KVDAO_CMAKE_DIR})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/kvdaoConfig.cmake.in
  ${PROJECT_BINARY_DIR}/kvdaoConfig.cmake INSTALL_DESTINATION ${KVDAO_CMAKE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/kvdaoConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/kvdaoConfig.cmake ${PROJECT_BINARY_DIR}/kvdaoConfigVersion.cmake
  DESTINATION ${KVDAO_CMAKE_DIR})

# The pkg-config file finds its prefix relative to itself, so that an
# install under any --prefix is usable as it lies.
file(RELATIVE_PATH KVDAO_PC_TO_PREFIX "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
configure_file(${PROJECT_SOURCE_DIR}/cmake/kvdao.pc.in ${PROJECT_BINARY_DIR}/kvdao.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/kvdao.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
