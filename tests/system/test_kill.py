"""The program is killed in the middle of a large import: the archive stays sound, and one file."""

import contextlib
import random
import re
import shutil
import signal
import sqlite3
import time
import unittest

from harness import SongbinTest, wait_until

import disk
from songbin import RESULT

FILES = 20_000
DIRECTORIES = 100
VOLUME = "BIG_01"
ROUNDS = 5
TRIES = 15  # a kill can come before the first row or after the last; such a round does not count

INSERTING = re.compile(r"^Inserting\.\.\. ")


def make_big_disk(root):
    """Files with names of their own and without tags, a little longer than the scanner passes over unread."""
    content = bytes(300)
    for directory in range(DIRECTORIES):
        place = root / f"Kasse {directory:03}"
        place.mkdir(parents=True)
        for number in range(FILES // DIRECTORIES):
            serial = directory * (FILES // DIRECTORIES) + number
            (place / f"Artist_{directory} - Låt_{serial:05}.mp3").write_bytes(content)
    return root


class Kill(SongbinTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.disk = make_big_disk(cls.directory / "disk")
        cls.expected = disk.expected_rows(cls.disk, "D", VOLUME)
        cls.random = random.Random()

    def started(self, name):
        """A program on an empty archive of its own, with the big disk scanned."""
        songbin = self.songbin(name, drives={"D": (self.disk, VOLUME)})
        shutil.copyfile(songbin.program / "Songbin.dat", songbin.archive)
        songbin.start_to_main(first_run=False)
        songbin.scan("D", FILES, limit=300)
        return songbin

    def reported(self, songbin):
        """The values that the progress label shows, None while it shows none."""
        for window in self.session.windows(RESULT):
            for label in window.find_all("label", INSERTING):
                return INSERTING.sub("", label.name)
        return None

    def reopen(self, archive):
        """Reads the archive as the next start would find it."""
        with contextlib.closing(sqlite3.connect(archive)) as connection:
            self.assertEqual(connection.execute("PRAGMA integrity_check").fetchall(), [("ok",)])
        self.assertEqual([f.name for f in archive.parent.glob("Songbin.mdb*")], ["Songbin.mdb"])
        return disk.archive_rows(archive)

    def test_kill_at_a_random_moment(self):
        whole, duration = self.full_import()
        self.assertEqual(sorted(whole), self.expected)
        partial = 0
        for attempt in range(TRIES):
            rows = self.killed_import(f"round-{attempt}", duration, whole)
            partial += 0 < len(rows) < FILES
            if partial == ROUNDS:
                return
        self.fail(f"only {partial} of {TRIES} kills came in the middle of the import")

    def full_import(self):
        """The rows of an import that nobody disturbs, and how long it took."""
        songbin = self.started("whole")
        begin = time.monotonic()
        songbin.update()
        self.assertIn(f"{FILES} Records is added", songbin.added_message(limit=300))
        duration = time.monotonic() - begin
        songbin.stop()
        return self.reopen(songbin.archive), duration

    def killed_import(self, name, duration, whole):
        songbin = self.started(name)
        songbin.update()
        end = time.monotonic() + self.random.uniform(0, duration)
        last = None
        while time.monotonic() < end:
            last = self.reported(songbin) or last
        songbin.process.send_signal(signal.SIGKILL)
        wait_until("the killed program to be gone", lambda: not songbin.is_running())
        self.assertEqual(songbin.process.returncode, -signal.SIGKILL)
        rows = self.reopen(songbin.archive)
        self.assertTrue(rows == whole[:len(rows)], "the archive does not hold the first rows of the import")
        if last is not None:
            stored = {", ".join(f"'{value}'" for value in row) for row in rows}
            self.assertTrue(last in stored, f"the window had reported {last}, and it is not in the archive")
        return rows


if __name__ == "__main__":
    unittest.main(verbosity=2)
