"""The player: an album is handed to it and plays in each of its skins."""

import subprocess

from session import WaitError, wait_until
from songbin import BUTTON

PLAYER = "Tonedeck"
SKINS = ("default", "compact", "light", "dark", "large")  # in the order of their buttons
SONGS = (("Harbour Lights", "C4 E4 G4 C5 G4 E4"), ("A Walk Before Breakfast", "D4 G4 A4 D5 A4 G4"),
         ("Letters From the Coast", "A4 C5 E5 G5 E5 C5"))
ARTIST, ALBUM = "The Paper Boats", "Tides"
OPTIONS = "[tonedeckpro/config]\nUseTagCover=1\nScrollName=1\nTimeFmt=1\n"
COVER = ["-size", "400x400", "gradient:#f6a54a-#7b3f73", "-fill", "#ffe2a8", "-draw", "circle 280,170 280,115",
         "-fill", "#2c4d74", "-draw", "path 'M 0,250 q 50,-30 100,0 t 100,0 100,0 100,0 v 150 H 0 z'",
         "-fill", "#1b3354", "-draw", "path 'M 0,300 q 50,-30 100,0 t 100,0 100,0 100,0 v 100 H 0 z'",
         "-fill", "white", "-draw", "path 'M 90,225 h 130 l -25,35 h -80 z M 150,140 v 78 h -55 z'"]


def make_album(directory):
    """Songs of half a minute with tags, and a cover beside them."""
    directory.mkdir(parents=True)
    for number, (title, notes) in enumerate(SONGS, 1):
        parts = []
        for note in notes.split():
            parts.append(directory / f"{note}.wav")
            subprocess.run(["sox", "-q", "-n", "-r", "44100", "-c", "2", parts[-1], "synth", "0.5", "pluck", note,
                            "gain", "-6"], check=True)
        tune = directory / "tune.wav"
        subprocess.run(["sox", "-q", *parts, tune, "repeat", "11"], check=True)
        subprocess.run(["lame", "--quiet", "-b", "128", "--id3v1-only", "--tt", title, "--ta", ARTIST, "--tl", ALBUM,
                        tune, directory / f"{number:02}-{title}.mp3"], check=True)
        for wave in {*parts, tune}:
            wave.unlink()
    cover = directory / f"{ARTIST} - {ALBUM}.jpg"
    subprocess.run(["convert", *COVER, "-quality", "92", cover], check=True)
    return directory


def hand_over(songbin, album):
    """As a file manager would: the program that runs takes it."""
    done = subprocess.run([songbin.executable, album], env={**songbin.session.env, **songbin.env}, timeout=30, check=False)
    if done.returncode != 0:
        raise WaitError(f"the second Songbin ended with status {done.returncode}")


def shown(songbin, text):
    return any(text in label.name for label in songbin.window(PLAYER).find_all("label"))


def playing(songbin, seconds):
    wait_until(f"0:{seconds:02} on the player", lambda: any(
        label.name == f"0:{seconds:02}" for label in songbin.window(PLAYER).find_all("label")), 20)


def use_player(songbin, pictures):
    """Keys, menu and slider, in the first skin."""
    playing(songbin, 2)
    left, top, _, _ = songbin.window(PLAYER).extents
    songbin.session.xdotool("mousemove", left + 300, top + 20, "click", 3)
    songbin.session.key("Down", "Down", "Down", "Down", "Right")
    pictures.take("player-menu")
    songbin.session.key("Escape", "Escape")
    songbin.session.key("b")
    wait_until("the second song", lambda: shown(songbin, "0:01"))


def look_at_skins(songbin, pictures, album):
    """The player opens with the album, plays it in each skin and is closed."""
    hand_over(songbin, album)
    use_player(songbin, pictures)
    for skin in SKINS:
        extents = songbin.window(PLAYER).extents
        pictures.take(f"player-{skin}", PLAYER)
        songbin.control(PLAYER, BUTTON, "Next skin").click()
        if skin not in ("light", SKINS[-1]):  # its neighbour has the same size
            wait_until("the next skin", lambda before=extents: songbin.window(PLAYER).extents != before)
    songbin.control(PLAYER, BUTTON, "Close").click()
    songbin.wait_gone(PLAYER)
