"""What the player keeps: through a kill, an end without closing it, and files that cannot be read or saved."""

import signal
import time
import unittest

from harness import wait_until
from playertest import BUTTONS, CLOSE, NAME, PLAYER, PlayerTest, write_song

SOON = 2.0  # after a change it is saved


class Keeps(PlayerTest):
    def kept(self, songbin):
        return (songbin.program / "playlist.m3u").read_bytes()

    def settings(self, songbin):
        return songbin.home / ".config/Songbin/settings.conf"

    def stored(self, songbin, key):
        for line in self.settings(songbin).read_text().splitlines():
            if line.startswith(f"{key}="):
                return line.partition("=")[2]
        return None

    def titles(self, songbin):
        return [item.name for item in songbin.window(PLAYER).find_all("list item")]

    def add(self, songbin, title="Four"):
        """A song from outside: it is played and stands at the end."""
        file = songbin.home / "Music" / f"{title}.wav"
        write_song(file, 30)
        process = self.session.spawn("second", [songbin.executable, file], env=songbin.env, cwd=songbin.home)
        self.addCleanup(self.session.end, process)
        self.wait_playing(songbin, title)

    def test_a_kill_loses_no_more_than_two_seconds(self):
        songbin = self.player(WinSavePos=1)
        self.add(songbin)
        self.drag(self.at(songbin, 150, 80), (150 + 200, 80 + 120))
        wait_until("its new place", lambda: self.where(songbin)[:2] == (200, 120))
        time.sleep(SOON + 1)
        songbin.process.kill()
        songbin.process.wait()
        songbin.start()
        self.open_player(songbin)
        self.assertEqual(self.titles(songbin), ["One", "Two", "Three", "Four"])
        self.assertEqual(self.stored(songbin, "LastTrack"), "4")
        self.assertEqual(self.where(songbin)[:2], (200, 120))
        self.assertEqual([f.name for f in songbin.program.glob(".songbin-new*")], [])

    def test_the_end_of_the_program_keeps_what_has_just_changed(self):
        for how in ("SIGTERM", "main window"):
            songbin = self.prepared(name=how)
            songbin.start()
            self.open_player(songbin)
            self.add(songbin)
            if how == "SIGTERM":
                songbin.process.send_signal(signal.SIGTERM)
                songbin.wait_exit()
            else:
                self.assertEqual(songbin.close_main(), 0)
            self.assertIn(b"Four.wav", self.kept(songbin), how)
            self.assertEqual(self.stored(songbin, "LastTrack"), "4", how)

    def test_a_list_that_cannot_be_read_is_not_written_over(self):
        songbin = self.prepared()
        file = songbin.program / "playlist.m3u"
        before = self.kept(songbin)
        file.rename(songbin.program / "aside")
        file.symlink_to("/proc/self/mem")  # reading it is an error of the disk
        songbin.start()
        self.open_player(songbin)
        wait_until("the line that says so", lambda: any(
            "playlist.m3u could not be read" in shown.name for shown in songbin.window(PLAYER).walk()), 5)
        file.unlink()
        (songbin.program / "aside").rename(file)
        self.click_button(songbin, CLOSE)
        songbin.wait_gone(PLAYER)
        self.assertEqual(self.kept(songbin), before)
        self.open_player(songbin)
        self.assertEqual(self.titles(songbin), ["One", "Two", "Three"])

    def test_settings_that_cannot_be_read_are_not_written_over(self):
        songbin = self.prepared(WinSnap=1, LastTrack=3)
        file = self.settings(songbin)
        before = file.read_bytes()
        aside = file.with_name("aside")
        file.rename(aside)
        file.symlink_to("/proc/self/mem")
        songbin.start_to_main(first_run=False)
        self.open_player(songbin)
        file.unlink()
        aside.rename(file)
        time.sleep(SOON + 1)
        songbin.raise_window(PLAYER)
        self.assertEqual(songbin.close_main(), 0)
        self.assertEqual(file.read_bytes(), before)
        self.assertIn(b"Three.wav", self.kept(songbin))

    def test_a_save_that_fails_leaves_the_old_list(self):
        songbin = self.player()
        (songbin.program / f".songbin-new-{songbin.program.stat().st_uid}").mkdir()  # where the new one would go
        before = self.kept(songbin)
        self.add(songbin)
        wait_until("the line that says so", lambda: any(
            "could not be saved" in shown.name for shown in songbin.window(PLAYER).walk()), 6)
        self.click_button(songbin, CLOSE)
        box = songbin.window("Songbin", 5)
        wait_until("the message", lambda: any(
            "Unable to write Playlist! Is the file read-only?" in shown.name
            for window in songbin.windows("Songbin") for shown in window.walk()), 5)
        self.assertIsNotNone(box)
        self.assertEqual(self.kept(songbin), before)


if __name__ == "__main__":
    unittest.main(verbosity=2)
