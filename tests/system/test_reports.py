"""Reports in the real program: printed to a real queue through the desktop's dialog, exported into files."""

import csv
import os
import shutil
import signal
import subprocess
import tempfile
import unittest
from pathlib import Path

import harness  # noqa: F401  (finds the modules below)
from archivetest import ArchiveTest, row
from printqueue import PrintQueue, text_of
from session import last_of, steady, wait_until
from songbin import BUTTON, MAIN

ARTISTS = "Report on Artist & Song"
HOSTILE = ["<b>bold & \"quoted\"", "two\nlines\tand, a tab", "שלום", "é\u0301", "C:\\back\\slash", "\u202eturned"]


class Reports(ArchiveTest):
    def opened(self, rows, env=None):
        songbin = self.started(rows, env)
        songbin.press(MAIN, "Make report with only Artist and Songname")
        songbin.window(ARTISTS)
        return songbin

    def keys(self, songbin, title, *keys):
        songbin.raise_window(title)
        songbin.session.key(*keys)

    def said(self, songbin, text, limit=60.0):
        wait_until(f"'{text}'", lambda: [
            label for window in songbin.windows(ARTISTS) for label in window.find_all("label")
            if label.name.endswith(" · " + text)], limit)

    def export(self, songbin, file):
        self.keys(songbin, ARTISTS, "ctrl+e")
        songbin.window("Export")
        songbin.session.key("ctrl+a")
        songbin.session.type(str(file))
        songbin.session.key("Return")


class Printing(Reports):
    def setUp(self):
        super().setUp()
        if not PrintQueue.is_possible():
            self.skipTest("no printing system can be started here (cupsd, lpadmin)")
        place = Path(tempfile.mkdtemp(prefix="q-"))
        self.addCleanup(shutil.rmtree, place, ignore_errors=True)
        self.queue = self.enterContext(PrintQueue(place / "c"))

    def test_the_report_goes_to_a_real_queue(self):
        songbin = self.opened([row(number, artist=f"Artist {number:03}") for number in range(1, 301)], self.queue.env)
        self.keys(songbin, ARTISTS, "ctrl+p")
        songbin.window("Print")
        songbin.press("Print", "Print")
        self.said(songbin, "Printed")
        job, = wait_until("the job", self.queue.jobs)
        text = text_of(job)
        for number in range(1, 301):
            self.assertIn(f"Artist {number:03}", text)
        self.assertIn("Comlete MusicListing", text)
        self.assertIn("End of report", text)
        self.assertEqual(songbin.close_main(), 0)
        self.assertEqual(self.queue.jobs(), [job], "nothing more is printed at the end")

    def test_a_printer_that_is_gone_is_told(self):
        songbin = self.opened([row(1)], self.queue.env)
        self.keys(songbin, ARTISTS, "ctrl+p")
        songbin.window("Print")
        self.queue.remove()
        songbin.press("Print", "Print")
        self.assertIn("Printer error: The printer or class does not exist.", self.refused(songbin))
        self.assertEqual(self.queue.jobs(), [])
        self.assertEqual(songbin.close_main(), 0)


class Exporting(Reports):
    def test_each_kind_of_file(self):
        rows = [row(number, artist=artist, song=artist) for number, artist in enumerate(HOSTILE)]
        songbin = self.opened(rows)
        out = self.place / "disk"
        for name in ("list.pdf", "list.html", "list.csv"):
            self.export(songbin, out / name)
            self.said(songbin, f"Exported to D:\\{name}")
        info = subprocess.run(["pdfinfo", out / "list.pdf"], capture_output=True, text=True, check=True).stdout
        self.assertRegex(info, rf"Title: +{ARTISTS}\n")
        self.assertIn("<b>bold &", text_of(out / "list.pdf"))
        self.assertIn("&lt;b&gt;bold &amp; &quot;quoted&quot;", (out / "list.html").read_text())
        with open(out / "list.csv", newline="", encoding="utf-8") as file:
            written = list(csv.reader(file))
        self.assertEqual(written[0], ["fldArtist", "fldSong"])
        self.assertEqual(sorted(line[0] for line in written[1:]), sorted(HOSTILE))
        self.assertEqual(sorted(os.listdir(out)), ["list.csv", "list.html", "list.pdf"])
        self.assertEqual(songbin.close_main(), 0)

    def test_a_program_that_is_killed_leaves_the_old_file(self):
        songbin = self.opened([row(number) for number in range(1, 60_001)])
        out = self.place / "disk"
        (out / "list.pdf").write_text("old")
        self.keys(songbin, ARTISTS, "ctrl+e")
        songbin.window("Export")
        songbin.session.key("ctrl+a")
        songbin.session.type(str(out / "list.pdf"))
        songbin.session.key("Return")
        wait_until("the question whether to replace it", lambda: [
            window for window in songbin.windows("Export") if window.role == "alert"])
        steady("its answer", lambda: last_of([button for window in songbin.windows("Export")
                                              for button in window.find_all(BUTTON, "Yes")])).click()
        wait_until("the new file to grow", lambda: len(os.listdir(out)) == 2, pause=0.005)
        songbin.process.send_signal(signal.SIGKILL)
        self.assertNotEqual(songbin.wait_exit(), 0)
        self.assertEqual((out / "list.pdf").read_text(), "old")


if __name__ == "__main__":
    unittest.main()
