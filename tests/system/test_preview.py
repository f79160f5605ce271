"""A report's preview on a real screen: keys, find, export, and what a screen reader is told."""

import unittest

from archivetest import ArchiveTest, row
from harness import wait_until

from songbin import MAIN

REPORT = "Report on Artist & Song"
EXPORT = "Export"


class Preview(ArchiveTest):
    def opened(self, rows, env=None):
        songbin = self.started(rows, env)
        songbin.press(MAIN, "Make report with only Artist and Songname")
        songbin.window(REPORT)
        return songbin

    def labels(self, songbin):
        window = songbin.window(REPORT)
        return [label.name for label in window.find_all("label") if label.name]

    def wait_label(self, songbin, text):
        def look():
            return [name for name in self.labels(songbin) if text in name]
        try:
            return wait_until(text, look)[0]
        except AssertionError:
            self.fail(f"no '{text}' among {self.labels(songbin)}")

    def test_a_reader_walks_finds_and_exports(self):
        songbin = self.opened([row(number, f"Artist {number:03}") for number in range(1, 301)])
        self.wait_label(songbin, "300 records")
        self.session.key("ctrl+Next")
        self.wait_label(songbin, "Page 2 of ")
        self.session.key("End")
        self.wait_label(songbin, "300 records")
        self.session.key("ctrl+f")
        self.session.type("song 29")
        self.session.key("Return")
        self.wait_label(songbin, "1 of 10")
        self.session.key("F3")
        self.wait_label(songbin, "2 of 10")
        self.session.key("Escape")
        self.session.key("ctrl+e")
        songbin.window(EXPORT)
        self.session.type(str(songbin.home / "list.csv"))
        self.session.key("Return")
        self.wait_label(songbin, "Exported to ")
        lines = (songbin.home / "list.csv").read_text().splitlines()
        self.assertEqual(lines[0], "fldArtist,fldSong")
        self.assertEqual(len(lines), 301)
        self.session.key("Escape")
        songbin.wait_gone(REPORT)

    def test_a_screen_reader_reads_the_page(self):
        songbin = self.opened([row(1, "Beat Boys", "one")])
        page = songbin.control(REPORT, "document frame", "Pages")
        self.assertIn("Beat Boys\tone", page.text)

    def test_an_empty_archive_says_what_to_do(self):
        songbin = self.opened([])
        self.wait_label(songbin, "No records. Scan a disk first")


if __name__ == "__main__":
    unittest.main()
