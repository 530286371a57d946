# SPDX-License-Identifier: MIT
# Headers of others that most sources include are parsed once for all targets of a kind: in a first build most
# of a small source's time went there. A source still includes what it uses: ./verificar reads the tree without this.

option(HOUSE_PARSED_ONCE "Headers of the standard library, GoogleTest and Qt are parsed once" ON)

# For the same reason a first build compiles some sources as one; whoever changes them wants them one by one.
option(HOUSE_BATCHES "Sources of the host and of the companions are compiled several at a time" OFF)
set(HOUSE_BATCH 6)
# Their sources say the same things of different commands, under the same names.
set(HOUSE_ONE_BY_ONE perfis_commands perfis_catalogues perfis_dialogs zpsecao)

set(HOUSE_STANDARD_HEADERS <algorithm> <array> <charconv> <chrono> <cmath> <coroutine> <cstdint> <cwchar> <deque>
                           <filesystem> <functional> <limits> <map> <memory> <numbers> <optional> <span> <sstream>
                           <string> <string_view> <unordered_map> <unordered_set> <variant> <vector>)
set(HOUSE_QT_HEADERS <QApplication> <QComboBox> <QDialog> <QDockWidget> <QFileDialog> <QFileInfo> <QHeaderView>
                     <QLabel> <QLineEdit> <QMenu> <QMessageBox> <QMouseEvent> <QPainter> <QPushButton> <QSettings>
                     <QSortFilterProxyModel> <QStyledItemDelegate> <QTableView> <QTimer> <QToolBar> <QVBoxLayout>
                     <QWidget>)
# The compiler counts its memory less often. Seen through parsed headers, g++ 12's report of an overlap that is not
# there (its bug 105651) comes as two others.
set(HOUSE_PARSED_OPTIONS --param=ggc-min-heapsize=524288 -Wno-array-bounds -Wno-stringop-overflow)

# house_headers(NAME KNOWS libraries OPTIONS of the compiler HEADERS ...)
function(house_headers name)
    cmake_parse_arguments(ONCE "" "" "KNOWS;OPTIONS;HEADERS" ${ARGN})
    set(source ${CMAKE_BINARY_DIR}/${name}.cpp)
    if(NOT EXISTS ${source})
        file(WRITE ${source} "")
    endif()
    add_library(${name} OBJECT EXCLUDE_FROM_ALL ${source})
    target_link_libraries(${name} PRIVATE house ${ONCE_KNOWS})
    target_compile_options(${name} PRIVATE ${HOUSE_PARSED_OPTIONS} ${ONCE_OPTIONS})
    target_precompile_headers(${name} PRIVATE ${HOUSE_STANDARD_HEADERS} ${ONCE_HEADERS})
endfunction()

function(house_parse_once_below folder)
    get_property(parts DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
    foreach(part ${parts})
        house_parse_once_below(${part})
    endforeach()
    get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
    foreach(target ${targets})
        get_target_property(type ${target} TYPE)
        get_target_property(known ${target} LINK_LIBRARIES)
        if(NOT type MATCHES "STATIC_LIBRARY|SHARED_LIBRARY|EXECUTABLE" OR target STREQUAL "prancheta")
            continue()
        endif()
        set(headers house_standard)
        if("GTest::gtest_main" IN_LIST known)
            set(headers house_tests)
            if(folder MATCHES "/tests/desktop")
                set(headers house_qt_tests)
            endif()
        elseif(folder MATCHES "/prancheta/desktop/")
            set(headers house_qt)
        endif()
        if(HOUSE_BATCHES AND NOT target IN_LIST HOUSE_ONE_BY_ONE AND NOT "GTest::gtest_main" IN_LIST known)
            set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE ${HOUSE_BATCH})
            # Types without a name outside their source are seen in an included file then.
            target_compile_options(${target} PRIVATE -Wno-subobject-linkage)
        endif()
        target_precompile_headers(${target} REUSE_FROM ${headers})
        # A program's code would be made otherwise than the headers' code is.
        target_compile_options(${target} PRIVATE -fPIC ${HOUSE_PARSED_OPTIONS})
    endforeach()
endfunction()

function(house_parse_once)
    if(NOT HOUSE_PARSED_ONCE OR CMAKE_CROSSCOMPILING OR NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        return()
    endif()
    find_package(GTest REQUIRED)
    house_headers(house_standard)
    house_headers(house_tests KNOWS GTest::gtest OPTIONS ${HOUSE_TEST_OPTIONS} HEADERS <gtest/gtest.h>)
    if(HOUSE_WINDOW)
        house_headers(house_qt KNOWS Qt6::Widgets HEADERS ${HOUSE_QT_HEADERS})
        house_headers(house_qt_tests KNOWS GTest::gtest Qt6::Widgets OPTIONS ${HOUSE_TEST_OPTIONS}
                      HEADERS <gtest/gtest.h> ${HOUSE_QT_HEADERS})
    endif()
    house_parse_once_below(${CMAKE_SOURCE_DIR})
endfunction()
