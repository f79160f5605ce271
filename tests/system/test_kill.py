"""The program is killed in the middle of a large import: the archive stays sound, and one file."""

import contextlib
import itertools
import os
import random
import re
import shutil
import signal
import sqlite3
import threading
import time
import unittest

from harness import SongbinTest, wait_until

import disk
from songbin import ADDED, RESULT

FILES = 20_000
DIRECTORIES = 100
VOLUME = "BIG_01"
ROUNDS = 5
TRIES = 15  # a kill can come before the first row or after the last; such a round does not count

INSERTING = re.compile(r"^Inserting\.\.\. ")


def make_big_disk(root):
    """Names without end for one file without a tag, a little longer than the scanner passes over unread."""
    root.mkdir()
    tone = root.parent / "tone"
    tone.write_bytes(bytes(300))
    for directory in range(DIRECTORIES):
        place = root / f"Kasse {directory:03}"
        place.mkdir()
        for number in range(FILES // DIRECTORIES):
            serial = directory * (FILES // DIRECTORIES) + number
            os.link(tone, place / f"Artist_{directory} - Låt_{serial:05}.mp3")
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

    def reopened_rows(self, songbin):
        """The rows once the program has been started again and left."""
        songbin.start_to_main(first_run=False)
        self.assertEqual(songbin.close_main(), 0)
        self.assertEqual([f.name for f in songbin.program.glob("Songbin.mdb*")], ["Songbin.mdb"])
        with contextlib.closing(sqlite3.connect(songbin.archive)) as connection:
            self.assertEqual(connection.execute("PRAGMA integrity_check").fetchall(), [("ok",)])
        return disk.archive_rows(songbin.archive)

    def test_kill_at_a_random_moment(self):
        whole, duration = self.full_import()
        self.assertEqual(sorted(whole), self.expected)
        partial = 0
        for attempt in range(TRIES):
            moment = self.random.uniform(0, duration)
            rows = self.killed_import(f"round-{attempt}", moment, whole)
            partial += 0 < len(rows) < FILES
            if len(rows) == FILES:
                duration = moment  # this import was the quicker one
            if partial == ROUNDS:
                return
        self.fail(f"only {partial} of {TRIES} kills came in the middle of the import")

    def begin_import(self, songbin):
        """Presses Update, and returns when the first rows are on their way into the file."""
        def looks():
            with contextlib.suppress(FileNotFoundError):
                return {f.name: f.stat().st_mtime_ns for f in songbin.program.glob("Songbin.mdb*")}

        before = looks()
        pressing = threading.Thread(target=songbin.update)  # its own end comes later than the import's beginning
        pressing.start()
        self.addCleanup(pressing.join)
        wait_until("the import to begin", lambda: looks() != before, pause=0.0005)
        return time.monotonic()

    def full_import(self):
        """The rows of an import that nobody disturbs, and how long it took."""
        songbin = self.started("whole")
        begin = self.begin_import(songbin)
        seen = set()
        looks = itertools.count(1)

        def ended():
            seen.update(f.name for f in songbin.program.glob("Songbin.mdb*"))
            return next(looks) % 20 == 0 and self.session.window_ids(ADDED)  # to ask for it takes long

        wait_until("the box that tells the end", ended, 300, pause=0.001)
        duration = time.monotonic() - begin
        # What mends the archive after a kill has to be in a file, and in one that goes with each commit.
        self.assertEqual(seen, {"Songbin.mdb", "Songbin.mdb-journal"})
        self.assertIn(f"{FILES} Records is added", songbin.added_message())
        songbin.stop()
        return self.reopened_rows(songbin), duration

    def killed_import(self, name, moment, whole):
        songbin = self.started(name)
        label = songbin.window(RESULT).find("label", re.compile("Items was found"))
        end = self.begin_import(songbin) + moment
        reported = None
        while time.monotonic() < end:
            reported = self.inserted(label) or reported
        songbin.process.send_signal(signal.SIGKILL)
        wait_until("the killed program to be gone", lambda: not songbin.is_running())
        self.assertEqual(songbin.process.returncode, -signal.SIGKILL)
        rows = self.reopened_rows(songbin)
        self.assertTrue(rows == whole[:len(rows)], "the archive does not hold the first rows of the import")
        if reported is not None:
            stored = {", ".join(f"'{value}'" for value in row) for row in rows}
            self.assertTrue(reported in stored, f"the window had reported {reported}, and it is not stored")
        return rows

    @staticmethod
    def inserted(label):
        """The values of the row that the progress label tells of, None while it tells something else."""
        told = label.name
        return INSERTING.sub("", told) if INSERTING.match(told) else None


if __name__ == "__main__":
    unittest.main(verbosity=2)
