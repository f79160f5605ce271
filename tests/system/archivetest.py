"""What the tests of the archive's windows share: a program with given rows, and looks into its archive."""

import sqlite3

from harness import SongbinTest, wait_until

from records import Records
from session import last_of, steady
from songbin import BUTTON, MAIN

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

    def beside(self, songbin, name="beside"):
        """A second program on the same archive, with settings of its own."""
        other = self.songbin(name, drives={"D": (self.place / "disk", "ROCK_01")}, beside=songbin)
        other.start_to_main(first_run=False)
        return other

    @staticmethod
    def error_labels(songbin):
        """The texts of boxes, which are alerts, with the program's own title: those of errors."""
        return [label for window in songbin.windows(MAIN) if window.role == "alert"
                for label in window.find_all("label") if label.name]

    def refused(self, songbin):
        """The text of a program's error box, once it has come and was answered."""
        text = wait_until("the error box", lambda: self.error_labels(songbin))[0].name
        boxes = [window for window in songbin.windows(MAIN) if window.role == "alert"]
        steady("its button", lambda: last_of(boxes[0].find_all(BUTTON, "OK"))).click()
        wait_until("the error box to go", lambda: not self.error_labels(songbin))
        return text

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
