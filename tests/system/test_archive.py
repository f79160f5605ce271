"""The archive's records on a real screen: search, grid, print, play, editor, backup, and two programs at once."""

import sqlite3
import unittest
from pathlib import Path

from harness import SongbinTest, wait_until

from records import (BACKUP_DONE, CRITERIA, FOUND, OPEN_BACKUP, RECORDS, SAVE_BACKUP, Player, Records,
                     printed_text)
from songbin import MAIN

FIELDS = "fldVolum, fldPath, fldArtist, fldSong, fldAlbum, fldYear, fldComment"

SOUND = b"\xff\xfb\x90\x00" * 200  # enough of an MP3 file for a desktop that looks into it


def row(number, artist="Artist", song=None, path=None, volume="ROCK_01"):
    return (volume, path or f"D:\\{number:03}.mp3", artist, song or f"Song {number:03}", "Album", "1999", "none")


class ArchiveTest(SongbinTest):
    def started(self, rows, env=None):
        """A program whose archive holds these rows, with its main window free."""
        disk = self.place / "disk"
        disk.mkdir(exist_ok=True)
        songbin = self.songbin(drives={"D": (disk, "ROCK_01")}, env=env)
        songbin.archive.write_bytes((songbin.program / "Songbin.dat").read_bytes())
        self.change(songbin, f"INSERT INTO MP3 ({FIELDS}) VALUES (?,?,?,?,?,?,?)", rows)
        songbin.start_to_main(first_run=False)
        self.records = Records(songbin)
        return songbin

    @staticmethod
    def change(songbin, statement, rows=((),)):
        connection = sqlite3.connect(songbin.archive)
        with connection:
            connection.executemany(statement, rows)
        connection.close()

    @staticmethod
    def look(songbin, columns="fldSong", rest=""):
        connection = sqlite3.connect(songbin.archive)
        found = connection.execute(f"SELECT {columns} FROM MP3 {rest}").fetchall()
        connection.close()
        return [found_row[0] if len(found_row) == 1 else found_row for found_row in found]

    @staticmethod
    def column(grid, number):
        return [grid.cell(line, number).name for line in range(grid.size()[0])]


class Search(ArchiveTest):
    def test_case_is_ignored_for_every_letter_and_rows_keep_their_order(self):
        self.started([row(1, "ÅSE"), row(2, "Blåse"), row(3, "ase"), row(4, "Øre", "åse"), row(5, "åSE b")])
        grid = self.records.search({"Name of Artist": "Åse"})
        self.assertEqual(self.column(grid, 0), ["ÅSE", "Blåse", "åSE b"])
        self.records.filter_again()
        grid = self.records.search({"Name of Artist": "Øre", "Which year": "1971"}, any_of=True)
        self.assertEqual(self.column(grid, 0), ["Øre"])

    def test_an_apostrophe_is_told_and_leaves_the_grid_closed(self):
        songbin = self.started([row(1)])
        self.records.search({"Name of Song": "it's"}, until=FOUND)
        self.assertIn("An apostrophe", self.records.message(FOUND))
        self.records.answer(FOUND)
        self.assert_stays_away(songbin, FOUND)
        self.assertEqual(self.records.search({"Name of Song": "song"}).size()[0], 1)

    def test_text_behind_the_statement_is_refused_and_not_run(self):
        songbin = self.started([row(1)])
        self.records.search({"Which path": "x' ; DELETE FROM MP3; --"}, until=FOUND)
        self.records.answer(FOUND)
        self.assertEqual(self.look(songbin), ["Song 001"])

    def test_an_archive_in_use_is_told_after_a_short_wait(self):
        songbin = self.started([row(1), row(2)])
        other = sqlite3.connect(songbin.archive, isolation_level=None)
        other.execute("BEGIN EXCLUSIVE")
        self.records.search(until=FOUND)
        self.assertIn("in use", self.records.message(FOUND))
        self.records.answer(FOUND)
        other.execute("ROLLBACK")
        other.close()
        self.assertEqual(self.records.search().size()[0], 2)


class Grid(ArchiveTest):
    def test_each_key_moves_exactly_once(self):
        self.started([row(number) for number in range(1, 121)])
        self.records.search()
        for key, number in (("Down", 2), ("Next", 3), ("Up", 2), ("Prior", 1), ("Prior", 1), ("End", 120),
                            ("Down", 120), ("Up", 119), ("Home", 1), ("ctrl+Down", 120), ("ctrl+Up", 1),
                            ("ctrl+Next", 120), ("ctrl+shift+Up", 119), ("ctrl+Prior", 1)):
            with self.subTest(key=key):
                self.records.keys(FOUND, key, number)

    def test_delete_takes_one_of_equal_rows(self):
        songbin = self.started([row(1), row(1), row(1), row(2)])
        self.records.search({"Name of Song": "001"})
        self.records.step(FOUND, "Next record", 2)
        songbin.press(FOUND, "Delete")
        wait_until("two rows", lambda: self.look(songbin, "rowid") == [1, 3, 4])
        self.records.wait_record(FOUND, 2)

    def test_delete_in_an_empty_result_is_an_error_and_the_program_goes_on(self):
        songbin = self.started([row(1)])
        self.records.search({"Name of Song": "nothing"})
        songbin.press(FOUND, "Delete")
        wait_until("the error box", lambda: self.error_box(songbin))
        self.session.key("Return")
        wait_until("the error box to go", lambda: not self.error_box(songbin))
        self.records.close_result()
        self.assertEqual(self.look(songbin), ["Song 001"])
        self.assertEqual(songbin.close_main(), 0)

    @staticmethod
    def error_box(songbin):
        return [label.name for window in songbin.session.top_windows() for label in window.find_all("label")
                if label.name.startswith("Run-time error")]

    def test_the_list_prints_the_rows_in_view_on_wide_paper(self):
        paper = self.place / "list.pdf"
        songbin = self.started([row(number) for number in range(1, 101)],
                               env={"SONGBIN_PRINT_FILE": str(paper)})
        self.records.search()
        songbin.press(FOUND, "Print List")
        wait_until("the last row in view", lambda: self.records.shown_record(FOUND) > 10)
        shown = self.records.shown_record(FOUND)
        self.assertEqual(songbin.close_main(), 0)
        text, (width, height) = printed_text(paper)
        self.assertGreater(width, height)
        self.assertEqual([number for number in range(1, 101) if f"Song {number:03}" in text],
                         list(range(1, shown + 1)))


class Play(ArchiveTest):
    NAMES = ["plain.mp3", "two words & more.mp3", 'a "quoted" %41.mp3', "Sjøen Я ♫.mp3", "it's $HOME `x`.mp3"]

    def with_files(self):
        songbin = self.started([row(number, path="D:\\" + name) for number, name in enumerate(self.NAMES, 1)])
        for name in self.NAMES:
            (self.place / "disk" / name).write_bytes(SOUND)
        return songbin, Player(songbin)

    def test_the_desktops_player_gets_each_file_and_no_process_stays(self):
        songbin, player = self.with_files()
        self.records.search()
        for number in range(1, len(self.NAMES) + 1):
            songbin.press(FOUND, "Play Song")
            player.wait_played(*[self.place / "disk" / name for name in self.NAMES[:number]])
            if number < len(self.NAMES):
                self.records.step(FOUND, "Next record", number + 1)
        wait_until("the player's processes to be gone", lambda: not self.children(songbin))

    @staticmethod
    def children(songbin):
        listings = Path(f"/proc/{songbin.process.pid}/task").glob("*/children")
        return " ".join(listing.read_text() for listing in listings).split()

    def test_a_file_that_is_not_there_shows_nothing_and_changes_nothing(self):
        songbin, player = self.with_files()
        (self.place / "disk" / self.NAMES[0]).unlink()
        before = self.look(songbin, "*")
        self.records.search()
        songbin.press(FOUND, "Play Song")
        self.records.step(FOUND, "Next record", 2)
        songbin.press(FOUND, "Play Song")
        player.wait_played(self.place / "disk" / self.NAMES[1])
        self.assertEqual({window.name for window in self.session.top_windows()}, {MAIN, CRITERIA, FOUND})
        self.assertEqual(self.look(songbin, "*"), before)

    def test_without_a_player_nothing_is_shown(self):
        songbin = self.started([row(1)])
        (self.place / "disk/001.mp3").write_bytes(SOUND)
        self.records.search()
        songbin.press(FOUND, "Play Song")
        self.records.keys(FOUND, "Home", 1)
        wait_until("its helpers to end", lambda: not self.children(songbin))
        self.assertEqual({window.name for window in self.session.top_windows()}, {MAIN, CRITERIA, FOUND})

    def test_another_disk_is_told_and_the_song_is_played_all_the_same(self):
        songbin = self.started([row(1, volume="OTHER_DISK")])
        (self.place / "disk/001.mp3").write_bytes(SOUND)
        player = Player(songbin)
        self.records.open_editor()
        songbin.press(RECORDS, "Play Song")
        self.assertIn("Disk Name does not match", self.records.message("IMPORTANT"))
        self.records.answer("IMPORTANT")
        player.wait_played(self.place / "disk/001.mp3")


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
                   [("Kept", None)])
        songbin.press(RECORDS, "Delete")
        wait_until("it to go again", lambda: len(self.look(songbin)) == 4)
        self.assertEqual(songbin.close_main(), 0)
        self.assertNotIn("dropped", self.look(songbin, "fldArtist"))


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


class TwoPrograms(ArchiveTest):
    def test_what_the_other_one_changed_is_neither_deleted_nor_missed(self):
        songbin = self.started([row(1), row(2), row(3)])
        self.records.search()
        self.change(songbin, "UPDATE MP3 SET fldSong='changed' WHERE rowid=1")
        self.change(songbin, "DELETE FROM MP3 WHERE rowid=3")
        self.change(songbin, f"INSERT INTO MP3 ({FIELDS}) VALUES (?,?,?,?,?,?,?)", [row(9)])
        songbin.press(FOUND, "Delete")
        wait_until("the error box", lambda: Grid.error_box(songbin))
        self.session.key("Return")
        wait_until("the error box to go", lambda: not Grid.error_box(songbin))
        self.assertEqual(self.look(songbin), ["changed", "Song 002", "Song 009"])
        self.records.filter_again()
        self.assertEqual(self.column(self.records.search(), 2), ["changed", "Song 002", "Song 009"])


if __name__ == "__main__":
    unittest.main(verbosity=2)
