# A room is a folder of src/ and one static library. What it links tells what it may need: a room without windows links
# QtCore alone. Rooms that hold rules and windows are two libraries, the rules' one with _core behind its name. tools/arrows.py
# checks the arrows between the rooms, and that each library links what its includes need and no more.
function(songbin_room room)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_library(${room} STATIC ${ARG_SOURCES})
    target_link_libraries(${room} PUBLIC songbin_options Qt6::Core ${ARG_LINKS} PRIVATE songbin_hardening)
    songbin_room_reads_precompiled(${room} ${ARG_LINKS})
endfunction()
