# Each folder is two libraries: <folder>_core links QtCore alone and holds the rules, <folder> holds windows.
# The sources of each are named in the folder's CMakeLists.txt; the arrows between folders are checked by
# tools/arrows.py.

function(songbin_core folder)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_library(${folder}_core STATIC ${ARG_SOURCES})
    target_link_libraries(${folder}_core PUBLIC songbin_options Qt6::Core ${ARG_LINKS} PRIVATE songbin_hardening)
endfunction()

function(songbin_windows folder)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_library(${folder} STATIC ${ARG_SOURCES})
    target_link_libraries(${folder} PUBLIC songbin_options Qt6::Widgets ${folder}_core ${ARG_LINKS}
        PRIVATE songbin_hardening)
endfunction()
