#!/usr/bin/python3
"""Checks every #include against the arrows between the folders.

An arrow A -> B lets files of A include headers of B. Only platform/ knows the operating system: every
other folder includes the C++ library, the Qt modules listed for it here, and project headers. Project
headers are written "folder/file.h". Findings go to standard output, one a line; any finding is failure.
"""

import argparse
import re
import sys
from pathlib import Path

ARROWS = {
    "base": set(),
    "platform": {"base"},
    "shell": {"platform", "base"},
    "scan": {"shell", "platform", "base"},
    "browse": {"shell", "platform", "base"},
    "player": {"platform", "base"},
    "skin": {"player", "platform", "base"},
    "app": {"shell", "scan", "browse", "player", "skin", "platform", "base"},
}
FREE_FOLDERS = {"tests", "bench"}  # may include anything, and nothing above includes them
PROJECT_FOLDERS = set(ARROWS) | FREE_FOLDERS
NO_SOURCES = {"build", "assets", "packaging", "cmake", "tools"}

QT_MODULES = {"base": {"QtCore"}}
WINDOW_MODULES = {"QtCore", "QtGui", "QtWidgets", "QtSvg", "QtSvgWidgets"}
SYSTEM_FOLDER = "platform"

STANDARD_HEADERS = set("""
    algorithm any array atomic barrier bit bitset charconv chrono codecvt compare complex concepts
    condition_variable coroutine deque exception execution filesystem forward_list fstream functional
    future initializer_list iomanip ios iosfwd iostream istream iterator latch limits list locale map
    memory memory_resource mutex new numbers numeric optional ostream queue random ranges ratio regex
    scoped_allocator semaphore set shared_mutex source_location span sstream stack stdexcept stop_token
    streambuf string string_view syncstream system_error thread tuple type_traits typeindex typeinfo
    unordered_map unordered_set utility valarray variant vector version
    cassert cctype cerrno cfenv cfloat cinttypes climits clocale cmath csetjmp csignal cstdarg cstddef
    cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype
    assert.h ctype.h errno.h fenv.h float.h inttypes.h limits.h locale.h math.h setjmp.h signal.h
    stdarg.h stddef.h stdint.h stdio.h stdlib.h string.h time.h uchar.h wchar.h wctype.h
""".split())

SUFFIXES = {".h", ".hpp", ".cpp", ".cc", ".cxx", ".inc"}

# Literals are matched so that a comment mark inside one is not taken for a comment.
TOKENS = re.compile(
    r'R"(?P<mark>[^\s()\\]{0,16})\(.*?\)(?P=mark)"'
    r'|"(?:\\.|[^"\\\n])*"'
    r"|(?<![0-9a-zA-Z_])'(?:\\.|[^'\\\n])*'"
    r"|(?P<comment>//[^\n]*|/\*.*?\*/)",
    re.DOTALL,
)
INCLUDE = re.compile(r"^[ \t]*#[ \t]*(?:include|include_next|import)\b[ \t]*(?P<what>[^\n]*)", re.MULTILINE)


def without_comments(text):
    """The text with comments blanked and its lines still in place."""

    def replace(match):
        if match.group("comment") is None and match.group("mark") is None:
            return match.group()
        return " " + "\n" * match.group().count("\n")

    joined = text.replace("\\\n", "  ")  # a spliced line moves the numbers below it; that is all
    return TOKENS.sub(replace, joined)


def includes(text):
    """Pairs of line number and the text between quotes or brackets, or the raw text when it is neither."""
    plain = without_comments(text)
    for match in INCLUDE.finditer(plain):
        line = plain.count("\n", 0, match.start()) + 1
        what = match.group("what").strip()
        written = re.match(r'"([^"]*)"|<([^>]*)>', what)
        yield line, (written.group(1) or written.group(2) or "") if written else None, what


class Qt:
    """Which Qt module a header belongs to, by looking where it is installed."""

    def __init__(self, root):
        self.modules = {d.name: d for d in sorted(root.iterdir()) if d.is_dir() and d.name.startswith("Qt")}

    def module_of(self, header):
        first = header.split("/")[0]
        if first in self.modules:
            return first
        for name, directory in self.modules.items():
            if (directory / header).is_file():
                return name
        return None


def default_qt_root():
    for root in sorted(Path("/usr/include").glob("*/qt6")):
        if (root / "QtCore").is_dir():
            return root
    return None


class Checker:
    def __init__(self, root, qt):
        self.root = root
        self.qt = qt
        self.findings = []

    def run(self):
        for path in sorted(self.sources()):
            self.check_file(path)
        return self.findings

    def sources(self):
        for entry in self.root.iterdir():
            if entry.name.startswith(".") or entry.name in NO_SOURCES:
                continue
            files = entry.rglob("*") if entry.is_dir() else [entry]
            yield from (f for f in files if f.suffix in SUFFIXES and f.is_file())

    def check_file(self, path):
        relative = path.relative_to(self.root)
        folder = relative.parts[0]
        if len(relative.parts) == 1 or folder not in PROJECT_FOLDERS:
            self.findings.append(f"{relative}: a source outside the folders that have arrows")
            return
        if folder in FREE_FOLDERS:
            return
        for line, header, raw in includes(path.read_text(encoding="utf-8", errors="replace")):
            problem = self.problem(folder, relative, header, raw)
            if problem:
                self.findings.append(f"{relative}:{line}: {problem}")

    def problem(self, folder, relative, header, raw):
        if header is None:
            return f"cannot tell what is included: {raw}"
        if header.endswith(".moc") or header.startswith("moc_"):
            return None  # generated for this very file
        first = header.split("/")[0]
        if first in PROJECT_FOLDERS:
            return self.arrow_problem(folder, first, header)
        if raw.startswith('"'):
            return f'"{header}" is not written as "folder/file.h"'
        return self.foreign_problem(folder, header)

    @staticmethod
    def arrow_problem(folder, target, header):
        if ".." in header.split("/"):
            return f'"{header}" leaves its folder by ..'
        if target == folder or target in ARROWS[folder]:
            return None
        return f"no arrow {folder} -> {target}: {header}"

    def foreign_problem(self, folder, header):
        if folder == SYSTEM_FOLDER or header in STANDARD_HEADERS:
            return None
        module = self.qt.module_of(header)
        if module is None:
            return f"<{header}> is of the operating system or a library: only platform/ includes those"
        if module not in QT_MODULES.get(folder, WINDOW_MODULES):
            return f"<{header}> is of {module}, which {folder}/ does not use"
        return None


def main(arguments=None):
    parser = argparse.ArgumentParser(description="Checks the includes against the arrows between the folders.")
    parser.add_argument("root", nargs="?", type=Path, default=Path(__file__).resolve().parent.parent)
    parser.add_argument("--qt", type=Path, default=default_qt_root(), help="directory with QtCore/, QtGui/, ...")
    options = parser.parse_args(arguments)
    if options.qt is None or not (options.qt / "QtCore").is_dir():
        parser.error("the Qt headers were not found; name their directory with --qt")

    checker = Checker(options.root, Qt(options.qt))
    findings = checker.run()
    for finding in findings:
        print(finding)
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
