# Builds for 64-bit Windows with Debian's mingw-w64, in the variant with POSIX threads, which has the C++ library's own.
# What else is needed scripts/lib/windows-packages builds; Wine runs what is built.
set(CMAKE_SYSTEM_NAME Windows)
if(NOT mingw_machine) # mingw32.cmake sets it, and the others with it
    set(mingw_machine x86_64-w64-mingw32)
    set(mingw_packages windows-packages)
    set(mingw_wine) # what run-wine is told
    set(CMAKE_SYSTEM_PROCESSOR x86_64)
endif()
set(CMAKE_C_COMPILER ${mingw_machine}-gcc-posix)
set(CMAKE_CXX_COMPILER ${mingw_machine}-g++-posix)
set(CMAKE_RC_COMPILER ${mingw_machine}-windres)
set(CMAKE_FIND_ROOT_PATH ${CMAKE_CURRENT_LIST_DIR}/../build/${mingw_packages} /usr/${mingw_machine})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/lib/run-wine ${mingw_wine})
