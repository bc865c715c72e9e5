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

# The pkg-config file is written when installing, with the prefix the files really went to (as
# `cmake --install --prefix` gives it), so that its paths are plain absolute ones.
install(CODE "
  set(QUILLON_PC_PREFIX \"\${CMAKE_INSTALL_PREFIX}\")
  set(CMAKE_INSTALL_LIBDIR \"${CMAKE_INSTALL_LIBDIR}\")
  set(CMAKE_INSTALL_INCLUDEDIR \"${CMAKE_INSTALL_INCLUDEDIR}\")
  set(PROJECT_VERSION \"${PROJECT_VERSION}\")
  configure_file(\"${PROJECT_SOURCE_DIR}/cmake/quillon.pc.in\"
    \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/pkgconfig/quillon.pc\" @ONLY)
  message(STATUS \"Installing: \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/pkgconfig/quillon.pc\")
")
