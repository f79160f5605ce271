"""The texts beside the program, shown and printed by the real one."""

import subprocess
import unittest

from archivetest import ArchiveTest
from harness import wait_until

from songbin import MAIN

HISTORY = "uphist.txt"
FUTURE = "update.txt"


class Texts(ArchiveTest):
    def choose(self, songbin, entry):
        songbin.raise_window(MAIN)
        songbin.menu("Help", entry)

    @staticmethod
    def shown(songbin, title):
        return songbin.control(title, "text", "Text of the file").text

    def test_the_help_shows_both_in_one_window_and_prints_them_as_one_document(self):
        paper = self.place / "texts.pdf"
        songbin = self.started([], env={"SONGBIN_PRINT_FILE": str(paper)})
        (songbin.program / FUTURE).write_bytes(rb"{\rtf1\ansi {\b Better}\par caf\'e9s}")
        self.choose(songbin, "Update History")
        self.assertIn("Songbin - update history", self.shown(songbin, HISTORY))
        songbin.press(HISTORY, "Print")
        self.choose(songbin, "Updates to come")
        self.assertEqual(self.shown(songbin, FUTURE), "Better\ncafés")
        self.assertFalse(songbin.windows(HISTORY))
        songbin.press(FUTURE, "Print")
        self.session.key("Escape")
        songbin.wait_gone(FUTURE)
        self.assertFalse(paper.exists() and paper.read_bytes().endswith(b"%%EOF\n"), "it waits for the end")
        self.assertEqual(songbin.close_main(), 0)
        printed = subprocess.run(["pdftotext", "-layout", paper, "-"], capture_output=True, text=True, check=True).stdout
        self.assertLess(printed.index("Songbin - update history"), printed.index("cafés"))

    def test_one_that_is_missing_is_told_and_no_window_comes(self):
        songbin = self.started([])
        (songbin.program / HISTORY).unlink()
        self.choose(songbin, "Update History")
        self.assertIn("File not found", self.refused(songbin))
        self.assertEqual({window.name for window in self.session.top_windows()}, {MAIN})
        self.assertEqual(songbin.close_main(), 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)
