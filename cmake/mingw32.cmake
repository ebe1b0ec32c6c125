# Builds for 32-bit Windows, whose programs may use 4 GiB where the system is a 64-bit one.
set(mingw_machine i686-w64-mingw32)
set(mingw_packages windows32-packages)
set(mingw_wine --32)
set(CMAKE_SYSTEM_PROCESSOR i686)
# Numbers are rounded to 64 bits after each step, as elsewhere; the older unit rounds when it likes.
set(CMAKE_C_FLAGS_INIT "-msse2 -mfpmath=sse")
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
set(CMAKE_EXE_LINKER_FLAGS_INIT -Wl,--large-address-aware)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
