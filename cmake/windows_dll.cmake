# The Windows form of libquillon: quillon.dll, whose exports are named by the module-definition
# file alone (undecorated, in the __stdcall convention on 32-bit Windows), with the C++ runtime
# linked in so that the DLL needs system DLLs only, and the import library a host links.
target_sources(quillon PRIVATE api/quillon.def)
# The .def names the functions plainly; on i686 their symbols carry @n, which the fix-up matches.
target_link_options(quillon PRIVATE -Wl,--enable-stdcall-fixup)
set_target_properties(quillon PROPERTIES
  PREFIX ""
  IMPORT_PREFIX "lib"
  IMPORT_SUFFIX ".dll.a"
  RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}
  ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})

# A 32-bit host's compiler calls _mathexpr_create@8, so the import library must map each
# decorated name to the plain export: it is made again from the decorated names of the objects.
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  find_program(QUILLON_DLLTOOL ${QUILLON_MINGW_ARCH}-w64-mingw32-dlltool REQUIRED)
  add_custom_command(TARGET quillon POST_BUILD
    COMMAND ${CMAKE_COMMAND} -DNM=${CMAKE_NM} -DDLLTOOL=${QUILLON_DLLTOOL}
            -DARCHIVE=$<TARGET_FILE:quillon_engine> -DDEF=${CMAKE_CURRENT_SOURCE_DIR}/api/quillon.def
            -DDLL=$<TARGET_FILE_NAME:quillon> -DOUT_DIR=${PROJECT_BINARY_DIR}
            -P ${PROJECT_SOURCE_DIR}/cmake/stdcall_import_library.cmake
    VERBATIM)
endif()
