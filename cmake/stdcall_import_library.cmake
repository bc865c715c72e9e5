# Makes the import libraries of the 32-bit DLL: every plain name of the module-definition file
# DEF, found with its @n decoration among the symbols of ARCHIVE, imported under its plain name.
# Writes libquillon.dll.a (for mingw hosts) and quillon.lib (the same COFF archive, for others).
execute_process(COMMAND ${NM} --defined-only ${ARCHIVE} OUTPUT_VARIABLE symbols RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "${NM} failed on ${ARCHIVE}")
endif()
file(STRINGS ${DEF} names REGEX "^  [a-z_0-9]+$")
set(decorated "LIBRARY ${DLL}\nEXPORTS\n")
foreach(name IN LISTS names)
  string(STRIP "${name}" name)
  if(NOT symbols MATCHES " T _${name}(@[0-9]+)\n")
    message(FATAL_ERROR "no __stdcall symbol for ${name} in ${ARCHIVE}")
  endif()
  string(APPEND decorated "  ${name}${CMAKE_MATCH_1}\n")
endforeach()
file(WRITE ${OUT_DIR}/quillon-stdcall.def "${decorated}")
foreach(library libquillon.dll.a quillon.lib)
  execute_process(COMMAND ${DLLTOOL} --kill-at --input-def ${OUT_DIR}/quillon-stdcall.def
                          --dllname ${DLL} --output-lib ${OUT_DIR}/${library} RESULT_VARIABLE rc)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "${DLLTOOL} failed to make ${library}")
  endif()
endforeach()
