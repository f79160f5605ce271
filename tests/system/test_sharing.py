"""One archive, several programs: what one of them changes or locks, the others tell and survive."""

import contextlib
import sqlite3
import time
import unittest

from archivetest import FIELDS, ArchiveTest, row
from harness import wait_until

from records import BACKUP_DONE, FOUND, OPEN_BACKUP, RECORDS, SAVE_BACKUP, Records
from songbin import MAIN, RESULT

SHORT = 15.0  # seconds: several times what the program waits for a lock, on a busy machine


class TwoPrograms(ArchiveTest):
    def both(self, rows):
        """The second program; the first one's steps are self.records, the second one's self.others."""
        self.first = self.started(rows)
        second = self.beside(self.first)
        self.others = Records(second)
        return second

    def test_each_sees_the_others_rows_at_its_next_search(self):
        second = self.both([row(1), row(2), row(3)])
        grid = self.records.search()
        self.others.open_editor()
        self.others.step(RECORDS, "Next record", 2)
        second.press(RECORDS, "Edit")
        self.others.fill(RECORDS, "Song", "Øre")
        second.press(RECORDS, "Update")
        self.others.step(RECORDS, "Last record", 3)
        second.press(RECORDS, "Delete")
        wait_until("both changes", lambda: self.look(self.first) == ["Song 001", "Øre"])
        self.first.raise_window(FOUND)
        self.assertEqual(self.column(grid, 2), ["Song 001", "Song 002", "Song 003"])
        self.records.filter_again()
        self.assertEqual(self.column(self.records.search(), 2), ["Song 001", "Øre"])

    def test_a_new_row_in_the_place_of_a_deleted_one_is_not_deleted(self):
        second = self.both([row(1), row(2), row(3)])
        self.records.search()
        self.records.step(FOUND, "Last record", 3)
        self.others.open_editor()
        self.others.step(RECORDS, "Last record", 3)
        second.press(RECORDS, "Delete")
        wait_until("it to go", lambda: self.look(self.first, "rowid") == [1, 2])
        second.press(RECORDS, "Add")
        self.others.fill(RECORDS, "Artist", "New")
        second.press(RECORDS, "Update")
        after = [(1, "Artist"), (2, "Artist"), (3, "New")]
        wait_until("a new row with its number", lambda: self.look(self.first, "rowid, fldArtist") == after)
        self.first.raise_window(FOUND)
        self.first.press(FOUND, "Delete")
        self.assertIn("changed or deleted", self.refused(self.first))
        self.assertEqual(self.look(self.first, "rowid, fldArtist"), after)

    def test_a_record_that_the_other_one_changed_is_not_overwritten(self):
        second = self.both([row(1), row(2)])
        for records in (self.records, self.others):
            records.open_editor()
        self.change_song(self.others, "theirs")
        wait_until("their change", lambda: self.look(self.first) == ["theirs", "Song 002"])
        self.first.raise_window(RECORDS)
        self.change_song(self.records, "mine")
        self.assertIn("changed or deleted", self.refused(self.first))
        self.first.press(RECORDS, "Cancel")
        self.first.press(RECORDS, "Refresh")
        wait_until("their change in the box", lambda: self.records.box("Song") == "theirs")
        self.assertEqual(self.look(self.first), ["theirs", "Song 002"])
        self.assertEqual([program.close_main() for program in (self.first, second)], [0, 0])

    @staticmethod
    def change_song(records, text):
        records.songbin.press(RECORDS, "Edit")
        records.fill(RECORDS, "Song", text)
        records.songbin.press(RECORDS, "Update")

    def test_what_another_tool_changed_is_neither_deleted_nor_missed(self):
        songbin = self.started([row(1), row(2), row(3)])
        self.records.search()
        self.change(songbin, "UPDATE MP3 SET fldSong='changed' WHERE rowid=1")
        self.change(songbin, "DELETE FROM MP3 WHERE rowid=3")
        self.change(songbin, f"INSERT INTO MP3 ({FIELDS}) VALUES (?,?,?,?,?,?,?)", [row(9)])
        songbin.press(FOUND, "Delete")
        self.refused(songbin)
        self.assertEqual(self.look(songbin), ["changed", "Song 002", "Song 009"])
        self.records.filter_again()
        self.assertEqual(self.column(self.records.search(), 2), ["changed", "Song 002", "Song 009"])


class Locked(ArchiveTest):
    @contextlib.contextmanager
    def locked(self, songbin):
        """Another program holds the archive; what is asked for meanwhile has to be answered soon."""
        other = sqlite3.connect(songbin.archive, isolation_level=None)
        other.execute("BEGIN EXCLUSIVE")
        began = time.monotonic()
        try:
            yield
            self.assertLess(time.monotonic() - began, SHORT)
        finally:
            other.execute("ROLLBACK")
            other.close()

    def test_a_row_is_not_deleted_now_but_later(self):
        songbin = self.started([row(1), row(2)])
        self.records.search()
        with self.locked(songbin):
            songbin.press(FOUND, "Delete")
            self.assertIn("in use", self.refused(songbin))
            self.records.keys(FOUND, "Down", 2)
        self.assertEqual(self.look(songbin), ["Song 001", "Song 002"])
        songbin.press(FOUND, "Delete")
        wait_until("the second one to go", lambda: self.look(songbin) == ["Song 001"])

    def test_the_editor_tells_and_opens_later(self):
        songbin = self.started([row(1)])
        with self.locked(songbin):
            songbin.press(MAIN, "Browse/Edit content of database")
            told = self.records.message(RECORDS)
            self.assertIn("The archive cannot be shown.", told)
            self.assertIn("in use", told)
            self.records.answer(RECORDS)
        self.records.open_editor()
        self.assertEqual(self.records.box("Song"), "Song 001")

    def scanned(self):
        """A program that has scanned its disk of three files."""
        disk = self.place / "disk"
        disk.mkdir()
        for number in range(3):
            (disk / f"Artist - Song {number}.mp3").write_bytes(bytes(300))
        songbin = self.started([])
        songbin.scan("D", 3)
        return songbin

    @staticmethod
    def waiting(songbin):
        return [label.name for label in songbin.window(RESULT).find_all("label")
                if label.name.startswith("Another program is using the archive")]

    def test_an_import_waits_for_the_other_program_and_says_so(self):
        songbin = self.scanned()
        with self.locked(songbin):
            songbin.update()
            wait_until("the line that tells it", lambda: self.waiting(songbin), 5)
        self.assertIn("3 Records is added", songbin.added_message())
        self.assertEqual(self.waiting(songbin), [])
        self.assertEqual(len(self.look(songbin)), 3)

    def test_an_import_waits_ten_seconds_in_all(self):
        songbin = self.scanned()
        with self.locked(songbin):
            songbin.update()
            began = time.monotonic()
            box = songbin.window("error")
            self.assertGreater(time.monotonic() - began, 8)
            self.assertIn("error ", [label.name for label in box.find_all("label")])
            songbin.press("error", "OK")
            songbin.wait_gone(RESULT)
        self.assertEqual(self.look(songbin), [])

    def test_a_restore_ends_without_a_word_and_without_change(self):
        songbin = self.started([row(1)])
        copy = self.place / "other.Bck"
        copy.write_bytes((songbin.program / "Songbin.dat").read_bytes())
        before = songbin.archive.read_bytes()
        with self.locked(songbin):
            self.records.restore(copy)
            self.records.confirm_file(OPEN_BACKUP)
            songbin.menu("Tools", "Options...")  # it answers again
            songbin.press("Options", "Cancel")
            songbin.wait_gone("Options")
            self.assertEqual(songbin.windows(BACKUP_DONE), [])
        self.assertEqual(songbin.archive.read_bytes(), before)

    def test_a_backup_stops_the_program_and_leaves_no_half_copy(self):
        songbin = self.started([row(1)])
        copy = self.place / "half.Bck"
        with self.locked(songbin):
            self.records.back_up(copy)
            self.records.confirm_file(SAVE_BACKUP)
            self.assertIn("Permission denied", self.refused(songbin))
            self.assertEqual(songbin.wait_exit(), 1)
        self.assertEqual(sorted(file.name for file in self.place.glob("*.Bck*")), [])


if __name__ == "__main__":
    unittest.main(verbosity=2)
