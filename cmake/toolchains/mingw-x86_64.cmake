# 64-bit Windows, where the test suite runs under Wine; its 64-bit launcher lives in Wine's
# library folder rather than on the PATH.
set(QUILLON_MINGW_ARCH x86_64)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
find_program(QUILLON_WINE64 wine64 PATHS /usr/lib/wine NO_DEFAULT_PATH)
find_program(QUILLON_WINE64 wine64)
if(QUILLON_WINE64)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${QUILLON_WINE64})
endif()
