"""Reads the includes of a source, and tells which family a header of others belongs to."""

import fnmatch
import re
from pathlib import Path

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

FAMILIES = {
    "libc": "dirent.h dlfcn.h fcntl.h iconv.h link.h poll.h pwd.h sys/* unistd.h",
    "linux": "linux/*",
    "simd": "emmintrin.h",
    "blkid": "blkid/*",
    "sqlite3": "sqlite3.h",
    "xcb": "xcb/*",
    "gstreamer": "gst/*",
    "libpulse": "pulse/*",
    "libarchive": "archive.h archive_entry.h",
}
FAMILY_PATTERNS = [(pattern, family) for family, patterns in FAMILIES.items() for pattern in patterns.split()]

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
    """The text with comments and raw strings blanked and its lines still in place."""

    def replace(match):
        if match.group("comment") is None and match.group("mark") is None:
            return match.group()
        return " " + "\n" * match.group().count("\n")

    joined = text.replace("\\\n", "  ")  # a spliced line moves the numbers below it; that is all
    return TOKENS.sub(replace, joined)


def includes(text):
    """Line number, the text between quotes or brackets (None when it is neither), and the text as it stands."""
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


def family_of(header, qt):
    """The Qt module or the library whose header this is; "" for the C++ library, None for one that is not known."""
    if header in STANDARD_HEADERS:
        return ""
    for pattern, family in FAMILY_PATTERNS:
        if fnmatch.fnmatchcase(header, pattern):
            return family
    return qt.module_of(header)
