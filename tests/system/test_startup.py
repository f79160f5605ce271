"""Starting and leaving: first run, settings that return, what goes wrong at start, no display."""

import os
import re
import stat
import subprocess
import time
import unittest
from pathlib import Path

from harness import EXECUTABLE, SongbinTest, wait_until

from songbin import BUTTON, FIRST_RUN, MAIN, SEARCH, TIP

TIP_BOX = "Show Tips at Startup"


class FirstRun(SongbinTest):
    def test_first_run_copies_the_template_and_the_second_run_says_nothing(self):
        songbin = self.songbin()
        template = (songbin.program / "Songbin.dat").read_bytes()
        songbin.start()
        box = songbin.window(FIRST_RUN)
        told = " ".join(label.name for label in box.find_all("label"))
        self.assertIn("This is the first time you run Songbin, database bill be generated.", told)
        self.assertFalse(songbin.archive.exists(), "the archive was there before the box was answered")
        songbin.answer_first_run()
        songbin.window(TIP)
        self.assertEqual(songbin.archive.read_bytes(), template)
        songbin.close_tip()
        self.assertEqual(songbin.close_main(), 0)

        songbin.start()
        songbin.window(MAIN)
        songbin.window(TIP)
        self.assertEqual(songbin.windows(FIRST_RUN), [])
        songbin.close_tip()
        self.assertEqual(songbin.close_main(), 0)
        self.assertEqual(songbin.archive.read_bytes(), template)

    def test_tip_lies_over_the_main_window(self):
        songbin = self.songbin()
        songbin.start()
        songbin.answer_first_run()
        songbin.window(MAIN)
        songbin.window(TIP)
        time.sleep(1)  # whoever comes up late, lies on top
        self.assertEqual(self.session.stacking(), [MAIN, TIP])

    def test_an_archive_that_is_damaged_is_left_alone(self):
        songbin = self.songbin()
        songbin.archive.write_bytes(b"not an archive")
        songbin.start()
        songbin.window(MAIN)
        songbin.window(TIP)
        self.assertEqual(songbin.windows(FIRST_RUN), [])
        songbin.close_tip()
        self.assertEqual(songbin.close_main(), 0)
        self.assertEqual(songbin.archive.read_bytes(), b"not an archive")

    def test_missing_template_stops_the_program(self):
        songbin = self.songbin()
        (songbin.program / "Songbin.dat").unlink()
        songbin.start()
        songbin.answer_first_run()
        box = songbin.window(MAIN)
        told = " ".join(label.name for label in box.find_all("label"))
        self.assertRegex(told, r"Run-time error '\d+'")
        box.find(BUTTON, "OK").click()
        self.assertEqual(songbin.wait_exit(), 1)
        self.assertFalse(songbin.archive.exists())


class Settings(SongbinTest):
    def start(self, songbin):
        """A later start, up to the main window without the tip."""
        songbin.start_to_main(first_run=not songbin.archive.exists())

    def maximise(self, songbin):
        self.session.wmctrl(MAIN, "-b", "add,maximized_vert,maximized_horz")
        wait_until("the main window to be maximised", lambda: self.session.maximised(MAIN))

    def restore(self, songbin):
        self.session.wmctrl(MAIN, "-b", "remove,maximized_vert,maximized_horz")
        wait_until("the main window to be normal", lambda: not self.session.maximised(MAIN))

    def test_window_state_returns_after_closing(self):
        songbin = self.songbin()
        self.start(songbin)
        self.assertFalse(self.session.maximised(MAIN), "maximised without ever having been stored")
        self.maximise(songbin)
        self.assertEqual(songbin.close_main(), 0)
        self.start(songbin)
        wait_until("the main window to come up maximised", lambda: self.session.maximised(MAIN))
        self.restore(songbin)
        self.assertEqual(songbin.close_main(), 0)
        self.start(songbin)
        self.assertFalse(self.session.maximised(MAIN))

    def test_leaving_without_closing_keeps_the_old_settings(self):
        ways = {
            "Exit": lambda songbin: songbin.menu("Program", "Exit"),
            "Quit": lambda songbin: songbin.press(MAIN, "Quit Songbin"),
        }
        for way, leave in ways.items():
            with self.subTest(way=way):
                songbin = self.songbin(way)
                self.start(songbin)
                self.maximise(songbin)
                self.assertEqual(songbin.close_main(), 0)
                self.start(songbin)
                self.restore(songbin)
                leave(songbin)
                self.assertEqual(songbin.wait_exit(), 0)
                self.start(songbin)
                wait_until("the stored state", lambda: self.session.maximised(MAIN))
                songbin.stop()

    def test_drive_of_the_last_scan_returns(self):
        for letter in "EF":
            (self.place / letter).mkdir()
        songbin = self.songbin(drives={"E": (self.place / "E", "ONE"), "F": (self.place / "F", "TWO")})
        self.start(songbin)
        songbin.open_search()
        self.assertEqual(songbin.search_string(), "C:\\*.MP3")
        songbin.choose_drive("F")
        wait_until("the search string of drive F", lambda: songbin.search_string() == "F:\\*.MP3")
        songbin.press(SEARCH, "Cancel")
        songbin.wait_gone(SEARCH)
        self.assertEqual(songbin.close_main(), 0)
        self.start(songbin)
        songbin.open_search()
        self.assertEqual(songbin.search_string(), "F:\\*.MP3")

    def test_tips_can_be_switched_off_and_on(self):
        songbin = self.songbin()
        songbin.start()
        songbin.answer_first_run()
        songbin.raise_tip()
        box = songbin.window(TIP).find("check box", TIP_BOX)
        self.assertTrue(box.has_state("checked"))
        box.click()
        wait_until("the box to be unchecked", lambda: not box.has_state("checked"))
        songbin.close_tip()
        songbin.menu("Program", "Exit")
        self.assertEqual(songbin.wait_exit(), 0)

        songbin.start()
        songbin.window(MAIN)
        self.assert_stays_away(songbin, TIP)
        songbin.menu("Tools", "Show Tip Of The Day")
        songbin.menu("Program", "Exit")
        self.assertEqual(songbin.wait_exit(), 0)

        songbin.start()
        songbin.window(TIP)


class ReadOnly(SongbinTest):
    # Root may write anywhere until it gives up that right.
    WITHOUT_RIGHTS = ["setpriv", "--inh-caps=-all", "--bounding-set=-all"] if os.geteuid() == 0 else []

    def test_archive_moves_to_the_users_data(self):
        songbin = self.songbin()
        template = (songbin.program / "Songbin.dat").read_bytes()
        beside = sorted(os.listdir(songbin.program))
        self.forbid_writing(songbin.program)
        songbin.start_to_main(wrapper=self.WITHOUT_RIGHTS)
        self.assertEqual(songbin.close_main(), 0)
        archive = songbin.home / ".local/share/Songbin/Songbin.mdb"
        self.assertEqual(archive.read_bytes(), template)
        self.assertTrue(archive.stat().st_mode & stat.S_IWUSR, "the archive itself is read-only")
        self.assertEqual(sorted(os.listdir(songbin.program)), beside)

        songbin.start_to_main(first_run=False, wrapper=self.WITHOUT_RIGHTS)
        self.assertEqual(songbin.windows(FIRST_RUN), [])
        self.assertEqual(songbin.close_main(), 0)

    def forbid_writing(self, directory):
        for entry in directory.iterdir():
            entry.chmod(0o444)
        directory.chmod(0o555)
        self.addCleanup(directory.chmod, 0o755)
        touched = subprocess.run([*self.WITHOUT_RIGHTS, "touch", directory / "probe"], check=False,
                                 stderr=subprocess.DEVNULL)
        self.assertNotEqual(touched.returncode, 0, "the directory can still be written: nothing would be tested")


class Loading(SongbinTest):
    def test_what_plays_is_not_loaded_at_start(self):
        self.assertTrue(EXECUTABLE.with_name("songbin-media.so").is_file())
        songbin = self.songbin()
        songbin.start_to_main()
        mapped = Path(f"/proc/{songbin.process.pid}/maps").read_text(encoding="utf-8")
        self.assertIn("libQt6Widgets", mapped)
        for library in ("songbin-media", "libgstreamer", "libpulse"):
            self.assertNotIn(library, mapped)


class CommandLine(unittest.TestCase):
    def answer(self, *words):
        env = {"PATH": os.environ["PATH"], "HOME": "/nonexistent", "LC_ALL": "C.UTF-8"}
        env |= {k: v for k, v in os.environ.items() if k.endswith("SAN_OPTIONS")}
        return subprocess.run([EXECUTABLE, *words], env=env, stdin=subprocess.DEVNULL, capture_output=True,
                              text=True, timeout=30, check=False)

    def test_help_without_a_display(self):
        done = self.answer("--help")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertIn("Songbin", done.stdout)
        self.assertIn("--version", done.stdout)

    def test_version_without_a_display(self):
        done = self.answer("--version")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertRegex(done.stdout, re.compile(r"^Songbin \d+\.\d+\.\d+$"))

    def test_what_it_does_not_know_is_told_and_nothing_starts(self):
        for words in (["--nonsense"], ["-x", "a.mp3"], ["a.mp3", "b.mp3"], ["--check-skin"]):
            done = self.answer(*words)
            self.assertEqual((done.returncode, done.stdout), (2, ""), words)
            self.assertRegex(done.stderr, r"\ASongbin: .+\n.*--help")


if __name__ == "__main__":
    unittest.main(verbosity=2)
