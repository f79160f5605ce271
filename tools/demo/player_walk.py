"""The player in each of its skins."""

from session import wait_until
from songbin import BUTTON, MAIN

PLAYER = "Tonedeck"
SKINS = ("default", "compact", "light", "dark", "large")  # in the order of their buttons


def look_at_skins(songbin, pictures):
    """Opens the player, goes through the skins by its own button and closes it."""
    songbin.press(MAIN, "Open the Tonedeck player")
    for skin in SKINS:
        extents = songbin.window(PLAYER).extents
        pictures.take(f"player-{skin}", PLAYER)
        songbin.control(PLAYER, BUTTON, "Next skin").click()
        if skin not in ("light", SKINS[-1]):  # its neighbour has the same size
            wait_until("the next skin", lambda before=extents: songbin.window(PLAYER).extents != before)
    songbin.control(PLAYER, BUTTON, "Close").click()
    songbin.wait_gone(PLAYER)
