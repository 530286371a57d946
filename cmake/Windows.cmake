# SPDX-License-Identifier: MIT
# What a build for Windows does differently.

# The C++ run-time is shared: an exception or a stream of one module must be that of all.
set(HOUSE_RUNTIME libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)

# house_runtime_beside_programs(): copies the compiler's run-time libraries to the programs, as Windows looks
# for them; HOUSE_RUNTIME_FILES says where they came from.
function(house_runtime_beside_programs)
    set(found)
    foreach(name ${HOUSE_RUNTIME})
        execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name}
                        OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE)
        if(NOT IS_ABSOLUTE ${file})
            message(FATAL_ERROR "The compiler does not tell where its ${name} is.")
        endif()
        file(REAL_PATH ${file} file)
        list(APPEND found ${file})
    endforeach()
    file(COPY ${found} DESTINATION ${HOUSE_BIN})
    set(HOUSE_RUNTIME_FILES ${found} PARENT_SCOPE)
endfunction()

# house_header_only(PACKAGE TARGET FOLDER): imported TARGET of a package whose headers stand in one FOLDER.
# When cross compiling only that folder is taken, copied aside: its neighbours are the building system's.
function(house_header_only package target folder)
    if(TARGET ${target})
        return()
    endif()
    if(NOT CMAKE_CROSSCOMPILING)
        find_package(${package} REQUIRED GLOBAL)
        return()
    endif()
    find_path(${package}_HEADERS ${folder} NO_CMAKE_FIND_ROOT_PATH REQUIRED)
    file(COPY ${${package}_HEADERS}/${folder} DESTINATION ${CMAKE_BINARY_DIR}/headers)
    add_library(${target} INTERFACE IMPORTED GLOBAL)
    target_include_directories(${target} SYSTEM INTERFACE ${CMAKE_BINARY_DIR}/headers)
endfunction()

# house_windows_package(): one folder that works where it is unpacked, made into a ZIP by cpack.
macro(house_windows_package)
    install(TARGETS prancheta prancheta-console zpforja zpgbarra zptrelica zpobjects zpmatlist zpperfis
            RUNTIME DESTINATION bin)
    install(FILES ${HOUSE_RUNTIME_FILES} DESTINATION bin)
    install(DIRECTORY instalacao/ DESTINATION instalacao)
    install(DIRECTORY ${CMAKE_BINARY_DIR}/instalacao/Perfis/Slides DESTINATION instalacao/Perfis)
    install(FILES docs/manual.md DESTINATION instalacao/Prancheta)
    install(DIRECTORY docs/imagens DESTINATION instalacao/Prancheta)
    install(FILES LICENSE DESTINATION .)
    set(CPACK_GENERATOR ZIP)
    set(CPACK_PACKAGE_NAME prancheta)
    set(CPACK_STRIP_FILES ON)
    include(CPack)
endmacro()
