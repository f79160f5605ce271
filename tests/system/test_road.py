"""The road of one disk through the program: scan, correct, insert, and what the archive then holds."""

import unittest

from harness import SongbinTest, make_sample_disk, wait_until

import disk
from songbin import ADDED, BUTTON, MAIN, RESULT

VOLUME = "ROCK_01"
PATH, ARTIST, COMMENT = 1, 2, 6


class Road(SongbinTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.disk = make_sample_disk(cls.directory / "disk")
        cls.expected = disk.expected_rows(cls.disk, "D", VOLUME)

    def started(self):
        songbin = self.songbin(drives={"D": (self.disk, VOLUME)})
        songbin.start_to_main()
        return songbin

    def correct(self, songbin, grid, row, column, text):
        songbin.edit_cell(grid, row, column, text)
        songbin.accept_cell()
        wait_until("the corrected cell", lambda: grid.cell(row, column).name == text)

    def insert(self, songbin, rows):
        songbin.update()
        self.assertIn(f"{rows} Records is added to Songbin", songbin.added_message())
        songbin.press(ADDED, "OK")
        songbin.wait_gone(RESULT)

    def test_scan_correct_and_insert(self):
        songbin = self.started()
        grid = songbin.scan("D", len(self.expected))
        paths = [grid.cell(row, PATH).name for row in range(len(self.expected))]
        self.correct(songbin, grid, 3, ARTIST, 'Åse "Ås" Sørlie')
        self.insert(songbin, len(self.expected))
        rows = disk.archive_rows(songbin.archive)
        self.assertEqual([row[PATH] for row in rows], paths, "not inserted in the order of the grid")
        corrected = [row[:ARTIST] + ('Åse "Ås" Sørlie',) + row[ARTIST + 1:] if row[PATH] == paths[3] else row
                     for row in self.expected]
        self.assertEqual(disk.differences(corrected, rows), [])
        self.assertEqual(songbin.close_main(), 0)
        self.assertEqual(len(disk.archive_rows(songbin.archive)), len(self.expected))
        self.assertEqual([f.name for f in songbin.program.glob("Songbin.mdb*")], ["Songbin.mdb"])

    def test_files_of_a_directory_come_before_its_subdirectories(self):
        songbin = self.started()
        grid = songbin.scan("D", len(self.expected))
        seen = set()
        for row in range(len(self.expected)):
            directory = grid.cell(row, PATH).name.rpartition("\\")[0]
            below = {other for other in seen if other.startswith(directory + "\\")}
            self.assertFalse(below, f"{directory} came after {below}")
            seen.add(directory)

    def test_second_import_adds_the_rows_again(self):
        songbin = self.started()
        for _ in range(2):
            songbin.scan("D", len(self.expected))
            self.insert(songbin, len(self.expected))
        self.assertEqual(disk.differences(self.expected * 2, disk.archive_rows(songbin.archive)), [])

    def test_without_subdirectories_a_root_path_has_two_separators(self):
        songbin = self.started()
        roots = [row for row in self.expected if row[PATH].count("\\") == 1]
        songbin.scan("D", len(roots), subdirectories=False)
        self.insert(songbin, len(roots))
        doubled = [(row[0], row[PATH].replace("\\", "\\\\"), *row[2:]) for row in roots]
        self.assertEqual(disk.differences(doubled, disk.archive_rows(songbin.archive)), [])

    def test_cancel_inserts_nothing(self):
        songbin = self.started()
        songbin.scan("D", len(self.expected))
        songbin.press(RESULT, "Cancel")
        songbin.wait_gone(RESULT)
        self.assertEqual(songbin.close_main(), 0)
        self.assertEqual(disk.archive_rows(songbin.archive), [])

    def test_apostrophe_typed_into_a_cell_stops_the_import_there(self):
        songbin = self.started()
        grid = songbin.scan("D", len(self.expected))
        paths = [grid.cell(row, PATH).name for row in range(len(self.expected))]
        self.correct(songbin, grid, 2, ARTIST, "it's")
        songbin.update()
        box = songbin.window("error")
        self.assertIn("error ", [label.name for label in box.find_all("label")])
        box.find(BUTTON, "OK").click()
        songbin.wait_gone(RESULT)
        self.assertEqual([row[PATH] for row in disk.archive_rows(songbin.archive)], paths[:2])
        songbin.window(MAIN)

    def test_nothing_found_is_told(self):
        (self.place / "empty").mkdir()
        songbin = self.songbin(drives={"D": (self.place / "empty", "EMPTY")})
        songbin.start_to_main()
        songbin.scan("D", 0)
        songbin.update()
        box = songbin.window("Information")
        self.assertIn("No DataFound", [label.name for label in box.find_all("label")])
        box.find(BUTTON, "OK").click()
        songbin.wait_gone(RESULT)
        self.assertEqual(disk.archive_rows(songbin.archive), [])

    def test_trace_of_an_import(self):
        songbin = self.started()
        songbin.scan("D", len(self.expected))
        self.insert(songbin, len(self.expected))
        traces = list(songbin.home.joinpath(".local/state").rglob("test.txt"))
        self.assertEqual(len(traces), 1, f"trace files: {traces}")
        lines = traces[0].read_bytes().decode("cp1252", "replace").splitlines()
        self.assertEqual(len(lines), len(self.expected))
        self.assertTrue(all(line.startswith(VOLUME + ";D:\\") for line in lines), lines)


if __name__ == "__main__":
    unittest.main(verbosity=2)
