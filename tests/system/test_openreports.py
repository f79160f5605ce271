"""The reports on a real screen: opened by menu and button, read, exported, refreshed, and over a bad archive."""

import csv
import html.parser
import sqlite3
import subprocess
import unittest

from archivetest import FIELDS, ArchiveTest, row
from harness import wait_until

from records import BACKUP_DONE, OPEN_BACKUP, SAVE_BACKUP, printed_text
from reports import ARTIST_SONG, ARTISTS, FULL, LISTING, TIPS, Reports
from songbin import MAIN

INSERT = f"INSERT INTO MP3 ({FIELDS}) VALUES (?,?,?,?,?,?,?)"
ALL = (LISTING, FULL, ARTIST_SONG)

ODD = [("ROCK_01", "D:\\a & b\\<i>x</i>.mp3", "Åse \"Sør\"", "one, two", "line\nbreak", "1999", "none"),
       ("JAZZ", "D:\\same.mp3", "Øystein", "first", None, "", " "),
       ("JAZZ", "D:\\other.mp3", " ", "Я <b>", "Album", "2001", "x"),
       ("JAZZ", "D:\\same.mp3", "Abba", "second", "Album", "2001", "x")]


class Table(html.parser.HTMLParser):
    """The texts of a page of the web, and the names of its tags."""

    def __init__(self, text):
        super().__init__()
        self.tags, self.texts = [], []
        self.feed(text)

    def handle_starttag(self, tag, attrs):
        self.tags.append(tag)

    def handle_data(self, data):
        if data.strip():
            self.texts.append(data.strip())


class ReportsTest(ArchiveTest):
    def opened(self, rows, env=None):
        songbin = self.started(rows, env)
        self.reports = Reports(songbin)
        return songbin


class Opening(ReportsTest):
    def test_each_report_is_opened_by_menu_and_by_button(self):
        self.opened([row(number) for number in range(1, 121)])
        for report in ALL:
            for way in (self.reports.open_by_menu, self.reports.open_by_button):
                with self.subTest(report=report, way=way.__name__):
                    way(report)
                    self.reports.wait_status(report, "120 records")
                    self.assertTrue(self.reports.status(report).startswith("Page 1 of "))
                    self.reports.close(report)

    def test_an_open_report_comes_to_the_front_as_it_stands(self):
        songbin = self.opened([row(number) for number in range(1, 200)])
        self.reports.open_by_button(ARTIST_SONG)
        self.session.key("ctrl+End")
        wait_until("the last page", lambda: self.reports.status(ARTIST_SONG).startswith("Page 4 of 4"))
        self.change(songbin, INSERT, [row(200)])
        songbin.raise_window(MAIN)
        self.reports.open_by_button(ARTIST_SONG)
        wait_until("the report before the main window", lambda: self.session.stacking()[-1] == ARTISTS)
        self.assertTrue(self.reports.status(ARTIST_SONG).startswith("Page 4 of 4 · 199 records"))
        self.assertEqual(len(self.reports.previews(ARTIST_SONG)), 1)

    def test_pages_and_finding(self):
        self.opened([row(number) for number in range(1, 121)] + [row(121, song="Needle"), row(122, song="needles")])
        self.reports.open_by_menu(LISTING)
        for key, page in (("ctrl+Next", 2), ("ctrl+End", 4), ("ctrl+Prior", 3), ("ctrl+Home", 1)):
            self.session.key(key)
            self.reports.wait_status(LISTING, f"Page {page} of 4")
        self.reports.find(LISTING, "NEEDLE", "1 of 2")
        self.reports.wait_status(LISTING, "Page 4 of 4")


class BadArchives(ReportsTest):
    def refusals(self, songbin, text):
        for report in ALL:
            with self.subTest(report=report):
                songbin.raise_window(MAIN)
                songbin.press(MAIN, TIPS[report])
                self.assertIn(text, self.refused(songbin))
                self.assertEqual(self.reports.previews(report), [])

    def test_a_missing_a_damaged_and_a_locked_archive_are_told_and_open_nothing(self):
        songbin = self.opened([row(1)])
        whole = songbin.archive.read_bytes()
        other = sqlite3.connect(songbin.archive, isolation_level=None)
        other.execute("BEGIN EXCLUSIVE")
        self.refusals(songbin, "in use")
        other.execute("ROLLBACK")
        other.close()
        songbin.archive.unlink()
        self.refusals(songbin, "cannot be opened")
        self.assertFalse(songbin.archive.exists())
        songbin.archive.write_bytes(b"no archive" * 1000)
        self.refusals(songbin, "not a database")
        songbin.archive.write_bytes(whole)
        self.reports.open_by_button(FULL)
        self.reports.close(FULL)
        self.assertEqual(songbin.close_main(), 0)


class AsItWas(ReportsTest):
    def test_refresh_reads_the_rows_anew(self):
        songbin = self.opened([row(1)])
        self.reports.open_by_button(FULL)
        self.change(songbin, INSERT, [row(2), row(3)])
        self.assertIn("1 record", self.reports.status(FULL))
        self.session.key("F5")
        self.reports.wait_status(FULL, "3 records")
        songbin.archive.unlink()
        self.session.key("F5")
        self.assertIn("cannot be opened", self.refused(songbin))
        self.reports.wait_status(FULL, "3 records")

    def test_a_restore_under_a_preview_leaves_it_as_it_is_until_it_is_refreshed(self):
        songbin = self.opened([row(1)])
        backup = self.place / "Songbin.Bck"
        self.records.back_up(backup)
        self.records.confirm_file(SAVE_BACKUP)
        self.records.answer(BACKUP_DONE)
        self.change(songbin, INSERT, [row(number) for number in range(2, 200)])
        self.reports.open_by_button(ARTIST_SONG)
        self.reports.wait_status(ARTIST_SONG, "199 records")
        self.records.restore(backup)
        self.records.confirm_file(OPEN_BACKUP)
        self.records.answer(BACKUP_DONE)
        self.assertEqual(self.look(songbin), ["Song 001"])
        songbin.raise_window(ARTISTS)
        self.session.key("ctrl+End")
        self.reports.wait_status(ARTIST_SONG, "Page 4 of 4 · 199 records")
        self.reports.export(ARTIST_SONG, self.place / "before.csv")
        with open(self.place / "before.csv", encoding="utf-8", newline="") as file:
            self.assertEqual(len(list(csv.reader(file))), 200)
        self.session.key("F5")
        self.reports.wait_status(ARTIST_SONG, "1 record")


class Exports(ReportsTest):
    """The rows hold what each form has to escape; two of them are one file."""

    GROUPED = [ODD[0], ODD[1], ODD[3], ODD[2]]
    BY_ARTIST = [ODD[2], ODD[3], ODD[0], ODD[1]]  # as every window of the archive orders them: C.UTF-8 here

    def exported(self, report, ending):
        path = self.place / f"{report}.{ending}"
        self.reports.export(report, path)
        return path

    def test_each_report_in_each_form_is_read_back(self):
        self.opened(ODD)
        for report in ALL:
            with self.subTest(report=report):
                self.reports.open_by_button(report)
                self.reports.wait_status(report, "4 records")
                self.check_csv(report, self.exported(report, "csv"))
                self.check_html(report, self.exported(report, "html"))
                self.check_pdf(report, self.exported(report, "pdf"))
                self.reports.close(report)

    def check_csv(self, report, path):
        with open(path, encoding="utf-8", newline="") as file:
            lines = list(csv.reader(file))
        if report == ARTIST_SONG:
            self.assertEqual(lines, [["fldArtist", "fldSong"]] + [list(one[2:4]) for one in self.BY_ARTIST])
        else:
            self.assertEqual(lines, [FIELDS.split(", ")] + [[text or "" for text in one] for one in self.GROUPED])

    def check_html(self, report, path):
        page = Table(path.read_text(encoding="utf-8"))
        self.assertFalse({"i", "b", "script"} & set(page.tags))
        wanted = {LISTING: ["Content of Songbin", "Disk Name:", "D:\\a & b\\<i>x</i>.mp3"],
                  FULL: ["Content of Songbin", "Disk VolumName:", "Year", "End of report"],
                  ARTIST_SONG: ["Comlete MusicListing", "Songbin", "Song name", "End of report"]}[report]
        for text in (*wanted, "Åse \"Sør\"", "Я <b>"):
            self.assertIn(text, page.texts)

    def check_pdf(self, report, path):
        text, (width, height) = printed_text(path)
        self.assertEqual(width > height, report == LISTING)
        for word in ("Øystein", "first", "second", "one, two"):
            self.assertIn(word, text)
        facts = subprocess.run(["pdfinfo", path], check=True, capture_output=True, text=True).stdout
        self.assertIn(ARTISTS if report == ARTIST_SONG else "Songbin", facts)
        if report == FULL:
            self.assertEqual(text.count("Disk VolumName:"), 3)
            self.assertLess(text.index("second"), text.index("other.mp3"))
        self.assertEqual("Of" in text.split(), report != ARTIST_SONG)


if __name__ == "__main__":
    unittest.main(verbosity=2)
