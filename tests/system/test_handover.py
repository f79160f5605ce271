"""Songbin FILE: the program that runs on this display plays it, and without one the program that starts."""

import os
import shutil
import signal
import subprocess
import time
import unittest
import wave
from pathlib import Path

from harness import EXECUTABLE, SongbinTest, wait_until

from songbin import FIRST_RUN, MAIN

PLAYER = "Tonedeck"
PATIENCE = 2.0  # what a second start gives a program that does not answer


class HandOver(SongbinTest):
    def setUp(self):
        super().setUp()
        self.file = self.place / "a song.wav"
        with wave.open(str(self.file), "wb") as sound:
            sound.setparams((1, 2, 8000, 0, "NONE", ""))
            sound.writeframes(bytes(2 * 8000 * 60))

    def program(self, name="songbin", first_run=False):
        songbin = self.songbin(name, env={"SONGBIN_AUDIO_SINK": "fakesink sync=true"})
        if not first_run:
            settings = songbin.home / ".config/Songbin"
            settings.mkdir(parents=True)
            (settings / "settings.conf").write_text("[Songbin/Options]\nShow Tips at Startup=0\n")
            shutil.copy(songbin.program / "Songbin.dat", songbin.program / "Songbin.mdb")
        return songbin

    def second_start(self, songbin, *words, cwd=None):
        """The status of a start that is over, or None for one that became a program."""
        process = self.session.spawn("second", [EXECUTABLE, *words], env=songbin.env, cwd=cwd or self.place)
        self.addCleanup(self.session.end, process)
        try:
            return process.wait(PATIENCE + 3)
        except subprocess.TimeoutExpired:
            return None

    def assert_plays(self, songbin, file=None):
        wanted = str(file or self.file)

        def is_open():
            links = Path(f"/proc/{songbin.process.pid}/fd")
            return any(os.path.realpath(link) == wanted for link in links.iterdir())
        wait_until(f"{wanted} to be played", is_open)

    def test_the_running_program_plays_it(self):
        songbin = self.program()
        songbin.start()
        songbin.window(MAIN)
        begin = time.monotonic()
        self.assertEqual(self.second_start(songbin, self.file), 0)
        self.assertLess(time.monotonic() - begin, PATIENCE, "it was not just handed over")
        songbin.window(PLAYER)
        self.assert_plays(songbin)
        self.assertEqual(songbin.close_main(), 0)

    def test_relative_names_and_addresses(self):
        songbin = self.program()
        songbin.start()
        songbin.window(MAIN)
        self.assertEqual(self.second_start(songbin, "--", self.file.name), 0)
        self.assert_plays(songbin)
        other = shutil.copy(self.file, self.place / "-other.wav")
        self.assertEqual(self.second_start(songbin, other.as_uri()), 0)
        self.assert_plays(songbin, other)

    def test_without_a_running_program_the_first_one_plays_it(self):
        songbin = self.program()
        songbin.start(arguments=[self.file])
        songbin.window(MAIN)
        songbin.window(PLAYER)
        self.assert_plays(songbin)

    def test_a_program_that_asks_something_takes_it_and_plays_it_afterwards(self):
        songbin = self.program(first_run=True)
        songbin.start()
        songbin.window(FIRST_RUN)
        self.assertEqual(self.second_start(songbin, self.file), 0)
        self.assert_stays_away(songbin, PLAYER)
        songbin.answer_first_run()
        songbin.window(PLAYER)
        self.assert_plays(songbin)

    def test_a_program_that_hangs_does_not_lose_the_file(self):
        hanging = self.program("hanging")
        hanging.start()
        hanging.window(MAIN)
        hanging.process.send_signal(signal.SIGSTOP)
        self.addCleanup(hanging.process.send_signal, signal.SIGCONT)
        other = self.program("other")
        other.start(arguments=[self.file])
        other.window(PLAYER, limit=90)  # each look asks the hanging one too, and waits for it in vain
        self.assert_plays(other)
        hanging.process.send_signal(signal.SIGCONT)
        self.assert_stays_away(hanging, PLAYER)

    def test_after_a_kill_the_next_program_listens(self):
        killed = self.program("killed")
        killed.start()
        killed.window(MAIN)
        killed.process.kill()
        killed.process.wait()
        songbin = self.program()
        songbin.start()
        songbin.window(MAIN)
        self.assertEqual(self.second_start(songbin, self.file), 0)
        self.assert_plays(songbin)

    def test_a_file_that_is_not_there_is_one_line_and_no_program(self):
        running = self.program()
        running.start()
        running.window(MAIN)
        for words in (["none.wav"], ["--", self.place / "none.wav"], ["file:///none%20at%20all.wav"]):
            done = subprocess.run([EXECUTABLE, *words], env=self.session.env | running.env, cwd=self.place,
                                  capture_output=True, text=True, timeout=10)
            self.assertEqual(done.returncode, 1)
            self.assertEqual(done.stdout, "")
            self.assertEqual(done.stderr, f"Songbin: there is no file {words[-1]}\n")
        self.assert_stays_away(running, PLAYER)

    def test_a_runtime_directory_that_appears_later_leads_to_the_first_program(self):
        songbin = self.program()
        songbin.env["XDG_RUNTIME_DIR"] = ""
        songbin.start()
        songbin.window(MAIN)
        del songbin.env["XDG_RUNTIME_DIR"]
        self.assertEqual(self.second_start(songbin, self.file), 0)
        songbin.window(PLAYER)
        self.assert_plays(songbin)

    def test_nothing_is_left_behind(self):
        songbin = self.program()
        runtime = Path(self.session.env["XDG_RUNTIME_DIR"])
        songbin.start()
        songbin.window(MAIN)
        self.assertEqual(len(list(runtime.glob("songbin-*"))), 2, "the socket and its lock")
        self.assertEqual(songbin.close_main(), 0)
        self.assertEqual(list(runtime.glob("songbin-*")), [])

    def test_a_start_without_a_file_is_a_program_of_its_own(self):
        songbin = self.program()
        songbin.start()
        songbin.window(MAIN)
        other = self.program("other")
        other.start()
        other.window(MAIN)
        self.assertTrue(songbin.is_running())


if __name__ == "__main__":
    unittest.main(verbosity=2)
