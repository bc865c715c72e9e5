# 32-bit Windows, the host's platform: exports in the __stdcall convention.
set(QUILLON_MINGW_ARCH i686)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
