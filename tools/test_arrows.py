"""Shows that arrows.py catches each kind of include it is there for, and lets the good ones pass."""

import contextlib
import io
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))
import arrows

QT_HEADERS = [
    "QtCore/QString",
    "QtCore/qglobal.h",
    "QtGui/QImage",
    "QtWidgets/QWidget",
    "QtPrintSupport/QPrinter",
    "QtDBus/QDBusConnection",
]


class ArrowsTest(unittest.TestCase):
    def setUp(self):
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        self.root = Path(holder.name) / "tree"
        self.qt = Path(holder.name) / "qt6"
        self.root.mkdir()
        for header in QT_HEADERS:
            self.put(self.qt / header, "")

    @staticmethod
    def put(path, text):
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def findings(self, **files):
        """What is found when the tree holds these files; __ in a name stands for / and the suffix is .cpp."""
        for name, text in files.items():
            self.put(self.root / (name.replace("__", "/") + ".cpp"), text)
        return arrows.Checker(self.root, arrows.Qt(self.qt)).run()

    def assert_good(self, folder, text):
        self.assertEqual(self.findings(**{folder + "__a": text}), [])

    def assert_caught(self, folder, text, part):
        found = self.findings(**{folder + "__a": text})
        self.assertEqual(len(found), 1, found)
        self.assertIn(part, found[0])

    # Arrows between folders

    def test_every_pair_of_folders(self):
        allowed = {
            ("platform", "base"), ("shell", "platform"), ("shell", "base"),
            ("scan", "shell"), ("scan", "platform"), ("scan", "base"),
            ("browse", "shell"), ("browse", "platform"), ("browse", "base"),
            ("player", "platform"), ("player", "base"),
            ("skin", "player"), ("skin", "platform"), ("skin", "base"),
        }
        program = ["base", "platform", "shell", "scan", "browse", "player", "skin", "app"]
        for source in program:
            for target in program:
                good = source in (target, "app") or (source, target) in allowed
                with self.subTest(source=source, target=target):
                    found = self.findings(**{source + "__a": f'#include "{target}/x.h"\n'})
                    self.assertEqual(found == [], good, found)
                (self.root / source / "a.cpp").unlink()

    def test_program_must_not_include_tests(self):
        self.assert_caught("app", '#include "tests/support/fake.h"\n', "no arrow app -> tests")

    def test_tests_and_benchmarks_include_anything(self):
        text = '#include "skin/x.h"\n#include "scan/x.h"\n#include <sqlite3.h>\n#include "near.h"\n'
        self.assertEqual(self.findings(tests__scan__a=text, bench__a=text), [])

    def test_project_header_in_angle_brackets_is_still_an_arrow(self):
        self.assert_caught("scan", "#include <browse/x.h>\n", "no arrow scan -> browse")

    def test_subfolders_belong_to_their_folder(self):
        self.assertIn("no arrow", self.findings(base__deep__a='#include "shell/x.h"\n')[0])

    # How includes are written

    def test_header_without_its_folder(self):
        self.assert_caught("scan", '#include "near.h"\n', 'not written as "folder/file.h"')

    def test_parent_directory(self):
        self.assert_caught("scan", '#include "../browse/x.h"\n', 'not written as "folder/file.h"')
        self.assert_caught("scan", '#include "scan/../browse/x.h"\n', "leaves its folder")

    def test_macro_for_a_header(self):
        self.assert_caught("scan", "#include HEADER\n", "cannot tell")

    def test_spaces_and_spliced_lines(self):
        self.assert_caught("scan", '  #  include\t"browse/x.h"\n', "no arrow scan -> browse")
        self.assert_caught("scan", '#include \\\n "browse/x.h"\n', "no arrow scan -> browse")

    def test_comments_do_not_count(self):
        self.assert_good("scan", '// #include "browse/x.h"\n/*\n#include "browse/x.h"\n*/\n')

    def test_comment_marks_inside_literals_hide_nothing(self):
        for literal in ['"/*"', 'R"x(/*)x"', "'\"'", "1'000 + \"//\"", '"\\"/*"']:
            with self.subTest(literal=literal):
                text = f'auto x = {literal};\n#include "browse/x.h"\nauto y = "*/";\n'
                self.assert_caught("scan", text, "a.cpp:2: no arrow scan -> browse")

    def test_include_inside_a_raw_string_does_not_count(self):
        self.assert_good("scan", 'auto x = R"(\n#include "browse/x.h"\n)";\n')

    def test_generated_moc_file(self):
        self.assert_good("scan", '#include "a.moc"\n#include "moc_a.cpp"\n')

    # The operating system and the Qt modules

    def test_operating_system_headers_outside_platform(self):
        headers = ["unistd.h", "sys/stat.h", "fcntl.h", "dirent.h", "poll.h", "sqlite3.h", "blkid/blkid.h",
                   "gst/gst.h", "pulse/pulseaudio.h", "X11/Xlib.h"]
        for folder in ["base", "shell", "scan", "browse", "player", "skin", "app"]:
            for header in headers:
                with self.subTest(folder=folder, header=header):
                    self.assert_caught(folder, f"#include <{header}>\n", "only platform/")
            (self.root / folder / "a.cpp").unlink()

    def test_platform_includes_the_operating_system(self):
        self.assert_good("platform", "#include <unistd.h>\n#include <sqlite3.h>\n#include <QPrinter>\n")

    def test_printing_and_bus_modules_outside_platform(self):
        self.assert_caught("shell", "#include <QPrinter>\n", "QtPrintSupport")
        self.assert_caught("shell", "#include <QtPrintSupport/QPrinter>\n", "QtPrintSupport")
        self.assert_caught("shell", "#include <QDBusConnection>\n", "QtDBus")

    def test_windows_in_base(self):
        self.assert_caught("base", "#include <QWidget>\n", "QtWidgets")
        self.assert_caught("base", "#include <QImage>\n", "QtGui")
        self.assert_caught("base", "#include <QtGui/QImage>\n", "QtGui")

    def test_base_includes_the_standard_library_and_qtcore(self):
        self.assert_good("base", "#include <string>\n#include <cstring>\n#include <QString>\n"
                                 "#include <QtCore/QString>\n#include <qglobal.h>\n")

    def test_windows_elsewhere(self):
        self.assert_good("shell", "#include <QWidget>\n#include <QImage>\n#include <vector>\n")

    # Where sources may lie, and the command itself

    def test_sources_outside_the_known_folders(self):
        self.assertIn("outside the folders", self.findings(extra__a="")[0])
        self.assertIn("outside the folders", self.findings(stray="")[0])

    def test_build_trees_are_left_out(self):
        self.assertEqual(self.findings(build__dev__a='#include "x.h"\n'), [])

    def test_headers_are_read_too(self):
        self.put(self.root / "scan/a.h", '#include "browse/x.h"\n')
        self.assertEqual(len(self.findings()), 1)

    def test_exit_status_and_output(self):
        self.put(self.root / "scan/a.cpp", '\n#include "browse/x.h"\n')
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            status = arrows.main([str(self.root), "--qt", str(self.qt)])
        self.assertEqual((status, output.getvalue()), (1, "scan/a.cpp:2: no arrow scan -> browse: browse/x.h\n"))
        self.put(self.root / "scan/a.cpp", "")
        self.assertEqual(arrows.main([str(self.root), "--qt", str(self.qt)]), 0)

    def test_missing_qt_headers_are_an_error(self):
        with contextlib.redirect_stderr(io.StringIO()), self.assertRaises(SystemExit) as stop:
            arrows.main([str(self.root), "--qt", str(self.root)])
        self.assertNotEqual(stop.exception.code, 0)


if __name__ == "__main__":
    unittest.main()
