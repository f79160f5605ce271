"""What the includes of src/ come to: rooms, components and who includes whom."""

from collections import defaultdict
from dataclasses import dataclass
from pathlib import Path

from arrows_reading import family_of, includes

HEADER_SUFFIXES = {".h", ".hpp"}
UNIT_SUFFIXES = {".cpp", ".cc", ".cxx"}  # what a library is built of
SUFFIXES = HEADER_SUFFIXES | UNIT_SUFFIXES | {".inc"}
FREE_FOLDERS = {"tests", "bench", "tools"}  # may include anything, and nothing of the program includes them
NO_SOURCES = {"build", "assets", "packaging", "cmake", "docs"}


@dataclass(frozen=True)
class Include:
    """One include line of a source in a room; header is None when what is included cannot be told."""

    file: Path  # relative to the root
    line: int
    header: str
    raw: str

    def __str__(self):
        return f"{self.file}:{self.line}: #include {self.raw}"

    @property
    def room(self):
        return room_of(self.file)

    @property
    def target(self):
        """The folder that the header is named in."""
        return self.header.rpartition("/")[0] if self.header else ""

    @property
    def generated(self):
        return self.header is not None and (self.header.endswith(".moc") or self.header.startswith("moc_"))


def room_of(file):
    """The folder below src/ that holds the file."""
    return file.parent.relative_to("src").as_posix()


class Sources:
    """The sources below a root, each of them read once."""

    def __init__(self, root, rooms):
        self.root = root
        files = sorted(self.every_source())
        self.strays = [f for f in files if not self.has_place(f, rooms)]
        self.files = [f for f in files if f.parts[0] == "src" and f not in self.strays]
        self.headers = {f.with_suffix("") for f in self.files if f.suffix in HEADER_SUFFIXES}
        self.includes = [include for file in self.files for include in self.read(file)]

    def every_source(self):
        for entry in self.root.iterdir():
            if entry.name.startswith(".") or entry.name in NO_SOURCES:
                continue
            files = entry.rglob("*") if entry.is_dir() else [entry]
            yield from (f.relative_to(self.root) for f in files if f.suffix in SUFFIXES and f.is_file())

    @staticmethod
    def has_place(file, rooms):
        if file.parts[0] in FREE_FOLDERS and len(file.parts) > 1:
            return True
        return file.parts[0] == "src" and room_of(file) in rooms

    def read(self, file):
        text = (self.root / file).read_text(encoding="utf-8", errors="replace")
        return [include for entry in includes(text) if not (include := Include(file, *entry)).generated]

    def component(self, file):
        """A header with its sources: x_y.cpp is of x.h unless it has a header of its own."""
        own = stem = file.with_suffix("")
        while stem not in self.headers and "_" in stem.name:
            stem = stem.with_name(stem.name.rpartition("_")[0])
        return (stem if stem in self.headers else own).relative_to("src").as_posix()

    def component_arrows(self):
        """Component -> component -> the first include line that makes the arrow."""
        arrows = defaultdict(dict)
        known = {self.component(file) for file in self.files}
        for include in self.includes:
            source = self.component(include.file)
            target = self.component(Path("src") / include.header) if include.header else None
            if target in known and target != source:
                arrows[source].setdefault(target, include)
        return arrows

    def room_arrows(self, rooms):
        """Room -> room -> the first include line that makes the arrow."""
        arrows = defaultdict(dict)
        for include in self.includes:
            if include.target in rooms and include.target != include.room:
                arrows[include.room].setdefault(include.target, include)
        return arrows

    def family_arrows(self, rooms, qt):
        """Room -> family of headers -> the first include line of one."""
        arrows = defaultdict(dict)
        for include in self.includes:
            if include.header and include.raw.startswith("<") and include.target not in rooms:
                arrows[include.room].setdefault(family_of(include.header, qt), include)
        return arrows
