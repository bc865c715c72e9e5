# Checks on the built shared library as a host sees it: which symbols it exports, that a C
# program compiles and links against the header, and that an installed package is usable.

add_executable(c_consumer ${CMAKE_CURRENT_LIST_DIR}/c_consumer.c)
set_target_properties(c_consumer PROPERTIES LINKER_LANGUAGE C C_STANDARD 99 C_STANDARD_REQUIRED ON)
target_link_libraries(c_consumer PRIVATE quillon)
# Built everywhere, which proves that a host links; run where the build can run its programs
# (Wine here runs 64-bit Windows programs only).
if(NOT CMAKE_CROSSCOMPILING OR CMAKE_CROSSCOMPILING_EMULATOR)
  add_test(NAME c_consumer COMMAND c_consumer)
endif()

add_test(NAME exported_symbols
  COMMAND ${CMAKE_COMMAND} -DLIBRARY=$<TARGET_FILE:quillon> -DOBJDUMP=${CMAKE_OBJDUMP}
          -DEXPECTED=${CMAKE_CURRENT_LIST_DIR}/expected_exports.txt
          -P ${CMAKE_CURRENT_LIST_DIR}/check_exports.cmake)

# The consumers of an installed package are built without sanitizers, so they can't load a
# sanitized library; a cross build has no compiler here for consumers of its package.
if(QUILLON_SANITIZE OR CMAKE_CROSSCOMPILING)
  return()
endif()
add_test(NAME installed_package
  COMMAND ${CMAKE_COMMAND} -DBUILD_DIR=${PROJECT_BINARY_DIR}
          -DWORK_DIR=${CMAKE_CURRENT_BINARY_DIR}/install_check
          -DCONSUMER_DIR=${CMAKE_CURRENT_LIST_DIR}/consumer
          -DGENERATOR=${CMAKE_GENERATOR}
          -P ${CMAKE_CURRENT_LIST_DIR}/check_install.cmake)
