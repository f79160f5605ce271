# What most files read first, read once: without it the compiler spends two thirds of its time on the same headers. A kind
# of files that are compiled alike shares one precompiled header. It stands for what each file includes and never in its
# place: the release has none, and neither has clang-tidy.
option(SONGBIN_PRECOMPILED "Headers that most files include are compiled once" ${SONGBIN_TESTS})

function(songbin_precompiled_kind kind)
    cmake_parse_arguments(ARG "" "" "HEADERS;LINKS" ${ARGN})
    add_library(precompiled_${kind} OBJECT ${CMAKE_SOURCE_DIR}/cmake/precompiled.cpp)
    set_target_properties(precompiled_${kind} PROPERTIES AUTOMOC OFF)
    target_link_libraries(precompiled_${kind} PRIVATE songbin_options ${ARG_LINKS})
    target_precompile_headers(precompiled_${kind} PRIVATE ${ARG_HEADERS})
endfunction()

if(SONGBIN_PRECOMPILED)
    # The sound server's library asks for it. What shares a precompiled header is compiled alike.
    target_compile_definitions(songbin_options INTERFACE _REENTRANT)
    set(rules <algorithm> <array> <chrono> <filesystem> <functional> <map> <memory> <optional> <string> <utility> <vector>
        <QByteArray> <QByteArrayView> <QDateTime> <QDir> <QFile> <QList> <QObject> <QRect> <QString> <QStringList> <QTimer>)
    set(windows <QApplication> <QCheckBox> <QComboBox> <QHeaderView> <QHBoxLayout> <QKeyEvent> <QLabel> <QLineEdit> <QMenu>
        <QMouseEvent> <QPainter> <QPushButton> <QScreen> <QWidget>)
    songbin_precompiled_kind(rules HEADERS ${rules} LINKS Qt6::Core songbin_hardening)
    songbin_precompiled_kind(windows HEADERS ${rules} ${windows} LINKS Qt6::Widgets songbin_hardening)
endif()
if(SONGBIN_PRECOMPILED AND SONGBIN_TESTS)
    find_package(GTest REQUIRED)
    songbin_precompiled_kind(units HEADERS ${rules} <gtest/gtest.h> LINKS Qt6::Core GTest::gtest)
endif()

function(songbin_reads_precompiled target kind)
    if(SONGBIN_PRECOMPILED)
        target_precompile_headers(${target} REUSE_FROM precompiled_${kind})
    endif()
endfunction()

# A room has windows when it links the widgets, or a room that has.
function(songbin_room_reads_precompiled room)
    set(kind rules)
    foreach(link ${ARGN})
        if(TARGET ${link})
            get_target_property(links_kind ${link} SONGBIN_KIND)
        endif()
        if(link STREQUAL Qt6::Widgets OR links_kind STREQUAL windows)
            set(kind windows)
        endif()
    endforeach()
    set_target_properties(${room} PROPERTIES SONGBIN_KIND ${kind})
    songbin_reads_precompiled(${room} ${kind})
endfunction()
