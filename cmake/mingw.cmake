# SPDX-License-Identifier: MIT
# Toolchain: 64-bit Windows with g++ of mingw-w64, POSIX threads. Programs run in wine while building.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(house_triple x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${house_triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${house_triple}-g++-posix)
set(CMAKE_RC_COMPILER ${house_triple}-windres)
find_program(HOUSE_WINE NAMES wine64 wine)
if(HOUSE_WINE)
    # A wine of its own, that knows nothing of the user's.
    set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_COMMAND} -E env WINEPREFIX=${CMAKE_BINARY_DIR}/wine WINEDEBUG=-all
                                      ${HOUSE_WINE})
endif()

# The building system's own libraries are for another system: only what stands below the prefixes given is looked at.
set(CMAKE_FIND_ROOT_PATH ${HOUSE_WINDOWS_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
