"""What the media library knows of its plug-ins is looked at before something is first played."""

import os
import signal
import time
import unittest
from pathlib import Path

from harness import SongbinTest, wait_until

from songbin import FIRST_RUN

PREPARES = b"--prepare-media"


def preparing(parent):
    """The processes that `parent` has started to look at the plug-ins."""
    found = []
    for place in Path("/proc").glob("[0-9]*"):
        try:
            words = (place / "cmdline").read_bytes().split(b"\0")
            state, number = (place / "stat").read_text().rpartition(")")[2].split()[:2]
        except OSError:
            continue
        if PREPARES in words and int(number) == parent and state != "Z":
            found.append(int(place.name))
    return found


class Preparation(SongbinTest):
    def setUp(self):
        super().setUp()
        self.known = self.place / "plug-ins.bin"

    def started(self):
        songbin = self.songbin(self.id().rpartition(".")[2] + str(time.monotonic_ns()),
                               env={"GST_REGISTRY": str(self.known)})
        songbin.start()
        songbin.window(FIRST_RUN)
        return songbin

    def wait_preparing(self, songbin):
        wait_until("the plug-ins to be looked at", lambda: preparing(songbin.process.pid))
        return preparing(songbin.process.pid)[0]

    def test_the_first_start_looks_at_the_plug_ins_and_the_next_does_not(self):
        songbin = self.started()
        child = self.wait_preparing(songbin)
        wait_until("it to stand behind all others", lambda: os.getpriority(os.PRIO_PROCESS, child) == 19)
        wait_until("the plug-ins to be known", self.known.exists, 120)
        wait_until("its process to end", lambda: not preparing(songbin.process.pid))
        self.assertEqual([file.name for file in self.place.iterdir() if file.name.startswith("plug-ins")],
                         ["plug-ins.bin"])
        again = self.started()
        time.sleep(2.5)
        self.assertEqual(preparing(again.process.pid), [])

    def test_when_it_is_killed_the_next_start_looks_at_them(self):
        songbin = self.started()
        os.kill(self.wait_preparing(songbin), signal.SIGKILL)
        wait_until("its process to end", lambda: not preparing(songbin.process.pid))
        self.assertTrue(songbin.is_running())
        self.assertFalse(self.known.exists())
        songbin.stop()
        self.wait_preparing(self.started())

    def test_plug_ins_that_came_are_looked_at(self):
        plugins = self.place / "plug-ins"
        plugins.mkdir()
        self.known.write_bytes(b"of an earlier time")
        os.utime(self.known, (0, 0))
        songbin = self.songbin("changed", env={"GST_REGISTRY": str(self.known), "GST_PLUGIN_PATH": str(plugins)})
        songbin.start()
        songbin.window(FIRST_RUN)
        self.wait_preparing(songbin)
        wait_until("the plug-ins to be known", lambda: self.known.stat().st_mtime > plugins.stat().st_mtime, 120)

    def test_it_ends_with_the_program(self):
        songbin = self.started()
        child = self.wait_preparing(songbin)
        songbin.process.send_signal(signal.SIGKILL)
        wait_until("its process to end", lambda: not Path(f"/proc/{child}/cmdline").exists()
                   or PREPARES not in Path(f"/proc/{child}/cmdline").read_bytes())


if __name__ == "__main__":
    unittest.main()
