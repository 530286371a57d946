# SPDX-License-Identifier: MIT
# Where things land in an installed system, and the Debian package.

# Programs and modules find each other in one folder; the programs' own names are links to there.
set(house_home lib/prancheta)
set(house_share share/prancheta/instalacao)

set(house_parts prancheta prancheta-console zpforja zpgbarra zptrelica zpobjects zpmatlist zpperfis)
if(TARGET prancheta-window)
    list(APPEND house_parts prancheta-plot prancheta-window)
endif()
if(TARGET zpsolver)
    list(APPEND house_parts zpsolver)
endif()
install(TARGETS ${house_parts} RUNTIME DESTINATION ${house_home}
        LIBRARY DESTINATION ${house_home} PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)

file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/links)
foreach(program prancheta prancheta-console)
    file(CREATE_LINK ../${house_home}/${program} ${CMAKE_BINARY_DIR}/links/${program} SYMBOLIC)
    if(program STREQUAL prancheta-console OR TARGET prancheta-window)
        install(FILES ${CMAKE_BINARY_DIR}/links/${program} DESTINATION bin)
    endif()
endforeach()

install(DIRECTORY instalacao/ DESTINATION ${house_share})
install(DIRECTORY ${CMAKE_BINARY_DIR}/instalacao/Perfis/Slides DESTINATION ${house_share}/Perfis)
install(FILES docs/manual.md DESTINATION ${house_share}/Prancheta)
install(DIRECTORY docs/imagens DESTINATION ${house_share}/Prancheta)
install(FILES LICENSE DESTINATION share/doc/prancheta RENAME copyright)
if(TARGET prancheta-window)
    install(FILES packaging/prancheta.desktop DESTINATION share/applications)
    install(FILES packaging/prancheta.metainfo.xml DESTINATION share/metainfo)
    install(FILES prancheta/desktop/shell/prancheta.svg DESTINATION share/icons/hicolor/scalable/apps)
endif()

# The console's manual page has the options that the console itself shows.
if(NOT CMAKE_CROSSCOMPILING)
    add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/man/prancheta-console.1.gz
        COMMAND packaging/manpage.sh $<TARGET_FILE:prancheta-console> packaging/prancheta-console.1
                > ${CMAKE_BINARY_DIR}/man/prancheta-console.1
        COMMAND gzip -9nf ${CMAKE_BINARY_DIR}/man/prancheta-console.1
        COMMAND gzip -9nc packaging/prancheta.1 > ${CMAKE_BINARY_DIR}/man/prancheta.1.gz
        WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}
        DEPENDS prancheta-console packaging/manpage.sh packaging/prancheta-console.1 packaging/prancheta.1 VERBATIM)
    file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/man)
    add_custom_target(manpages ALL DEPENDS ${CMAKE_BINARY_DIR}/man/prancheta-console.1.gz)
    install(FILES ${CMAKE_BINARY_DIR}/man/prancheta-console.1.gz ${CMAKE_BINARY_DIR}/man/prancheta.1.gz
            DESTINATION share/man/man1)
    install(FILES packaging/prancheta-console.bash DESTINATION share/bash-completion/completions
            RENAME prancheta-console)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_SOURCE_DIR}/cmake/PackageNeeds.cmake)
set(CPACK_PACKAGE_NAME prancheta)
set(CPACK_PACKAGE_CONTACT "Prancheta <prancheta@prancheta.invalid>")  # nobody answers: a domain that can never be
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Steel profiles for draughtsmen: drawing host and profile commands")
set(CPACK_PACKAGE_DESCRIPTION "Thirty commands draw cold-formed, rolled and welded sections and the members
made of them as parametric pieces, with dimensions, plates and a material
list. They come with Prancheta, a drawing host with a window and a console,
which keeps its drawings as DXF and plots them to PDF, SVG and PNG.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
# A package that is its own origin tells its changes under this name.
# Two packages of one commit are the same bytes: their only date is the commit's, or the one that is asked for.
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
    execute_process(COMMAND git log -1 --format=%ct WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}
                    OUTPUT_VARIABLE house_epoch OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
    if(house_epoch)
        set(ENV{SOURCE_DATE_EPOCH} ${house_epoch})
    endif()
endif()
set(CPACK_HOUSE_EPOCH $ENV{SOURCE_DATE_EPOCH})
string(TIMESTAMP house_date "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(packaging/changelog.in ${CMAKE_BINARY_DIR}/changelog @ONLY)
execute_process(COMMAND gzip -9nfk ${CMAKE_BINARY_DIR}/changelog COMMAND_ERROR_IS_FATAL ANY)
install(FILES ${CMAKE_BINARY_DIR}/changelog.gz CHANGELOG.md DESTINATION share/doc/prancheta)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Our own libraries are looked up where they were built.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${HOUSE_BIN})
# The font of the drawings and the words of the toolkit's own windows: no link shows them.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-dejavu-core, qt6-translations-l10n")
include(CPack)
