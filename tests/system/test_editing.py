"""Changing the archive on a real screen: the record editor, backup and restore."""

import signal
import time
import unittest

from archivetest import ArchiveTest, row
from harness import wait_until

from records import BACKUP_DONE, FOUND, IMPORTANT, OPEN_BACKUP, RECORDS, SAVE_BACKUP
from songbin import MAIN


class Editor(ArchiveTest):
    ROWS = [row(1, "Beta Beat"), row(2, "alpha"), row(3, "Åse BEAT"), row(4, "Zebra", "Heartbeat")]

    def test_find_walks_forward_in_the_order_of_artists(self):
        songbin = self.started(self.ROWS)
        self.records.open_editor()
        self.assertEqual(self.records.box("Artist"), "alpha")
        self.records.find("Find Artist", None)
        self.assertEqual(songbin.window(RECORDS).find_all("push button", "Find Next"), [])
        self.records.find("Find Artist", "beat")
        wait_until("the first one", lambda: "beat" in self.records.box("Artist").lower())
        first = self.records.box("Artist")
        songbin.press(RECORDS, "Find Next")
        wait_until("the other one", lambda: self.records.box("Artist") not in ("", first))
        songbin.press(RECORDS, "Find Next")
        wait_until("no record", lambda: self.records.box("Artist") == "")

    def test_each_key_moves_once_and_none_while_a_record_is_edited(self):
        songbin = self.started([row(number, f"Artist {number:02}") for number in range(1, 21)])
        self.records.open_editor()
        for key, number in (("Down", 2), ("Next", 3), ("Up", 2), ("End", 20), ("Down", 20), ("Home", 1),
                            ("ctrl+Down", 20), ("ctrl+shift+Up", 19), ("ctrl+Prior", 1), ("Next", 2)):
            with self.subTest(key=key):
                self.records.keys(RECORDS, key, number)
        songbin.press(RECORDS, "Edit")
        self.session.key("Down", "End", "Escape", "Home")
        self.records.fill(RECORDS, "Artist", "Artist 02b")
        songbin.press(RECORDS, "Update")
        self.records.wait_record(RECORDS, 2)
        changed = "WHERE fldArtist='Artist 02b'"
        wait_until("the second row alone", lambda: self.look(songbin, "rowid", changed) == [2])

    def test_a_held_key_deletes_one_record(self):
        songbin = self.started([row(number) for number in range(1, 81)])
        self.records.open_editor()
        left = 80
        for key in ("Return", "space", "alt+d"):
            with self.subTest(key=key):
                songbin.press(RECORDS, "Delete")
                self.session.hold(key, 1.5)
                left -= 2
                wait_until("one row by the click, one by the key", lambda: len(self.look(songbin)) == left)

    def test_edit_add_cancel_and_delete(self):
        songbin = self.started(self.ROWS)
        self.records.open_editor()
        self.records.find("Find Song", "HEART")
        wait_until("the song", lambda: self.records.box("Song") == "Heartbeat")
        songbin.press(RECORDS, "Edit")
        self.records.fill(RECORDS, "Disk Name", "It's \"new\"")
        songbin.press(RECORDS, "Update")
        wait_until("the changed row", lambda: self.look(songbin, "fldVolum", "WHERE rowid=4") == ['It\'s "new"'])
        songbin.press(RECORDS, "Add")
        self.records.fill(RECORDS, "Artist", "dropped")
        songbin.press(RECORDS, "Cancel")
        songbin.press(RECORDS, "Add")
        self.records.fill(RECORDS, "Artist", "Kept")
        songbin.press(RECORDS, "Update")
        wait_until("the added row", lambda: self.look(songbin, "fldArtist, fldAlbum", "WHERE rowid>4") ==
                   [("Kept", " ")])
        songbin.press(RECORDS, "Delete")
        wait_until("it to go again", lambda: len(self.look(songbin)) == 4)
        self.assertEqual(songbin.close_main(), 0)
        self.assertNotIn("dropped", self.look(songbin, "fldArtist"))


    def test_a_record_added_by_hand_is_found(self):
        songbin = self.started(self.ROWS)
        self.records.open_editor()
        songbin.press(RECORDS, "Add")
        self.records.fill(RECORDS, "Path", "D:\\by hand.mp3")
        songbin.press(RECORDS, "Update")
        wait_until("the added row", lambda: len(self.look(songbin)) == 5)
        self.change(songbin, "INSERT INTO MP3 (fldPath) VALUES ('D:\\by another tool.mp3')")
        self.records.close_editor()
        paths = self.column(self.records.search(), 1)
        self.assertEqual(paths[4:], ["D:\\by hand.mp3", "D:\\by another tool.mp3"])

    def test_a_stray_key_before_escape_changes_nothing(self):
        songbin = self.started(self.ROWS)
        before = self.look(songbin, "*")
        self.records.open_editor()
        songbin.control(RECORDS, "text", "Song").click()
        self.session.key("x")
        wait_until("the stray letter", lambda: "x" in self.records.box("Song"))
        self.session.key("Escape")
        songbin.wait_gone(RECORDS)
        self.assertEqual(songbin.close_main(), 0)
        self.assertEqual(self.look(songbin, "*"), before)

    def test_one_key_that_fails_is_told_in_one_box(self):
        songbin = self.started(self.ROWS)
        self.records.open_editor()
        self.change(songbin, "DELETE FROM MP3")
        songbin.press(RECORDS, "Refresh")
        self.session.key("Home")
        self.refused(songbin)
        time.sleep(1)  # several times what a second box takes to come
        self.assertEqual(self.error_labels(songbin), [])


class Backup(ArchiveTest):
    def test_backup_and_restore(self):
        songbin = self.started([row(1), row(2)])
        copy = self.place / "Copy of it.Bck"
        self.records.back_up(copy)
        self.records.confirm_file(SAVE_BACKUP)
        self.assertIn("A copy of your database is placed under: ", self.records.message(BACKUP_DONE))
        self.records.answer(BACKUP_DONE)
        self.assertEqual(copy.read_bytes(), songbin.archive.read_bytes())
        self.records.search()
        songbin.press(FOUND, "Delete")
        wait_until("one row", lambda: self.look(songbin) == ["Song 002"])
        self.records.restore(copy)
        self.records.confirm_file(OPEN_BACKUP)
        self.assertIn("Your database is restored from: ", self.records.message(BACKUP_DONE))
        self.records.answer(BACKUP_DONE)
        self.assertEqual(songbin.archive.read_bytes(), copy.read_bytes())
        self.session.raise_window(FOUND)
        self.records.filter_again()
        self.assertEqual(self.column(self.records.search(), 2), ["Song 001", "Song 002"])

    def test_a_cancelled_backup_goes_to_the_current_directory(self):
        songbin = self.started([row(1)])
        songbin.menu("Tools", "Backup", "Make a backup of your database")
        songbin.press(SAVE_BACKUP, "Cancel")
        self.assertIn("placed under: Songbin.Bck", self.records.message(BACKUP_DONE))
        self.records.answer(BACKUP_DONE)
        self.assertEqual((songbin.home / "Songbin.Bck").read_bytes(), songbin.archive.read_bytes())

    def test_a_backup_that_cannot_be_written_stops_the_program(self):
        songbin = self.started([row(1)])
        before = songbin.archive.read_bytes()
        self.records.back_up(self.place / "nowhere" / "Songbin.Bck")
        self.records.confirm_file(SAVE_BACKUP)
        self.refused(songbin)
        self.assertEqual(songbin.wait_exit(), 1)
        self.assertEqual(songbin.archive.read_bytes(), before)

    def test_what_a_killed_backup_left_is_removed_at_the_next_start(self):
        songbin = self.started([row(1)])
        self.change(songbin, "CREATE TABLE ballast AS WITH n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
                             "WHERE i < 300) SELECT zeroblob(1000000) FROM n")
        target = self.place / "stick"
        target.mkdir()
        own = target / ".songbin-0123456789abcdef"
        own.write_text("mine", encoding="utf-8")
        self.records.back_up(target / "Copy.Bck")
        self.session.key("Return")
        wait_until("the copy to begin", lambda: len(list(target.iterdir())) > 1, pause=0.0005)
        songbin.process.send_signal(signal.SIGKILL)
        wait_until("the killed program to be gone", lambda: not songbin.is_running())
        self.assertEqual(len([f for f in target.iterdir() if f.name.startswith(".songbin-")]), 2)
        songbin.start_to_main(first_run=False)
        wait_until("what it left to go", lambda: list(target.iterdir()) == [own])
        self.assertEqual(own.read_text(encoding="utf-8"), "mine")
        self.assertEqual(songbin.close_main(), 0)

    def test_no_and_cancel_restore_nothing_and_say_nothing(self):
        songbin = self.started([row(1)])
        before = songbin.archive.read_bytes()
        songbin.menu("Tools", "Backup", "Restore your database from a backupfile")
        self.records.answer(IMPORTANT, "No")
        self.assert_stays_away(songbin, OPEN_BACKUP)
        self.records.begin_restore()
        self.records.answer(OPEN_BACKUP, "Cancel")
        self.assert_stays_away(songbin, BACKUP_DONE)
        self.assertEqual({window.name for window in self.session.top_windows()}, {MAIN})
        self.assertEqual(songbin.archive.read_bytes(), before)

    def test_a_file_that_is_no_database_is_told_by_the_next_search(self):
        songbin = self.started([row(1)])
        wrong = self.place / "wrong.Bck"
        wrong.write_text("This is a letter, not an archive.\n" * 50, encoding="utf-8")
        self.records.restore(wrong)
        self.records.confirm_file(OPEN_BACKUP)
        self.records.answer(BACKUP_DONE)
        self.assertEqual(songbin.archive.read_bytes(), wrong.read_bytes())
        self.records.search(until=FOUND)
        self.assertIn("no archive", self.records.message(FOUND))
        self.records.answer(FOUND)
        self.assertEqual(songbin.close_main(), 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)
