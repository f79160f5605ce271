"""The player's face on the screen, pixel by pixel: what is seen is what the skin's bitmaps say, at every scale."""

import shutil
import time
import unittest

from harness import wait_until
from playeronscreen import PLAYER, PlayerOnScreen, noise

from pixels import Pixels, differences, inside_polygons
from songbin import BUTTON, MAIN

WIDTH, HEIGHT = 150, 90
BOTTOM_RIGHT = 3  # position code: away from the main window, over the bare screen
TRACK = (20, 30)
GLYPH = (9, 13)
BLANK, ONE = 10, 1


def copied(target, x, y, source):
    data = bytearray(target.data)
    for row in range(source.height):
        at = 3 * ((y + row) * target.width + x)
        data[at:at + 3 * source.width] = source.data[3 * row * source.width:3 * (row + 1) * source.width]
    return Pixels(target.width, target.height, bytes(data))


class SkinTest(PlayerOnScreen):
    def player(self, scale=1, skin="C:\\test.skin", name="songbin"):
        """The program with the player open, in a skin beside the program or in home, and the screen before."""
        songbin = self.songbin(name, env={"QT_SCALE_FACTOR": str(scale)})
        if skin and ":" not in skin:
            skin = "Z:" + str(songbin.program / skin).replace("/", "\\")
        settings = songbin.home / ".config/Songbin"
        settings.mkdir(parents=True, exist_ok=True)
        (settings / "settings.conf").write_text(
            f"[tonedeckpro/config]\nSkin={skin}\n[Songbin/Options]\nShow Tips at Startup=0\n")
        shutil.copy(songbin.program / "Songbin.dat", songbin.program / "Songbin.mdb")
        self.write_skins(songbin.home)
        songbin.start()
        x, y, width, height = songbin.control(MAIN, BUTTON, "Open the Tonedeck player").extents
        before = Pixels.of_screen(self.session)
        self.session.click(int((x + width / 2) * scale), int((y + height / 2) * scale))
        songbin.window(PLAYER)
        return songbin, before

    def write_skins(self, home):
        pass

    def assert_shows(self, songbin, expected, inside=lambda x, y: True):
        def wrong():
            return differences(self.shown(songbin), expected, inside)
        try:
            wait_until("the face", lambda: not wrong(), 5)
        except AssertionError:
            self.assertEqual(wrong(), [], "x, y, seen, expected")


class OwnSkin(SkinTest):
    """A skin of noise with a display and an outline."""

    OUTLINE = [[(0, 0), (150, 0), (150, 60), (120, 90), (0, 90)], [(70, 20), (90, 20), (90, 70), (70, 70)]]

    def setUp(self):
        super().setUp()
        self.face = noise(WIDTH, HEIGHT, 1)
        self.parts = noise(14 * GLYPH[0], GLYPH[1], 2)

    def write_skins(self, home):
        self.face.write_bmp(home / "face.bmp")
        self.parts.write_bmp(home / "parts.bmp")
        points = "".join(f"P{x},{y}\n" for polygon in self.OUTLINE for x, y in polygon)
        counts = ",".join(str(len(polygon)) for polygon in self.OUTLINE)
        total = sum(len(polygon) for polygon in self.OUTLINE)
        (home / "test.skin").write_text(
            "Tonedeck Skin\n" + f"{WIDTH},{HEIGHT}\n" * 3 + f"face.bmp,parts.bmp\n0,{BOTTOM_RIGHT},0,0,0,0,0,0\n"
            f"D2,{TRACK[0]},{TRACK[1]},0,0,{GLYPH[0]},{GLYPH[1]},4,0,0,3,Track\n"
            f"M{total},{len(self.OUTLINE)},{counts}\n{points}E\n")

    def expected(self):
        """Track 1: two blanks and the digit."""
        picture = self.face
        for place, glyph in enumerate((BLANK, BLANK, ONE)):
            cell = self.parts.cut(glyph * GLYPH[0], 0, *GLYPH)
            picture = copied(picture, TRACK[0] + place * GLYPH[0], TRACK[1], cell)
        return picture

    def test_every_pixel_at_whole_scales(self):
        for scale in (1, 2, 3):
            with self.subTest(scale=scale):
                songbin, before = self.player(scale, name=f"at {scale}")
                x, y, width, height = self.where(songbin)
                self.assertEqual((width, height), (WIDTH * scale, HEIGHT * scale))
                self.assertLess(before.width - x - width, scale, "at the right edge")
                self.assertLess(before.height - y - height, scale, "at the lower edge")
                shape = {(px, py): inside_polygons(self.OUTLINE, px + 0.5, py + 0.5)
                         for px in range(WIDTH) for py in range(HEIGHT)}
                within = lambda px, py: shape[px // scale, py // scale]
                self.assert_shows(songbin, self.expected().scaled(scale), within)
                outside = differences(self.shown(songbin), before.cut(x, y, width, height),
                                      lambda px, py: not within(px, py))
                self.assertEqual(outside, [], "what is behind shows outside the outline")
                songbin.stop()

    def test_no_seams_at_fractions(self):
        self.face = Pixels(WIDTH, HEIGHT, bytes((200, 100, 50)) * (WIDTH * HEIGHT))
        self.parts = Pixels(14 * GLYPH[0], GLYPH[1], bytes((200, 100, 50)) * (14 * GLYPH[0] * GLYPH[1]))
        for scale in (1.25, 1.5):
            with self.subTest(scale=scale):
                songbin, before = self.player(scale, name=f"at {scale}")
                x, y, width, height = self.where(songbin)
                self.assertLessEqual(abs(width - WIDTH * scale), 1)
                self.assertLessEqual(abs(height - HEIGHT * scale), 1)
                plain = Pixels(width, height, bytes((200, 100, 50)) * (width * height))

                def well_inside(px, py):
                    return all(inside_polygons(self.OUTLINE, (px + dx) / scale, (py + dy) / scale)
                               for dx in (-1.5, 2.5) for dy in (-1.5, 2.5)) and \
                        px < WIDTH * scale - 1 and py < HEIGHT * scale - 1

                def well_outside(px, py):
                    return not any(inside_polygons(self.OUTLINE, (px + dx) / scale, (py + dy) / scale)
                                   for dx in (-1.5, 2.5) for dy in (-1.5, 2.5))

                self.assert_shows(songbin, plain, well_inside)
                outside = differences(self.shown(songbin), before.cut(x, y, width, height), well_outside)
                self.assertEqual(outside, [])
                songbin.stop()

    def test_comes_back_as_it_was_after_minimising(self):
        songbin, _ = self.player()
        shape = {(px, py): inside_polygons(self.OUTLINE, px + 0.5, py + 0.5)
                 for px in range(WIDTH) for py in range(HEIGHT)}
        self.assert_shows(songbin, self.expected(), lambda px, py: shape[px, py])
        window = self.session.window_id(PLAYER, songbin.process)
        self.session.xdotool("windowminimize", window)
        wait_until("the player to go", lambda: not self.session.window_ids(PLAYER, songbin.process))
        self.session.xdotool("windowactivate", window)
        songbin.window(PLAYER)
        self.assert_shows(songbin, self.expected(), lambda px, py: shape[px, py])


class ShippedSkins(SkinTest):
    NAMES = ("default", "compact", "light", "dark", "large")

    def elements(self, lines):
        """The rectangles that something else than the main bitmap shows in."""
        places = []
        for line in lines:
            fields = [field.strip() for field in line.split(",")]
            letter, numbers = fields[0][:1], fields[1:]
            if letter in ("L", "I", "S", "C", "X"):
                x, y, width, height = map(int, numbers[:4])
                if letter == "S":
                    width, height = width + int(numbers[6]), height + int(numbers[7])
                places.append((x, y, width, height))
            elif letter == "D":
                x, y = map(int, numbers[:2])
                places.append((x, y, 2000, int(numbers[5])))
        return places

    def outline(self, lines):
        points = [tuple(map(int, line[1:].split(","))) for line in lines if line.startswith("P")]
        for line in lines:
            if line.startswith("M"):
                counts = list(map(int, line.split(",")[2:]))
                return [[points.pop(0) for _ in range(count)] for count in counts]
        return [points] if points else []

    def test_show_their_bitmaps(self):
        for name in self.NAMES:
            with self.subTest(skin=name):
                songbin, _ = self.player(skin=f"{name}.skin", name=name)
                lines = (songbin.program / f"{name}.skin").read_text().splitlines()
                face = Pixels.of_file(songbin.program / lines[4].split(",")[0])
                width, height = map(int, lines[1].split(","))
                places, outline = self.elements(lines[6:]), self.outline(lines[6:])

                def bare(x, y):
                    return not any(px <= x < px + w and py <= y < py + h for px, py, w, h in places) and \
                        (not outline or inside_polygons(outline, x + 0.5, y + 0.5))

                self.assert_shows(songbin, face.cut(0, 0, width, height), bare)
                songbin.stop()

    def test_the_close_button_ends_the_player_alone(self):
        songbin, _ = self.player(skin="")
        self.assertFalse((songbin.program / "playlist.m3u").exists())
        songbin.control(PLAYER, BUTTON, "Close").click()
        songbin.wait_gone(PLAYER)
        self.assertTrue((songbin.program / "playlist.m3u").exists(), "its unload code has run")
        settings = songbin.home / ".config/Songbin/settings.conf"
        self.assertRegex(settings.read_text(), r"(?m)^Skin=.*\\default\.skin$")
        self.assertTrue(songbin.is_running())
        songbin.window(MAIN)

    def test_the_window_manager_closes_it_too(self):
        songbin, _ = self.player(skin="")
        def closed():
            """A press while the window manager is busy with the window may be lost."""
            if songbin.windows(PLAYER):
                self.session.raise_window(PLAYER, songbin.process)
                self.session.key("alt+F4")
                time.sleep(1)
            return not songbin.windows(PLAYER)

        wait_until("the player to close", closed)
        self.assertTrue((songbin.program / "playlist.m3u").exists())
        self.assertTrue(songbin.is_running())

    def standing_face(self, songbin):
        """The face once it is all there, and the same on two looks in a row."""
        def looks():
            before = self.shown(songbin).data
            time.sleep(0.3)
            return before if self.shown(songbin).data == before else None
        return wait_until("the face to be all there", looks)

    def test_switches_through_all_of_them_and_back(self):
        songbin, _ = self.player(skin="")
        first = self.shown(songbin)
        seen = {first.data}
        for _ in self.NAMES[1:]:
            before = self.shown(songbin).data
            songbin.control(PLAYER, BUTTON, "Next skin").click()
            wait_until("another skin", lambda: self.shown(songbin).data != before)
            seen.add(self.standing_face(songbin))
        self.assertEqual(len(seen), len(self.NAMES), "each its own face")
        songbin.control(PLAYER, BUTTON, "Next skin").click()
        wait_until("the first skin again", lambda: self.where(songbin)[2:] == (first.width, first.height))


if __name__ == "__main__":
    unittest.main()
