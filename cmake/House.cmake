# SPDX-License-Identifier: MIT
# Rules of the house: one target per folder, warnings, where things land.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release)
endif()

# Level 2, as distributions build: the third makes a first build longer.
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")

# What is tested is optimised; the questions need not be.
set(HOUSE_TEST_OPTIONS $<$<CONFIG:Release>:-O0>)

option(HOUSE_WERROR "Warnings are errors" OFF)
option(HOUSE_WINDOW "The Qt window and the plotter" ON)
set(HOUSE_SANITIZE "" CACHE STRING "Sanitizers, as -fsanitize takes them")

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # The compiler tells what a source includes, and some headers are parsed once.
    set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_DEPEND=1 CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE_PROGRAM})
    add_compile_options($<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
endif()

# Programs and modules stand side by side; modules find each other there.
set(HOUSE_BIN ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${HOUSE_BIN})
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${HOUSE_BIN})
# Built with the path that is installed: to change it afterwards CMake would pad it with an empty element, which
# is the current folder.
set(CMAKE_BUILD_WITH_INSTALL_RPATH ON)
set(CMAKE_INSTALL_RPATH $ORIGIN)

if(WIN32)
    house_runtime_beside_programs()
endif()

add_library(house INTERFACE)
target_compile_options(house INTERFACE -Wall -Wextra -Wpedantic -Wconversion)
# g++ 12 reports overlaps that are not there in std::string (its bug 105651).
target_compile_options(house INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
# A module that is unloaded must really go: unique symbols would pin it.
target_compile_options(house INTERFACE $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
if(HOUSE_WERROR)
    target_compile_options(house INTERFACE -Werror)
endif()
# A sanitizer's run-time stands in the program alone, so libraries miss it.
set(HOUSE_NO_UNDEFINED -Wl,--no-undefined)
if(HOUSE_SANITIZE)
    set(HOUSE_NO_UNDEFINED "")
    target_compile_options(house INTERFACE -fsanitize=${HOUSE_SANITIZE} -fno-omit-frame-pointer
                                           -fno-sanitize-recover=undefined)
    target_link_options(house INTERFACE -fsanitize=${HOUSE_SANITIZE})
endif()

# The host's interface: SDK file names and nothing else.
add_library(arx INTERFACE)
target_include_directories(arx INTERFACE ${CMAKE_SOURCE_DIR}/arx)
target_link_libraries(arx INTERFACE house)

# What modules and the host agree on beyond it.
add_library(protocol INTERFACE)
target_include_directories(protocol INTERFACE ${CMAKE_SOURCE_DIR})
target_link_libraries(protocol INTERFACE arx)

function(house_add folder)
    if(EXISTS ${CMAKE_SOURCE_DIR}/${folder}/CMakeLists.txt)
        add_subdirectory(${CMAKE_SOURCE_DIR}/${folder})
    endif()
endfunction()

# house_built_soon(NAME): what only a person's next word waits for takes less to compile.
function(house_built_soon name)
    target_compile_options(${name} PRIVATE $<$<CONFIG:Release>:-O1>)
endfunction()

# house_room(NAME SOURCES ... KNOWS other rooms and libraries)
# A room of the host: a static library, so that a test of one room links only whom it may know.
function(house_room name)
    cmake_parse_arguments(ROOM "" "" "SOURCES;KNOWS" ${ARGN})
    add_library(${name} STATIC ${ROOM_SOURCES})
    target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC arx protocol ${ROOM_KNOWS})
    set_property(GLOBAL APPEND PROPERTY HOUSE_ROOMS ${name})
endfunction()

# All rooms in one shared library: what the console, the window and the modules link.
function(house_host_library)
    get_property(rooms GLOBAL PROPERTY HOUSE_ROOMS)
    if(NOT rooms)
        return()
    endif()
    list(TRANSFORM rooms REPLACE "(.+)" "$<TARGET_OBJECTS:\\1>" OUTPUT_VARIABLE objects)
    add_library(prancheta SHARED ${objects})
    target_include_directories(prancheta PUBLIC ${CMAKE_SOURCE_DIR})
    target_link_libraries(prancheta PUBLIC arx protocol PRIVATE ${CMAKE_DL_LIBS})
    target_link_options(prancheta PRIVATE ${HOUSE_NO_UNDEFINED})
    if(NOT WIN32)
        target_link_options(prancheta PRIVATE -Wl,-Bsymbolic-functions)
    endif()
endfunction()

# house_module(NAME OUTPUT file name SOURCES ... KNOWS ...)
# A shared object that the host loads, under exactly this file name.
function(house_module name)
    cmake_parse_arguments(MODULE "" "OUTPUT" "SOURCES;KNOWS" ${ARGN})
    add_library(${name} SHARED ${MODULE_SOURCES})
    cmake_path(GET MODULE_OUTPUT STEM stem)
    cmake_path(GET MODULE_OUTPUT EXTENSION extension)
    set_target_properties(${name} PROPERTIES PREFIX "" OUTPUT_NAME ${stem} SUFFIX ${extension})
    target_link_libraries(${name} PUBLIC arx ${MODULE_KNOWS} PRIVATE prancheta)
    target_link_options(${name} PRIVATE ${HOUSE_NO_UNDEFINED})
endfunction()

# house_aside(NAME folder): a program that is no part of the product stands in a folder beside bin.
function(house_aside name folder)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/${folder}
                                             LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/${folder}
                                             INSTALL_RPATH $ORIGIN/../bin)
endfunction()

# The toolkit keeps its own folder here instead of leaving one in the temporary folder.
set(HOUSE_RUNTIME ${CMAKE_BINARY_DIR}/runtime)
file(MAKE_DIRECTORY ${HOUSE_RUNTIME})
file(CHMOD ${HOUSE_RUNTIME} PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
function(house_test_surroundings name)
    set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT_MODIFICATION XDG_RUNTIME_DIR=set:${HOUSE_RUNTIME})
endfunction()

# house_test(NAME SOURCES ... KNOWS ...): one GoogleTest program, one test of ctest.
function(house_test name)
    cmake_parse_arguments(TEST "" "" "SOURCES;KNOWS" ${ARGN})
    add_executable(${name} ${TEST_SOURCES})
    target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE house ${TEST_KNOWS} GTest::gtest_main)
    target_compile_options(${name} PRIVATE ${HOUSE_TEST_OPTIONS})
    if(NOT WIN32)  # there libraries are looked for beside the program
        house_aside(${name} tests)
    endif()
    target_compile_definitions(${name} PRIVATE HOUSE_SOURCE_DIR="${CMAKE_SOURCE_DIR}"
                                               HOUSE_BINARY_DIR="${CMAKE_BINARY_DIR}")
    add_test(NAME ${name} COMMAND ${name})
    house_test_surroundings(${name})
endfunction()

# The installation folder as users have it, ready beside the programs.
function(house_installation_folder)
    add_custom_target(instalacao ALL
        COMMAND ${CMAKE_COMMAND} -E copy_directory ${CMAKE_SOURCE_DIR}/instalacao ${CMAKE_BINARY_DIR}/instalacao
        COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_SOURCE_DIR}/docs/manual.md ${CMAKE_BINARY_DIR}/instalacao/Prancheta/
        COMMAND ${CMAKE_COMMAND} -E copy_directory ${CMAKE_SOURCE_DIR}/docs/imagens ${CMAKE_BINARY_DIR}/instalacao/Prancheta/imagens
        COMMENT "Installation folder")
endfunction()
