"""A scan as it is lived through: slow disks, windows that stand over others, odd names and places."""

import os
import shutil
import subprocess
import time
import unittest
from pathlib import Path

from harness import EXECUTABLE, SongbinTest, wait_until

import disk
from songbin import ADDED, EDITOR, MAIN, RESULT, SEARCH, TIP

# Every file of music takes a while to open, as on a worn disk.
SLOW_DISK = r"""
#define _GNU_SOURCE
#include <dlfcn.h>
#include <fcntl.h>
#include <stdarg.h>
#include <string.h>
#include <unistd.h>

int openat(int directory, const char *name, int flags, ...)
{
    static int (*real)(int, const char *, int, ...);
    if (!real)
        real = dlsym(RTLD_NEXT, "openat");
    va_list rest;
    va_start(rest, flags);
    const int mode = (flags & O_CREAT) ? va_arg(rest, int) : 0;
    va_end(rest);
    const char *end = strrchr(name, '.');
    if (end && strcmp(end, ".mp3") == 0)
        usleep(40000);
    return real(directory, name, flags, mode);
}
"""


class ScanTest(SongbinTest):
    def made_disk(self, files, directory="."):
        place = self.place / "disk" / directory
        place.mkdir(parents=True, exist_ok=True)
        for number in range(files):
            (place / f"Artist - Song {number:03}.mp3").write_bytes(b"\xff\xfb\x90\x00" * 100)
        return self.place / "disk"

    def label(self, songbin, beginning):
        return [one.name for window in songbin.windows(RESULT) for one in window.find_all("label")
                if one.name.startswith(beginning)]


class SlowDisk(ScanTest):
    files = 200

    def scanning(self):
        source = self.place / "slow.c"
        source.write_text(SLOW_DISK)
        shim = self.place / "slow.so"
        subprocess.run(["cc", "-shared", "-fPIC", "-o", shim, source, "-ldl"], check=True, timeout=60)
        songbin = self.songbin(drives={"D": (self.made_disk(self.files), "SLOW")}, env={"LD_PRELOAD": str(shim)})
        songbin.start_to_main()
        songbin.open_search()
        songbin.choose_drive("D")
        songbin.press(SEARCH, "Scan")
        x_id = self.session.window_id(RESULT, songbin.process)
        return songbin, x_id

    def picture_of_label(self, x_id):
        """What is on the screen where the count stands; the program itself is too busy to be asked."""
        done = subprocess.run(["import", "-window", x_id, "-crop", "500x40+0+515", "rgb:-"], env=self.session.env,
                              capture_output=True, timeout=20, check=True)
        return done.stdout

    def test_the_count_is_seen_to_grow_within_a_directory(self):
        _, x_id = self.scanning()
        pictures = set()
        end = time.monotonic() + 5
        while time.monotonic() < end:
            pictures.add(self.picture_of_label(x_id))
            time.sleep(0.3)
        self.assertGreater(len(pictures), 4, "one picture for each count that was painted")

    def test_cancel_is_obeyed_in_the_middle_of_a_directory(self):
        songbin, x_id = self.scanning()
        time.sleep(1)
        begin = time.monotonic()
        subprocess.run(["wmctrl", "-i", "-c", x_id], env=self.session.env, timeout=10, check=True)
        wait_until("the result to go", lambda: not self.session.window_ids(RESULT, songbin.process), 5.0, 0.02)
        self.assertLess(time.monotonic() - begin, 2.5, f"not after all of {self.files} files")
        songbin.window(MAIN)

    def test_a_signal_ends_the_program_in_the_middle_of_a_directory(self):
        songbin, _ = self.scanning()
        time.sleep(1)
        songbin.process.terminate()
        self.assertEqual(songbin.wait_exit(3.0), 128 + 15)


class Above(ScanTest):
    def test_the_cell_editor_stays_over_the_result(self):
        songbin = self.songbin(drives={"D": (self.made_disk(3), "ROCK_01")})
        songbin.start_to_main()
        grid = songbin.scan("D", 3)
        grid.show_cell(0, 2).click(times=2)
        songbin.window(EDITOR)
        self.session.raise_window(RESULT, songbin.process)
        self.assertEqual(self.session.stacking()[-2:], [RESULT, EDITOR])

    def test_the_tip_stays_over_the_main_window(self):
        songbin = self.songbin()
        songbin.start()
        songbin.answer_first_run()
        songbin.window(TIP)
        songbin.window(MAIN)
        self.session.raise_window(MAIN, songbin.process)
        self.assertEqual(self.session.stacking(), [MAIN, TIP])


class OddNames(ScanTest):
    def test_a_disk_whose_name_has_an_apostrophe_is_stored(self):
        songbin = self.songbin(drives={"D": (self.made_disk(2), "DJ's MIX")})
        songbin.start_to_main()
        songbin.scan("D", 2)
        self.assertTrue(self.label(songbin, 'The disk is called "DJ\'s MIX".'))
        songbin.update()
        self.assertIn("2 Records is added to Songbin", songbin.added_message())
        songbin.press(ADDED, "OK")
        self.assertEqual([row[0] for row in disk.archive_rows(songbin.archive)], ["DJ-s MIX"] * 2)

    def test_directories_linked_crosswise_are_scanned_once(self):
        for number in range(9):
            root = self.made_disk(1, f"d{number}")
            for other in range(9):
                (root / f"d{number}" / f"to{other}").symlink_to(f"../d{other}")
        songbin = self.songbin(drives={"D": (root, "LINKS")})
        songbin.start_to_main()
        songbin.scan("D", 9, limit=10)

    def test_an_empty_result_says_why(self):
        (self.made_disk(0) / "notes.txt").write_text("no music")
        songbin = self.songbin(drives={"D": (self.place / "disk", "EMPTY")})
        songbin.start_to_main()
        songbin.scan("D", 0)
        wait_until("the reason", lambda: self.label(songbin, 'There is 1 file in D:\\, such as "notes.txt"'))

    def test_a_program_directory_whose_name_is_no_text(self):
        songbin = self.songbin()
        odd = Path(os.fsdecode(os.fsencode(self.place) + b"/m\xfcsik"))
        songbin.program.rename(odd)
        songbin.program = odd
        songbin.env["SONGBIN_HOME"] = str(odd)
        songbin.start_to_main()
        self.assertTrue(songbin.archive.exists())
        self.assertEqual(songbin.close_main(), 0)
        for name in ("Songbin", "songbin-media.so"):  # and the executable's own
            shutil.copy2(EXECUTABLE.parent / name, odd)
        songbin.executable = odd / "Songbin"
        del songbin.env["SONGBIN_HOME"]
        songbin.start_to_main(first_run=False)
        self.assertEqual(songbin.close_main(), 0)


if __name__ == "__main__":
    unittest.main()
