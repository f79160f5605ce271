#!/usr/bin/python3
"""Checks every #include and every library of a room against the arrows between the rooms of src/.

An arrow A -> B lets files of A include headers of B. Headers of the project are written "room/file.h". Findings go to
standard output; any finding is failure. An arrow that nothing needs any more is a finding too, so that the table below
stays a true map.
"""

import argparse
import sys
from dataclasses import dataclass
from pathlib import Path

from arrows_cycles import shortest_cycle, tangles
from arrows_house import FREE_FOLDERS, Sources
from arrows_links import Links
from arrows_reading import FAMILIES, Qt, default_qt_root, family_of

# Room | families of headers beside the C++ library | rooms it may include; a/x,y stands for a/x and a/y. Lower rooms first.
ROOMS = """
base                | QtCore                                         |
posix               | QtCore libc linux blkid                        | base
platform            | QtCore                                         | base
database/sql        | QtCore simd                                    |
database/connection | QtCore libc sqlite3                            | base posix platform database/sql
database/cursor     | QtCore libc sqlite3                            | base database/sql,connection
system/settings     | QtCore                                         | posix platform
system/drives       | QtCore libc linux                              | base posix platform system/settings
system/files        | QtCore libc linux                              | base posix platform system/drives
system/desktop      | QtCore QtGui QtWidgets QtPrintSupport libc xcb | base posix platform
system/mpris        | QtCore QtDBus libc                             | posix platform
system/media        | QtCore libc gstreamer libpulse                 | posix platform system/drives
toolkit/widgets     | QtCore QtGui QtWidgets QtSvg                   | base platform
toolkit/grids       | QtCore QtGui QtWidgets                         | platform database/cursor
toolkit/pages       | QtCore QtGui QtWidgets                         | base platform database/sql toolkit/widgets,grids
toolkit/richtext    | QtCore QtGui QtWidgets                         | base platform
archive/core        | QtCore                                         | base platform database/connection
archive/mainwindow  | QtCore QtGui QtWidgets                         | base platform toolkit/widgets,richtext archive/core
archive/scan        | QtCore QtGui QtWidgets                         | base platform database/connection toolkit/widgets,grids,pages archive/core
archive/browse      | QtCore QtWidgets                               | platform database/connection,cursor toolkit/widgets,grids,pages archive/core
archive/reports     | QtCore                                         | base database/sql,connection,cursor toolkit/pages archive/core
player/packedsets   | QtCore libc libarchive                         |
player/playlist     | QtCore                                         | base platform
player/playback     | QtCore                                         | base platform player/playlist
player/skin         | QtCore                                         | base
player/bitmaps      | QtCore QtGui                                   | base platform
player/displays     | QtCore                                         | player/skin
player/face         | QtCore QtGui QtWidgets                         | base player/playlist,playback,skin,bitmaps,displays
player/tonedeck     | QtCore QtGui QtWidgets                         | base platform toolkit/widgets player/packedsets,playlist,playback,skin,bitmaps,displays,face
app                 | QtCore QtGui QtWidgets                         | base posix platform system/settings,drives,files,desktop,mpris,media toolkit/widgets,grids archive/core,mainwindow,scan,browse,reports player/packedsets,playlist,playback,skin,face,tonedeck
"""

# What a wing may ever use; a row above that wants more is a finding. A wing may use itself.
WINGS = {
    "base": "",
    "posix": "base",
    "platform": "base",
    "database": "base posix platform",
    "system": "base posix platform",
    "toolkit": "base platform database",
    "archive": "base platform database toolkit",
    "player": "base platform toolkit",
    "app": "base posix platform system toolkit archive player",
}

# Rooms without windows: of Qt their rows and their libraries have QtCore alone.
PURE = """
base posix platform database/sql,connection,cursor system/settings,drives,files archive/core
player/packedsets,playlist,playback,skin,displays
"""


def names(text):
    """The names in a text, with a/x,y taken for a/x and a/y."""
    for word in text.split():
        wing, slash, rooms = word.rpartition("/")
        yield from (wing + slash + room for room in rooms.split(","))


@dataclass(frozen=True)
class Row:
    families: frozenset
    rooms: frozenset


class Table:
    """The arrows that may be, and what must hold of them whatever the includes are."""

    def __init__(self, rooms=ROOMS, wings=None, pure=PURE):
        self.rows = {}
        for line in filter(str.strip, rooms.splitlines()):
            room, families, targets = (part.strip() for part in line.split("|"))
            self.rows[room] = Row(frozenset(families.split()), frozenset(names(targets)))
        self.wings = WINGS if wings is None else wings
        self.pure = set(names(pure))

    def findings(self):
        for room, row in self.rows.items():
            yield from self.row_findings(room, row)
        for room in sorted(self.pure - set(self.rows)):
            yield f"tools/arrows.py: {room} is named as a room without windows and has no row"
        graph = {room: row.rooms for room, row in self.rows.items()}
        for members in tangles(graph):
            yield "tools/arrows.py: a cycle of rooms in the table: " + " -> ".join(shortest_cycle(graph, members))

    def row_findings(self, room, row):
        wing = room.split("/")[0]
        for target in sorted(row.rooms - set(self.rows)):
            yield f"tools/arrows.py: the row of {room} names {target}, which has no row"
        for target in sorted(row.rooms & set(self.rows)):
            if target.split("/")[0] not in (wing, *self.wings.get(wing, "").split()):
                yield f"tools/arrows.py: the row of {room} names {target}, which {wing}/ never uses"
        for family in sorted(row.families):
            if family not in FAMILIES and not family.startswith("Qt"):
                yield f"tools/arrows.py: the row of {room} names {family}, which is no family of headers"
            elif room in self.pure and family.startswith("Qt") and family != "QtCore":
                yield f"tools/arrows.py: the row of {room} names {family}, and the room has no windows"


class Checker:
    """The includes against the table."""

    def __init__(self, sources, qt, table):
        self.sources = sources
        self.qt = qt
        self.table = table

    def findings(self):
        for file in self.sources.strays:
            yield f"{file}: a source outside the rooms"
        for include in self.sources.includes:
            problem = self.problem(include)
            if problem:
                yield f"{include.file}:{include.line}: {problem}"
        yield from self.unneeded()
        yield from self.room_cycles()
        yield from self.component_cycles()

    def problem(self, include):
        if include.header is None:
            return f"cannot tell what is included: {include.raw}"
        if ".." in include.header.split("/"):
            return f'"{include.header}" leaves its room by ..'
        if include.target in self.table.rows or include.header.split("/")[0] in FREE_FOLDERS:
            return self.arrow_problem(include)
        if include.raw.startswith('"'):
            return f'"{include.header}" is not written as "room/file.h"'
        return self.foreign_problem(include)

    def arrow_problem(self, include):
        if include.target in (include.room, *self.table.rows[include.room].rooms):
            return None
        return f"no arrow {include.room} -> {include.target}: {include.header}"

    def foreign_problem(self, include):
        family = family_of(include.header, self.qt)
        if family is None:
            return f"<{include.header}> is of no family of headers that is known"
        if family and family not in self.table.rows[include.room].families:
            return f"<{include.header}> is of {family}, which {include.room} does not use"
        return None

    def unneeded(self):
        rooms = self.sources.room_arrows(self.table.rows)
        families = self.sources.family_arrows(self.table.rows, self.qt)
        inhabited = {include.room for include in self.sources.includes}
        for room, row in self.table.rows.items():
            if room not in inhabited:
                yield f"tools/arrows.py: {room} has a row and includes nothing"
            for target in sorted(row.rooms - set(rooms[room])):
                yield f"tools/arrows.py: no include needs the arrow {room} -> {target} any more"
            for family in sorted(row.families - set(families[room])):
                yield f"tools/arrows.py: no include of {room} needs {family} any more"

    def room_cycles(self):
        arrows = self.sources.room_arrows(self.table.rows)
        for members in tangles(arrows):
            yield told("a cycle of rooms", arrows, members)

    def component_cycles(self):
        arrows = self.sources.component_arrows()
        for members in tangles(arrows):
            yield told(f"a cycle among {len(members)} components", arrows, members)


def told(what, arrows, members):
    """The path of a cycle and, below it, the include lines that make it."""
    path = shortest_cycle(arrows, members)
    lines = [f"    {arrows[a][b]}" for a, b in zip(path, path[1:])]
    return "\n".join([f"{what}: {' -> '.join(path)}", *lines])


def all_findings(root, qt, table):
    sources = Sources(root, table.rows)
    yield from table.findings()
    yield from Checker(sources, qt, table).findings()
    yield from Links(sources, qt, table.pure).findings()


def main(arguments=None):
    parser = argparse.ArgumentParser(description="Checks includes and libraries against the arrows between the rooms.")
    parser.add_argument("root", nargs="?", type=Path, default=Path(__file__).resolve().parent.parent)
    parser.add_argument("--qt", type=Path, default=default_qt_root(), help="directory with QtCore/, QtGui/, ...")
    options = parser.parse_args(arguments)
    if options.qt is None or not (options.qt / "QtCore").is_dir():
        parser.error("the Qt headers were not found; name their directory with --qt")

    findings = list(all_findings(options.root, Qt(options.qt), Table()))
    for finding in findings:
        print(finding)
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
