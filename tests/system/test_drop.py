"""Files dragged out of another program and dropped on the player."""

import os
import time
import unittest
import zipfile
from pathlib import Path

from harness import wait_until
from playertest import PLAYER, PlayerTest, write_song

SOURCE = Path(os.environ["DRAGSOURCE"])


class Drop(PlayerTest):
    def drop(self, songbin, *files):
        source = self.session.spawn("dragsource", [str(SOURCE), *map(str, files)])
        begin = self.middle_of("Drag source", source)
        self.session.xdotool("mousemove", *map(str, begin), "mousedown", "1")
        x, y, width, height = self.where(songbin)
        target = (x + width // 2, y + 12)
        for step in range(1, 11):  # the other program is told of each
            place = [str(a + (b - a) * step // 10) for a, b in zip(begin, target)]
            self.session.xdotool("mousemove", *place)
            time.sleep(0.05)
        wait_until("the player to take it", lambda: self.session.log("dragsource").endswith("taken"))
        self.session.xdotool("mouseup", "1")

    def middle_of(self, title, process):
        self.session.wmctrl(title, "-e", "0,20,560,-1,-1")
        told = self.session.output(["xdotool", "getwindowgeometry", "--shell",
                                    self.session.window_id(title, process)])
        values = dict(line.split("=") for line in told.split())
        return int(values["X"]) + int(values["WIDTH"]) // 2, int(values["Y"]) + int(values["HEIGHT"]) // 2

    def test_a_song_is_added(self):
        songbin = self.player()
        write_song(songbin.home / "Dropped.wav", 30)
        self.drop(songbin, songbin.home / "Dropped.wav")
        wait_until("the dropped song in the list",
                   lambda: any(item.name == "Dropped" for item in songbin.window(PLAYER).find_all("list item")))

    def test_a_packed_set_becomes_the_look(self):
        songbin = self.player()
        packed = songbin.home / "Gold.wsz"
        with zipfile.ZipFile(packed, "w") as archive:
            for picture in (songbin.program / "classic").iterdir():
                archive.write(picture, picture.name)
        before = self.where(songbin)[2:]
        self.drop(songbin, packed)
        wait_until("the classic size", lambda: self.where(songbin)[2:] != before and self.where(songbin)[2] == 275)
        self.assertEqual(self.where(songbin)[3] % 116, 0)

    def test_what_is_no_set_leaves_the_look(self):
        songbin = self.player()
        (songbin.home / "Broken.wsz").write_bytes(b"no archive at all")
        before = self.where(songbin)[2:]
        self.drop(songbin, songbin.home / "Broken.wsz")
        wait_until("a word about it", lambda: any("Broken" in label.name for window in self.session.top_windows()
                                                  for label in window.find_all("label")))
        self.assertEqual(self.where(songbin)[2:], before)


if __name__ == "__main__":
    unittest.main()
