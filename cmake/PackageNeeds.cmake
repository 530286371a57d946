# SPDX-License-Identifier: MIT
# Read by cpack before it makes a package.

# The date of what is packed, as when it was configured.
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH} AND CPACK_HOUSE_EPOCH)
    set(ENV{SOURCE_DATE_EPOCH} ${CPACK_HOUSE_EPOCH})
endif()

# Without these programs it would fail late, or make one that depends on nothing.
if(CPACK_GENERATOR STREQUAL DEB)
    foreach(need file:file dpkg-dev:dpkg-shlibdeps)
        string(REPLACE : ";" need ${need})
        list(GET need 0 package)
        list(GET need 1 program)
        find_program(house_need_${package} ${program} NO_CACHE)
        if(NOT house_need_${package})
            message(FATAL_ERROR "O pacote não pode ser feito: falta o programa ${program}. "
                                "Instale-o: apt-get install ${package}")
        endif()
    endforeach()
endif()
