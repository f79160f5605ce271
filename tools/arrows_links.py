"""Checks what the library of each room links against what its sources include.

Static libraries hide a link that is missing as long as some program has it from elsewhere, so the build alone does not tell.
"""

import re
from collections import defaultdict
from dataclasses import dataclass, field
from pathlib import PurePath

from arrows_cycles import reached
from arrows_house import UNIT_SUFFIXES, room_of
from arrows_reading import family_of

COMMAND = re.compile(r"(\w+)\s*\(([^()]*)\)")
KEYWORDS = {"PUBLIC", "PRIVATE", "INTERFACE", "STATIC", "MODULE", "SOURCES", "LINKS"}

# The target that stands for a family of headers. The C library needs none, libarchive is loaded when it is needed.
TARGETS = {
    "QtCore": "Qt6::Core",
    "QtGui": "Qt6::Gui",
    "QtWidgets": "Qt6::Widgets",
    "QtSvg": "Qt6::Svg",
    "QtPrintSupport": "Qt6::PrintSupport",
    "QtDBus": "Qt6::DBus",
    "sqlite3": "SQLite::SQLite3",
    "blkid": "PkgConfig::BLKID",
    "xcb": "PkgConfig::XCB",
    "gstreamer": "PkgConfig::GSTREAMER",
    "libpulse": "PkgConfig::PULSE",
}
QT_LINKS = {
    "Qt6::Gui": {"Qt6::Core"},
    "Qt6::DBus": {"Qt6::Core"},
    "Qt6::Widgets": {"Qt6::Gui"},
    "Qt6::Svg": {"Qt6::Gui"},
    "Qt6::PrintSupport": {"Qt6::Widgets"},
}


@dataclass
class Library:
    room: str
    sources: set = field(default_factory=set)
    links: set = field(default_factory=set)
    linkable: bool = True  # a program or a module that is loaded is not linked by others

    def take(self, command, words, folder):
        """The words of one command that names this library."""
        if command == "target_link_libraries":
            self.links |= set(words) - KEYWORDS
            return
        cut = words.index("LINKS") if "LINKS" in words else len(words)
        self.linkable = command != "add_executable" and "MODULE" not in words
        self.sources |= {folder / word for word in words[:cut] if PurePath(word).suffix in UNIT_SUFFIXES}
        self.links |= set(words[cut + 1:])
        if command == "songbin_room":
            self.links.add("Qt6::Core")


def read_libraries(root):
    """The libraries and programs that the CMakeLists.txt of the rooms make."""
    libraries = {}
    for path in sorted((root / "src").rglob("CMakeLists.txt")):
        folder = path.parent.relative_to(root)
        text = re.sub(r"#[^\n]*", "", path.read_text(encoding="utf-8"))
        for command, rest in COMMAND.findall(text):
            if command in ("songbin_room", "add_library", "add_executable", "target_link_libraries"):
                name, *words = rest.split()
                libraries.setdefault(name, Library(room_of(folder / "x"))).take(command, words, folder)
    return libraries


class Links:
    def __init__(self, sources, qt, pure):
        self.sources = sources
        self.qt = qt
        self.pure = pure
        self.libraries = read_libraries(sources.root)
        self.graph = QT_LINKS | {name: library.links for name, library in self.libraries.items()}
        self.includes = defaultdict(list)
        for include in sources.includes:
            self.includes[include.file].append(include)
        self.owners = defaultdict(set)
        for name, library in self.libraries.items():
            for file in library.sources if library.linkable else ():
                self.owners[sources.component(file)].add(name)

    def findings(self):
        listed = set().union(*(library.sources for library in self.libraries.values()))
        for file in self.sources.files:
            if file.suffix in UNIT_SUFFIXES and file not in listed:
                yield f"{file}: is in no library"
        for name, library in sorted(self.libraries.items()):
            yield from self.library_findings(name, library)

    def library_findings(self, name, library):
        where = f"src/{library.room}/CMakeLists.txt: {name}"
        linked = reached(self.graph, name)
        needs = self.needs(name, library)
        for candidates, include in needs.items():
            if not candidates & linked:
                yield f"{where} does not link {' or '.join(sorted(candidates))}, which it needs for\n    {include}"
        judged = (set(self.libraries) | set(TARGETS.values())) - {"Qt6::Core"}
        for link in sorted(library.links & judged - set().union(*needs)):
            yield f"{where} links {link}, which none of its includes needs"
        if library.room in self.pure or name.endswith("_core"):
            for link in sorted(linked & set(QT_LINKS)):
                yield f"{where} has no windows and links {link}, itself or through others"

    def needs(self, name, library):
        """Sets of targets of which one has to be linked, each with an include line that needs it."""
        needs, waiting = {}, sorted(library.sources) or self.headers_of(library.room)
        seen = set(waiting)
        while waiting:
            for include in self.includes[waiting.pop()]:
                targets = self.targets_of(include, library.room)
                if targets and name not in targets:
                    needs.setdefault(targets, include)
                header = PurePath("src", include.header or "")
                if header not in seen and (name in targets or self.sources.component(header) not in self.owners):
                    seen.add(header)
                    waiting.append(header)
        return needs

    def headers_of(self, room):
        """What a library without sources consists of."""
        return [file for file in self.sources.files if room_of(file) == room]

    def targets_of(self, include, room):
        """The libraries of which any holds what is included; a header without sources comes with any of its room's."""
        component = include.target and self.sources.component(PurePath("src", include.header))
        if component in self.owners:
            return frozenset(self.owners[component])
        homes = {n for n, l in self.libraries.items() if l.linkable and l.room == include.target != room}
        family = TARGETS.get(family_of(include.header, self.qt)) if include.raw.startswith("<") else None
        return frozenset(homes or {family} - {None})
