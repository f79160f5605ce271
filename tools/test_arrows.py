"""Shows that arrows.py catches each kind of finding it is there for, and lets the good ones pass."""

import contextlib
import io
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))
import arrows
from arrows_cycles import shortest_cycle, tangles
from arrows_house import Sources
from arrows_links import Links
from arrows_reading import Qt, default_qt_root

REPOSITORY = Path(__file__).resolve().parent.parent
QT_HEADERS = [
    "QtCore/QString",
    "QtCore/qglobal.h",
    "QtGui/QImage",
    "QtWidgets/QWidget",
    "QtPrintSupport/QPrinter",
    "QtDBus/QDBusConnection",
]
ROOMS = """
base          | QtCore         |
posix         | QtCore libc    | base
archive/core  | QtCore         | base
archive/scan  | QtCore QtGui   | base archive/core
"""
WINGS = {"base": "", "posix": "base", "archive": "base"}
PURE = "base posix archive/core"

# What makes every arrow and every family of ROOMS needed.
FULL = {
    "src/base/b.h": "#include <QString>\n",
    "src/posix/p.cpp": '#include "base/b.h"\n#include <QString>\n#include <unistd.h>\n',
    "src/archive/core/c.h": '#include "base/b.h"\n#include <QString>\n',
    "src/archive/scan/s.cpp": '#include "archive/core/c.h"\n#include "base/b.h"\n#include <QString>\n#include <QImage>\n',
}


class Tree(unittest.TestCase):
    """A made-up tree with the rooms above."""

    def setUp(self):
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        self.root = Path(holder.name) / "tree"
        self.qt = Path(holder.name) / "qt6"
        self.root.mkdir()
        for header in QT_HEADERS:
            self.put(self.qt / header, "")
        self.put_all(FULL)

    @staticmethod
    def put(path, text):
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def put_all(self, files):
        for name, text in files.items():
            self.put(self.root / name, text)

    def table(self, rooms=ROOMS, pure=PURE):
        return arrows.Table(rooms, WINGS, pure)

    def findings(self, files=None, **table):
        self.put_all(files or {})
        table = self.table(**table)
        checker = arrows.Checker(Sources(self.root, table.rows), Qt(self.qt), table)
        return [*table.findings(), *checker.findings()]

    def assert_good(self, room, text, **table):
        self.assertEqual(self.findings({f"src/{room}/a.cpp": text}, **table), [])

    def assert_caught(self, room, text, part, **table):
        found = self.findings({f"src/{room}/a.cpp": text}, **table)
        self.assertEqual(len(found), 1, found)
        self.assertIn(part, found[0])


class ArrowsTest(Tree):
    def test_the_full_tree_is_good(self):
        self.assertEqual(self.findings(), [])

    def test_every_pair_of_rooms(self):
        allowed = {
            ("posix", "base"), ("archive/core", "base"), ("archive/scan", "base"), ("archive/scan", "archive/core"),
        }
        rooms = ["base", "posix", "archive/core", "archive/scan"]
        for source in rooms:
            for target in rooms:
                good = source == target or (source, target) in allowed
                with self.subTest(source=source, target=target):
                    found = self.findings({f"src/{source}/a.cpp": f'#include "{target}/x.h"\n'})
                    line = f"src/{source}/a.cpp:1: no arrow {source} -> {target}: {target}/x.h"
                    self.assertEqual(line not in found, good, found)
                (self.root / "src" / source / "a.cpp").unlink()

    def test_program_must_not_include_what_is_round_it(self):
        for folder in ["tests/support", "bench", "tools/skins"]:
            with self.subTest(folder=folder):
                self.assert_caught("archive/scan", f'#include "{folder}/x.h"\n', f"no arrow archive/scan -> {folder}")

    def test_what_is_round_the_program_includes_anything(self):
        text = '#include "archive/scan/x.h"\n#include "posix/x.h"\n#include <sqlite3.h>\n#include "near.h"\n'
        self.assertEqual(self.findings({"tests/base/a.cpp": text, "bench/a.cpp": text, "tools/skins/a.cpp": text}), [])

    def test_project_header_in_angle_brackets_is_still_an_arrow(self):
        self.assert_caught("archive/core", "#include <posix/x.h>\n", "no arrow archive/core -> posix")

    def test_headers_are_read_too(self):
        found = self.findings({"src/archive/core/a.h": '#include "posix/x.h"\n'})
        self.assertEqual(found, ["src/archive/core/a.h:1: no arrow archive/core -> posix: posix/x.h"])

    # How includes are written

    def test_header_without_its_room(self):
        for header in ["near.h", "archive/near.h", "scan/near.h", "./base/b.h", "src/base/b.h", "base/deep/b.h"]:
            with self.subTest(header=header):
                self.assert_caught("archive/scan", f'#include "{header}"\n', 'not written as "room/file.h"')

    def test_parent_directory(self):
        for header in ["../core/c.h", "archive/scan/../core/c.h", "base/../base/b.h"]:
            with self.subTest(header=header):
                self.assert_caught("archive/scan", f'#include "{header}"\n', "leaves its room")

    def test_macro_for_a_header(self):
        self.assert_caught("base", "#include HEADER\n", "cannot tell")

    def test_spaces_and_spliced_lines(self):
        self.assert_caught("archive/core", '  #  include\t"posix/x.h"\n', "no arrow archive/core -> posix")
        self.assert_caught("archive/core", '#include \\\n "posix/x.h"\n', "no arrow archive/core -> posix")

    def test_comments_do_not_count(self):
        self.assert_good("archive/core", '// #include "posix/x.h"\n/*\n#include "posix/x.h"\n*/\n')

    def test_comment_marks_inside_literals_hide_nothing(self):
        for literal in ['"/*"', 'R"x(/*)x"', "'\"'", "1'000 + \"//\"", '"\\"/*"']:
            with self.subTest(literal=literal):
                text = f'auto x = {literal};\n#include "posix/x.h"\nauto y = "*/";\n'
                self.assert_caught("archive/core", text, "a.cpp:2: no arrow archive/core -> posix")

    def test_include_inside_a_raw_string_does_not_count(self):
        self.assert_good("archive/core", 'auto x = R"(\n#include "posix/x.h"\n)";\n')

    def test_generated_moc_file(self):
        self.assert_good("archive/core", '#include "a.moc"\n#include "moc_a.cpp"\n')

    # Headers of others

    def test_families_that_a_room_does_not_use(self):
        families = {
            "unistd.h": "libc", "sys/stat.h": "libc", "fcntl.h": "libc", "linux/fs.h": "linux", "emmintrin.h": "simd",
            "sqlite3.h": "sqlite3", "blkid/blkid.h": "blkid", "gst/gst.h": "gstreamer", "xcb/xcb.h": "xcb",
            "pulse/pulseaudio.h": "libpulse", "archive.h": "libarchive", "QWidget": "QtWidgets", "QImage": "QtGui",
            "QtGui/QImage": "QtGui", "QtPrintSupport/QPrinter": "QtPrintSupport", "QDBusConnection": "QtDBus",
        }
        for header, family in families.items():
            with self.subTest(header=header):
                self.assert_caught("base", f"#include <{header}>\n", f"<{header}> is of {family}, which base does not use")

    def test_family_that_is_not_known(self):
        self.assert_caught("posix", "#include <X11/Xlib.h>\n", "no family of headers that is known")

    def test_families_of_the_row(self):
        self.assert_good("base", "#include <string>\n#include <cstring>\n#include <QtCore/QString>\n#include <qglobal.h>\n")
        self.assert_good("posix", "#include <unistd.h>\n#include <sys/stat.h>\n#include <QString>\n")

    # Where sources may lie

    def test_sources_outside_the_rooms(self):
        for file in ["stray.cpp", "extra/a.cpp", "src/a.cpp", "src/archive/a.h", "src/cellar/a.cpp", "src/base/deep/a.h"]:
            with self.subTest(file=file):
                self.assertEqual(self.findings({file: ""}), [f"{file}: a source outside the rooms"])
                (self.root / file).unlink()

    def test_build_trees_are_left_out(self):
        self.assertEqual(self.findings({"build/dev/a.cpp": '#include "x.h"\n'}), [])


class TableTest(Tree):
    def test_arrow_that_nothing_needs(self):
        found = self.findings({"src/posix/p.cpp": "#include <QString>\n#include <unistd.h>\n"})
        self.assertEqual(found, ["tools/arrows.py: no include needs the arrow posix -> base any more"])

    def test_family_that_nothing_needs(self):
        found = self.findings({"src/posix/p.cpp": '#include "base/b.h"\n#include <QString>\n'})
        self.assertEqual(found, ["tools/arrows.py: no include of posix needs libc any more"])

    def test_room_that_is_gone(self):
        found = self.findings(rooms=ROOMS + "archive/attic | |\n")
        self.assertEqual(found, ["tools/arrows.py: archive/attic has a row and includes nothing"])

    def table_findings(self, rooms, pure=""):
        return list(self.table(rooms, pure).findings())

    def test_cycle_of_rooms_in_the_table(self):
        found = self.table_findings("base | | archive/scan\narchive/core | | base\narchive/scan | | archive/core\n")
        self.assertIn("tools/arrows.py: a cycle of rooms in the table: "
                      "archive/core -> base -> archive/scan -> archive/core", found)

    def test_row_that_its_wing_forbids(self):
        found = self.table_findings("posix | |\narchive/core | | posix\n")
        self.assertEqual(found, ["tools/arrows.py: the row of archive/core names posix, which archive/ never uses"])

    def test_row_with_names_that_are_nothing(self):
        self.assertIn("names cellar, which has no row", self.table_findings("base | | cellar\n")[0])
        self.assertIn("names libxyz, which is no family", self.table_findings("base | libxyz |\n")[0])

    def test_windows_in_a_room_without_windows(self):
        self.assertEqual(self.table_findings("base | QtCore QtGui |\n"), [])
        found = self.table_findings("base | QtCore QtGui |\n", pure="base")
        self.assertEqual(found, ["tools/arrows.py: the row of base names QtGui, and the room has no windows"])
        self.assertIn("attic is named as a room without windows", self.table_findings("base | |\n", pure="attic")[0])

    def test_short_names(self):
        self.assertEqual(list(arrows.names("base archive/core,scan")), ["base", "archive/core", "archive/scan"])


class CyclesTest(Tree):
    def test_paths(self):
        graph = {"a": {"b", "c"}, "b": {"c"}, "c": {"d"}, "d": {"b"}, "e": {"e"}, "f": {"a"}}
        self.assertEqual(tangles(graph), [frozenset("bcd"), frozenset("e")])
        self.assertEqual(shortest_cycle(graph, frozenset("bcd")), ["b", "c", "d", "b"])
        self.assertEqual(tangles({"a": {"b"}, "b": {"c"}}), [])

    def test_cycle_of_rooms(self):
        found = self.findings({"src/base/x.cpp": '\n#include "archive/scan/s.h"\n'})
        self.assertIn("a cycle of rooms: archive/scan -> base -> archive/scan\n"
                      '    src/archive/scan/s.cpp:2: #include "base/b.h"\n'
                      '    src/base/x.cpp:2: #include "archive/scan/s.h"', found)

    def test_cycle_of_components(self):
        files = {
            "src/base/x.h": "",
            "src/base/x.cpp": '#include "base/y.h"\n',
            "src/base/y.h": "",
            "src/base/y_part.cpp": '\n\n#include "base/z.h"\n',
            "src/base/z.h": '#include "base/x.h"\n',
        }
        self.assertEqual(self.findings(files), [
            "a cycle among 3 components: base/x -> base/y -> base/z -> base/x\n"
            '    src/base/x.cpp:1: #include "base/y.h"\n'
            '    src/base/y_part.cpp:3: #include "base/z.h"\n'
            '    src/base/z.h:1: #include "base/x.h"'])

    def test_underscore_with_a_header_of_its_own_is_another_component(self):
        files = {
            "src/base/x.h": "",
            "src/base/x.cpp": '#include "base/x_gst.h"\n',
            "src/base/x_gst.h": '#include "base/x.h"\n',
            "src/base/x_gst_sound.cpp": '#include "base/x_gst.h"\n',
        }
        self.assertIn("base/x -> base/x_gst -> base/x", self.findings(files)[0])
        (self.root / "src/base/x.cpp").unlink()
        self.assertEqual(self.findings(), [])


class LinksTest(Tree):
    BASE = "songbin_room(base SOURCES b.cpp)\n"
    LOW = {"src/base/b.cpp": '#include "base/b.h"\n', "src/base/CMakeLists.txt": BASE}

    def links(self, files, pure=PURE):
        self.put_all(self.LOW | {"src/posix/CMakeLists.txt": "songbin_room(posix SOURCES p.cpp LINKS base)\n",
                                 "src/archive/core/CMakeLists.txt": "add_library(archive_core INTERFACE)\n"
                                                                    "target_link_libraries(archive_core INTERFACE base)\n",
                                 "src/archive/scan/CMakeLists.txt":
                                     "songbin_room(archive_scan SOURCES s.cpp LINKS archive_core Qt6::Gui)\n"} | files)
        rooms = self.table().rows
        return list(Links(Sources(self.root, rooms), Qt(self.qt), set(arrows.names(pure))).findings())

    def test_the_full_tree_is_good(self):
        self.assertEqual(self.links({}), [])

    def test_room_that_is_not_linked(self):
        found = self.links({"src/posix/CMakeLists.txt": "songbin_room(posix SOURCES p.cpp # LINKS base\n)\n"})
        self.assertEqual(found, ["src/posix/CMakeLists.txt: posix does not link base, which it needs for\n"
                                 '    src/posix/p.cpp:1: #include "base/b.h"'])

    def test_headers_of_a_room_without_sources(self):
        text = "songbin_room(archive_scan SOURCES s.cpp LINKS base Qt6::Gui)\n"
        found = self.links({"src/archive/scan/CMakeLists.txt": text})
        self.assertEqual(len(found), 1, found)
        self.assertIn("archive_scan does not link archive_core", found[0])

    def test_library_without_sources(self):
        found = self.links({"src/archive/core/CMakeLists.txt": "add_library(archive_core INTERFACE)\n"})
        self.assertIn("archive_core does not link base", found[0])

    def test_header_without_sources_asks_for_what_it_includes(self):
        files = {
            "src/posix/p.cpp": '#include "posix/h.h"\n',
            "src/posix/h.h": '#include "base/b.h"\n',
            "src/posix/CMakeLists.txt": "songbin_room(posix SOURCES p.cpp)\n",
        }
        self.assertIn("src/posix/h.h:1: #include", self.links(files)[0])

    def test_link_that_nothing_needs(self):
        found = self.links({"src/posix/CMakeLists.txt": "songbin_room(posix SOURCES p.cpp LINKS base archive_core Qt6::DBus)\n"},
                           pure="")
        self.assertEqual(found, [f"src/posix/CMakeLists.txt: posix links {name}, which none of its includes needs"
                                 for name in ("Qt6::DBus", "archive_core")])

    def test_library_of_others_that_is_not_linked(self):
        text = "songbin_room(archive_scan SOURCES s.cpp LINKS archive_core)\n"
        self.assertIn("archive_scan does not link Qt6::Gui", self.links({"src/archive/scan/CMakeLists.txt": text})[0])

    def test_two_libraries_in_a_room(self):
        text = ("songbin_room(archive_scan_core SOURCES t.cpp LINKS base)\n"
                "songbin_room(archive_scan SOURCES s.cpp LINKS archive_core Qt6::Gui)\n")
        files = {
            "src/archive/scan/t.h": "",
            "src/archive/scan/t.cpp": '#include "base/b.h"\n',
            "src/archive/scan/s.cpp": FULL["src/archive/scan/s.cpp"] + '#include "archive/scan/t.h"\n',
            "src/archive/scan/CMakeLists.txt": text,
        }
        found = self.links(files)
        self.assertEqual(len(found), 1, found)
        self.assertIn("archive_scan does not link archive_scan_core", found[0])
        files["src/archive/scan/CMakeLists.txt"] = text.replace("LINKS archive_core", "LINKS archive_core archive_scan_core")
        self.assertEqual(self.links(files), [])

    def test_windows_through_others(self):
        text = ("songbin_room(archive_scan_core SOURCES t.cpp LINKS archive_scan)\n"
                "songbin_room(archive_scan SOURCES s.cpp LINKS archive_core Qt6::Widgets)\n")
        files = {
            "src/archive/scan/s.h": "",
            "src/archive/scan/t.cpp": '#include "archive/scan/s.h"\n',
            "src/archive/scan/CMakeLists.txt": text,
        }
        found = "\n".join(self.links(files))
        self.assertIn("archive_scan_core has no windows and links Qt6::Gui, itself or through others", found)
        self.assertIn("archive_scan_core has no windows and links Qt6::Widgets, itself or through others", found)
        self.assertNotIn("archive_scan has no windows", found)

    def test_windows_in_a_room_without_windows(self):
        found = self.links({"src/posix/CMakeLists.txt": "songbin_room(posix SOURCES p.cpp LINKS base Qt6::Svg)\n"})
        self.assertIn("src/posix/CMakeLists.txt: posix has no windows and links Qt6::Gui, itself or through others", found)

    def test_source_in_no_library(self):
        self.assertEqual(self.links({"src/posix/lost.cpp": ""}), ["src/posix/lost.cpp: is in no library"])

    def test_module_is_loaded_and_not_linked(self):
        files = {
            "src/posix/m.h": "",
            "src/posix/m.cpp": '#include "posix/m.h"\n',
            "src/posix/p.cpp": FULL["src/posix/p.cpp"] + '#include "posix/m.h"\n',
            "src/posix/CMakeLists.txt": "songbin_room(posix SOURCES p.cpp LINKS base)\nadd_library(plug MODULE m.cpp)\n",
        }
        self.assertEqual(self.links(files), [])


class CommandTest(Tree):
    def test_exit_status_and_output(self):
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            status = arrows.main([str(self.root), "--qt", str(self.qt)])
        self.assertEqual(status, 1)
        self.assertIn("tools/arrows.py: platform has a row and includes nothing\n", output.getvalue())

    def test_missing_qt_headers_are_an_error(self):
        with contextlib.redirect_stderr(io.StringIO()), self.assertRaises(SystemExit) as stop:
            arrows.main([str(self.root), "--qt", str(self.root)])
        self.assertNotEqual(stop.exception.code, 0)


class RepositoryTest(unittest.TestCase):
    """The real tree, and what is found when an arrow of it is broken."""

    @classmethod
    def setUpClass(cls):
        cls.sources = Sources(REPOSITORY, arrows.Table().rows)
        cls.qt = Qt(default_qt_root())

    def test_it_holds(self):
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            status = arrows.main([])
        self.assertEqual((status, output.getvalue()), (0, ""))

    def test_rows_stand_above_what_includes_them(self):
        seen = []
        for room, row in arrows.Table().rows.items():
            self.assertEqual(row.rooms - set(seen), set(), room)
            seen.append(room)

    def test_each_arrow_that_is_taken_away_is_missed(self):
        for room, row in arrows.Table().rows.items():
            for target in sorted(row.rooms):
                with self.subTest(room=room, target=target):
                    table = arrows.Table()
                    table.rows[room] = arrows.Row(row.families, row.rooms - {target})
                    self.assertTrue(any(f"no arrow {room} -> {target}: " in f for f in self.problems(table)))

    def problems(self, table):
        checker = arrows.Checker(self.sources, self.qt, table)
        return [checker.problem(include) or "" for include in self.sources.includes]


if __name__ == "__main__":
    unittest.main()
