"""The player and what is round it: files from the command line, the desktop's controls, the end of the program."""

import subprocess
import time
import unittest

from harness import wait_until
from playertest import NAME, PLAYER, TIME, PlayerTest, write_song

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib

BUS = "org.mpris.MediaPlayer2.songbin"
PATH = "/org/mpris/MediaPlayer2"
PART = "org.mpris.MediaPlayer2.Player"


class OutsideTest(PlayerTest):
    def second(self, songbin, *arguments):
        """Starts the program once more, as its user would, and gives its exit status."""
        done = subprocess.run([songbin.executable, *arguments], env={**self.session.env, **songbin.env},
                              cwd=songbin.home, timeout=20, check=False)
        return done.returncode

    def titles(self, songbin):
        return [item.name for item in songbin.window(PLAYER).find_all("list item")]


class CommandLine(OutsideTest):
    songs = (("One", 60),)

    def test_opens_the_player_with_the_file(self):
        songbin = self.prepared(StartMd=0)
        write_song(songbin.home / "A song.wav", 30)
        songbin.start(arguments=["A song.wav"])
        songbin.window(PLAYER)
        self.wait_playing(songbin, "A song")
        self.assertEqual(self.titles(songbin), ["A song"])

    def test_a_second_start_hands_its_file_over(self):
        songbin = self.player(AutoPlay=1)
        self.wait_playing(songbin)
        write_song(songbin.home / "Later.wav", 30)
        self.assertEqual(self.second(songbin, "Later.wav"), 0)
        self.wait_playing(songbin, "Later")
        self.assertEqual(self.titles(songbin), ["One", "Later"])

    def test_a_second_start_opens_the_player_of_the_first(self):
        songbin = self.prepared()
        songbin.start()
        songbin.window("Songbin")
        self.assertEqual(self.second(songbin, str(songbin.home / "Music")), 0)
        songbin.window(PLAYER)
        self.wait_playing(songbin)
        self.assertEqual(self.titles(songbin), ["One", "One"], "the last list and the directory")

    def test_a_playlist_takes_the_place_of_the_list(self):
        songbin = self.player(ClearPLFirst=1)
        for number in (1, 2):
            write_song(songbin.home / f"Song {number}.wav", 20)
        (songbin.home / "two.m3u").write_text("Song 1.wav\nSong 2.wav\n")
        self.assertEqual(self.second(songbin, "two.m3u"), 0)
        self.wait_playing(songbin, "Song 1")
        self.assertEqual(self.titles(songbin), ["Song 1", "Song 2"])

    def test_without_a_file_it_is_a_second_program(self):
        songbin = self.player()
        process = self.session.spawn("second", [songbin.executable], env=songbin.env, cwd=songbin.home)
        wait_until("its main window", lambda: self.session.windows("Songbin", process))
        self.assertTrue(songbin.is_running())
        self.session.end(process)


class Desktop(OutsideTest):
    def setUp(self):
        super().setUp()
        self.bus = Gio.DBusConnection.new_for_address_sync(
            self.session.env["DBUS_SESSION_BUS_ADDRESS"],
            Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION,
            None, None)
        self.addCleanup(self.bus.close_sync)

    def call(self, name, path, part, method, arguments=None):
        return self.bus.call_sync(name, path, part, method, arguments, None, Gio.DBusCallFlags.NO_AUTO_START,
                                  5000, None).unpack()

    def names(self):
        found, = self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "ListNames")
        return [name for name in found if name.startswith(BUS)]

    def ask(self, method, arguments=None):
        return self.call(BUS, PATH, PART, method, arguments)

    def value(self, name):
        return self.call(BUS, PATH, "org.freedesktop.DBus.Properties", "Get",
                         GLib.Variant("(ss)", (PART, name)))[0]

    def wait_value(self, name, wanted):
        wait_until(f"{name} to be {wanted}", lambda: self.value(name) == wanted)

    def test_the_desktop_plays_and_knows_what(self):
        songbin = self.player()
        wait_until("its name on the bus", self.names)
        self.assertEqual(self.value("PlaybackStatus"), "Stopped")
        self.ask("Play")
        self.wait_playing(songbin)
        self.assertEqual(self.value("PlaybackStatus"), "Playing")
        facts = self.value("Metadata")
        self.assertEqual(facts["xesam:title"], "One")
        self.assertEqual(facts["mpris:length"], 60_000_000)
        self.assertTrue(facts["xesam:url"].endswith("/Music/One.wav"), facts)
        self.ask("Next")
        self.wait_label(songbin, NAME, "Two")
        self.ask("Previous")
        self.wait_label(songbin, NAME, "One")
        self.ask("PlayPause")
        self.wait_value("PlaybackStatus", "Paused")
        self.ask("PlayPause")
        self.wait_value("PlaybackStatus", "Playing")
        self.ask("Seek", GLib.Variant("(x)", (30_000_000,)))
        wait_until("half a minute", lambda: self.value("Position") >= 30_000_000)
        self.ask("Stop")
        self.wait_value("PlaybackStatus", "Stopped")
        self.wait_label(songbin, TIME, "0:00")

    def test_jumps_are_told_and_the_course_of_time_is_not(self):
        songbin = self.player(AutoPlay=1)
        self.wait_playing(songbin)
        told = []
        self.bus.signal_subscribe(None, PART, "Seeked", PATH, None, Gio.DBusSignalFlags.NONE,
                                  lambda *signal: told.append(signal[5].unpack()[0]))
        self.watch(2)
        self.assertEqual(told, [])
        self.ask("Seek", GLib.Variant("(x)", (20_000_000,)))
        self.watch(1)
        self.assertEqual(len(told), 1)
        self.assertAlmostEqual(told[0] / 1e6, 23, delta=2.5)

    @staticmethod
    def watch(seconds):
        loop = GLib.MainLoop()
        GLib.timeout_add(int(seconds * 1000), loop.quit)
        loop.run()

    def test_covers_are_shown_to_the_desktop(self):
        songbin = self.prepared(AutoPlay=1, UseTagCover=1)
        song = songbin.home / "Music/One.mp3"
        subprocess.run(["lame", "--quiet", "--tt", "A title", "--ta", "An artist", "--tl", "An album", "--id3v1-only",
                        songbin.home / "Music/One.wav", song], check=True)
        subprocess.run(["convert", "-size", "20x20", "xc:red", songbin.home / "Music/An artist - An album.jpg"],
                       check=True)
        (songbin.program / "playlist.m3u").write_bytes(b"C:\\Music\\One.mp3\r\n")
        songbin.start()
        self.open_player(songbin)
        self.wait_playing(songbin)
        facts = self.value("Metadata")
        self.assertTrue(facts["mpris:artUrl"].endswith("/Music/An%20artist%20-%20An%20album.jpg"), facts)
        self.assertEqual((facts["xesam:title"], facts["xesam:artist"], facts["xesam:album"]),
                         ("A title", ["An artist"], "An album"))

    def test_closing_the_player_leaves_no_sound_and_no_name(self):
        songbin, tape = self.recorded()
        wait_until("its name on the bus", self.names)
        songbin.window(PLAYER)
        self.session.key("q")
        songbin.wait_gone(PLAYER)
        wait_until("the name to go", lambda: not self.names())
        length = tape.stat().st_size
        time.sleep(1)
        self.assertEqual(tape.stat().st_size, length)
        self.assertTrue(songbin.is_running())
        self.assertEqual(songbin.close_main(), 0)

    def test_closing_the_main_window_ends_it_all_and_keeps_the_list(self):
        songbin, tape = self.recorded()
        songbin.window(PLAYER).find("list item", "Two").click()
        self.session.key("Delete")
        wait_until("an entry less", lambda: len(self.titles(songbin)) == 3)
        self.assertEqual(songbin.close_main(), 0)
        self.assertEqual(self.names(), [])
        self.assertEqual((songbin.program / "playlist.m3u").read_bytes(),
                         b"C:\\Music\\One.wav\r\nC:\\Music\\Three.wav\r\nC:\\Music\\Two.wav\r\n")

    def recorded(self, env=None, **settings):
        """A player that plays onto a file, which grows."""
        tape = self.place / "tape"
        sink = "audioconvert ! audio/x-raw,format=S16LE,channels=1 ! fdsink fd=7 sync=true"
        songbin = self.prepared(env={"SONGBIN_AUDIO_SINK": sink, "TAPE": str(tape)} | (env or {}), AutoPlay=1)
        songbin.start(wrapper=["sh", "-c", 'exec "$0" "$@" 7>>"$TAPE"'], arguments=["Music/Two.wav"])
        wait_until("sound on the tape", lambda: tape.exists() and tape.stat().st_size > 10000)
        return songbin, tape

    def test_without_a_bus_it_plays_all_the_same(self):
        songbin, _ = self.recorded(env={"DBUS_SESSION_BUS_ADDRESS": "unix:path=/nowhere"})
        self.assertTrue(self.session.window_ids(PLAYER, songbin.process))
        self.assertEqual(self.names(), [])
        self.assertEqual(self.session.log(songbin.output), "")


if __name__ == "__main__":
    unittest.main()
