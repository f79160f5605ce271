"""The player's window as it stands on the screen."""

import random

from harness import SongbinTest

from pixels import Pixels

PLAYER = "Tonedeck"


def noise(width, height, seed):
    """No two places alike, and never black, which is the screen behind."""
    chance = random.Random(seed)
    return Pixels(width, height, bytes(chance.randrange(1, 256) for _ in range(3 * width * height)))


class PlayerOnScreen(SongbinTest):
    def where(self, songbin):
        told = self.session.output(["xdotool", "getwindowgeometry", "--shell",
                                    self.session.window_id(PLAYER, songbin.process)])
        values = dict(line.split("=") for line in told.split())
        return tuple(int(values[key]) for key in ("X", "Y", "WIDTH", "HEIGHT"))

    def shown(self, songbin):
        return Pixels.of_screen(self.session).cut(*self.where(songbin))
