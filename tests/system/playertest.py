"""What the tests of the player share: short music, a skin of noise with every kind of element, a player in it."""

import math
import shutil
import struct
import subprocess
import wave

from harness import wait_until
from playeronscreen import PLAYER, PlayerOnScreen, noise

from songbin import BUTTON, MAIN

FACE = (320, 220)
PARTS = (200, 100)
# Number: place, pressed picture, key.
# Commands, by the numbers of their buttons.
CLOSE, STOP, PAUSE, PLAY, NEXT, REMAINING_TIME = 1, 10, 11, 12, 15, 34

BUTTONS = {
    PLAY: ((10, 10, 40, 24), (0, 0), "X"),
    STOP: ((60, 10, 40, 24), (50, 30), "V"),
    PAUSE: ((110, 10, 40, 24), (90, 40), "C"),
    NEXT: ((160, 10, 40, 24), (100, 60), "B"),
    REMAINING_TIME: ((210, 10, 40, 24), (0, 70), "r"),
    CLOSE: ((260, 10, 40, 24), (120, 10), "Q"),
}
POSITION = ((20, 60, 200, 0), (150, 0, 16, 12))  # track, thumb in the parts
VOLUME = ((290, 50, 0, 100), (150, 20, 12, 16))
MIRROR = ((268, 50, 0, 100), (165, 40, 12, 16))
LIST = (20, 120, 240, 90)
TIME, NAME, NUMBER, LENGTH, PERCENT = "Lbl(1)", "Lbl(2)", "Lbl(4)", "Lbl(13)", "Lbl(18)"
SILENT = {"SONGBIN_AUDIO_SINK": "fakesink sync=true"}


def write_song(path, seconds, pitch=440):
    """A sine, as a WAV file."""
    rate = 8000
    path.parent.mkdir(parents=True, exist_ok=True)
    with wave.open(str(path), "wb") as song:
        song.setnchannels(1)
        song.setsampwidth(2)
        song.setframerate(rate)
        song.writeframes(b"".join(struct.pack("<h", int(9000 * math.sin(2 * math.pi * pitch * i / rate)))
                                  for i in range(int(rate * seconds))))


class PlayerTest(PlayerOnScreen):
    songs = (("One", 60), ("Two", 50), ("Three", 40))
    hover = 0

    def player(self, env=None, arguments=(), **settings):
        """The program with the player open in a skin of noise and the songs in its list."""
        songbin = self.prepared(env, **settings)
        songbin.start(arguments=arguments)
        self.open_player(songbin)
        return songbin

    def prepared(self, env=None, name="songbin", **settings):
        songbin = self.songbin(name, env=SILENT | (env or {}))
        self.write_skin(songbin.program)
        for title, seconds in self.songs:
            write_song(songbin.home / "Music" / f"{title}.wav", seconds)
        (songbin.program / "playlist.m3u").write_bytes(
            b"".join(f"C:\\Music\\{title}.wav\r\n".encode() for title, _ in self.songs))
        directory = songbin.home / ".config/Songbin"
        directory.mkdir(parents=True)
        skin = "Z:" + str(songbin.program / "test.skin").replace("/", "\\")
        options = {"Skin": skin, "StartMd": 1, "LastTrack": 1} | settings
        (directory / "settings.conf").write_text(
            "[Songbin/Options]\nShow Tips at Startup=0\n[tonedeckpro/config]\n" +
            "".join(f"{key}={value}\n" for key, value in options.items()))
        shutil.copy(songbin.program / "Songbin.dat", songbin.archive)
        return songbin

    def open_player(self, songbin):
        songbin.press(MAIN, "Open the Tonedeck player")
        return songbin.window(PLAYER)

    def write_skin(self, place):
        self.face = noise(*FACE, 1)
        self.parts = noise(*PARTS, 2)
        self.face.write_bmp(place / "face.bmp")
        self.parts.write_bmp(place / "parts.bmp")
        lines = [f"B{number},{','.join(map(str, area))},{x},{y},{key},{self.tip(number)}\n"
                 for number, (area, (x, y), key) in BUTTONS.items()]
        for number, (track, thumb) in ((1, POSITION), (2, VOLUME), (4, MIRROR)):
            lines.append(f"S{number},{','.join(map(str, track + thumb))},Slider {number}\n")
        for row, number in enumerate((1, 2, 4, 13, 18)):
            lines.append(f"L{number},{20 + 50 * row},90,48,16,0,0,0,9,Sans Serif,Lbl({number})\n")
        lines.append(f"X1,{','.join(map(str, LIST))},0,0,0,255,255,255,9,Sans Serif,List\n")
        (place / "test.skin").write_text(
            "Tonedeck Skin\n" + f"{FACE[0]},{FACE[1]}\n" * 3 + f"face.bmp,parts.bmp\n{self.hover},0,0,0,0,0,0,0\n" +
            "".join(lines) + "E\n")

    @staticmethod
    def tip(number):
        return f"Button {number}"

    # Looking

    def label(self, songbin, name):
        """What a label shows; labels say their names by their tool tips."""
        for label in songbin.window(PLAYER).find_all("label"):
            if label.description == name:
                return label.name
        return ""

    def seconds(self, songbin):
        text = self.label(songbin, TIME)
        if ":" not in text:
            return -1
        minutes, seconds = text.lstrip("-").split(":")
        return 60 * int(minutes) + int(seconds)

    def wait_label(self, songbin, name, wanted, limit=15.0):
        wait_until(f"'{wanted}' in {name}, which shows '{self.label(songbin, name)}'",
                   lambda: self.label(songbin, name) == wanted, limit)

    def wait_playing(self, songbin, title="One"):
        self.wait_label(songbin, NAME, title)
        wait_until("the time to run", lambda: self.seconds(songbin) >= 1)

    # Acting

    def at(self, songbin, x, y):
        left, top, _, _ = self.where(songbin)
        return left + x, top + y

    def middle(self, songbin, area):
        x, y, width, height = area
        return self.at(songbin, x + width // 2, y + height // 2)

    def point(self, songbin, x, y):
        self.session.xdotool("mousemove", *self.at(songbin, x, y))

    def click_button(self, songbin, number):
        self.session.click(*self.middle(songbin, BUTTONS[number][0]))

    def drag(self, start, end, steps=6, let_go=True):
        """With the left button, from one place of the screen to another."""
        self.session.xdotool("mousemove", *start, "sleep", "0.05", "mousedown", 1)
        for step in range(1, steps + 1):
            self.session.xdotool("mousemove", *(start[i] + (end[i] - start[i]) * step // steps for i in (0, 1)),
                                 "sleep", "0.03")
        if let_go:
            self.session.xdotool("mouseup", 1)
