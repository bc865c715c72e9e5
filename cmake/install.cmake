# Installation: the shared library, the C header, the shared layer's C++ library and headers,
# a CMake package (find_package(quillon) gives quillon::quillon) and a pkg-config file.
include(CMakePackageConfigHelpers)

install(TARGETS quillon quillon_shared
  EXPORT quillonTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${PROJECT_SOURCE_DIR}/include/quillon.h ${PROJECT_SOURCE_DIR}/include/quillon_program.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/quillon DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

install(EXPORT quillonTargets NAMESPACE quillon:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/quillon)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/quillonConfig.cmake.in
  ${PROJECT_BINARY_DIR}/quillonConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/quillon)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/quillonConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/quillonConfig.cmake ${PROJECT_BINARY_DIR}/quillonConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/quillon)

file(RELATIVE_PATH QUILLON_PC_TO_PREFIX "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
configure_file(${PROJECT_SOURCE_DIR}/cmake/quillon.pc.in ${PROJECT_BINARY_DIR}/quillon.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/quillon.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
