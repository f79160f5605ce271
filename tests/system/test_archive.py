"""The archive's records on a real screen: search, the grid, printing and playing."""

import sqlite3
import subprocess
import unittest
from pathlib import Path

from archivetest import SOUND, ArchiveTest, row
from harness import wait_until

from records import CRITERIA, FOUND, RECORDS, Player, printed_text
from songbin import MAIN


class Search(ArchiveTest):
    def test_a_search_that_runs_away_is_ended_by_escape(self):
        songbin = self.started([row(number) for number in range(1, 1001)])
        runaway = "x%' or (select count(*) from MP3 a, MP3 b, MP3 c, MP3 d where a.fldSong > d.fldSong) > 1 " \
                  "or fldSong like '%"
        box = self.records.search({"String in comment": runaway}, until=FOUND)
        self.assertIn("Searching the archive. Press Escape to stop.",
                      [label.name for label in box.find_all("label")])
        self.session.key("Escape")
        songbin.wait_gone(FOUND)
        self.assertEqual(self.records.search().size()[0], 1000)
        self.assertEqual(songbin.close_main(), 0)

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

    def test_escape_closes_the_result_and_the_criteria(self):
        songbin = self.started([row(1)])
        self.records.search()
        self.session.key("Escape")
        songbin.wait_gone(FOUND)
        songbin.wait_gone(CRITERIA)
        self.assertEqual({window.name for window in self.session.top_windows()}, {MAIN})

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
        self.refused(songbin)
        self.records.close_result()
        self.assertEqual(self.look(songbin), ["Song 001"])
        self.assertEqual(songbin.close_main(), 0)

    def test_the_list_prints_the_rows_in_view_on_wide_paper(self):
        paper = self.place / "list.pdf"
        songbin = self.started([row(number) for number in range(1, 101)],
                               env={"SONGBIN_PRINT_FILE": str(paper)})
        self.records.search()
        songbin.press(FOUND, "Print List")
        wait_until("the last row in view", lambda: self.records.shown_record(FOUND) > 10)
        shown = self.records.shown_record(FOUND)
        wait_until("the list to be on paper while the program runs", lambda: "Song 001" in self.on_paper(paper))
        text, (width, height) = printed_text(paper)
        self.assertEqual(songbin.close_main(), 0)
        self.assertGreater(width, height)
        self.assertEqual([number for number in range(1, 101) if f"Song {number:03}" in text],
                         list(range(1, shown + 1)))


    @staticmethod
    def on_paper(file):
        return subprocess.run(["pdftotext", file, "-"], capture_output=True, text=True, check=False).stdout


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

    def test_a_double_click_plays_the_row_that_was_clicked(self):
        _, player = self.with_files()
        self.records.search().cell(2, 1).click(times=2)
        player.wait_played(self.place / "disk" / self.NAMES[2])
        self.records.wait_record(FOUND, 3)

    def test_the_player_that_is_no_more_is_explained_until_the_next_start(self):
        songbin, player = self.with_files()
        songbin.menu("Tools", "Options...")
        songbin.control("Options", "check box", "Use your installed MP3 player.").click()
        songbin.press("Options", "OK")
        songbin.wait_gone("Options")
        self.records.open_editor()
        songbin.press(RECORDS, "Play Song")
        self.assertIn("This player is no more....", self.records.message("Missing Player"))
        self.records.answer("Missing Player")
        self.records.close_editor()
        self.assertEqual(songbin.close_main(), 0)
        songbin.start_to_main(first_run=False)
        self.records.open_editor()
        songbin.press(RECORDS, "Play Song")
        player.wait_played(self.place / "disk" / self.NAMES[0])  # this one alone: nothing before the restart

    def test_another_disk_is_told_and_the_song_is_played_all_the_same(self):
        songbin = self.started([row(1, volume="OTHER_DISK")])
        (self.place / "disk/001.mp3").write_bytes(SOUND)
        player = Player(songbin)
        self.records.open_editor()
        songbin.press(RECORDS, "Play Song")
        self.assertIn("Disk Name does not match", self.records.message("IMPORTANT"))
        self.records.answer("IMPORTANT")
        player.wait_played(self.place / "disk/001.mp3")


if __name__ == "__main__":
    unittest.main(verbosity=2)
