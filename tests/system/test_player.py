"""The player in use: pointer and keys on a real screen, music through the real devices."""

import contextlib
import time
import unittest

from harness import wait_until
from playertest import (BUTTONS, FACE, LENGTH, LIST, MIRROR, NAME, NEXT, NUMBER, PAUSE, PERCENT, PLAY, PLAYER, POSITION,
                        REMAINING_TIME, STOP, TIME, VOLUME, PlayerTest)

from pixels import differences
from session import WaitError
from songbin import MAIN


class Playing(PlayerTest):
    def test_plays_by_buttons_and_keys(self):
        songbin = self.player()
        self.assertEqual(self.label(songbin, NAME), "")
        self.click_button(songbin, PLAY)
        self.wait_playing(songbin)
        self.assertEqual(self.label(songbin, NUMBER), " 1")
        self.assertEqual(self.label(songbin, LENGTH), "1:00")
        self.session.key("b")  # typed small, the skin's key is "B"
        self.wait_label(songbin, NAME, "Two")
        self.click_button(songbin, NEXT)
        self.wait_label(songbin, NAME, "Three")
        wait_until("the third song to run", lambda: self.seconds(songbin) >= 1)
        self.session.key("c")
        paused = self.wait_standing(songbin)
        self.click_button(songbin, PAUSE)
        wait_until("it to go on", lambda: self.seconds(songbin) > paused)
        self.session.key("v")
        self.wait_label(songbin, TIME, "0:00")
        time.sleep(1.2)
        self.assertEqual(self.label(songbin, TIME), "0:00")

    def wait_standing(self, songbin):
        """The time shown once it stays the same for longer than a second of music."""
        def stands():
            before = self.seconds(songbin)
            time.sleep(1.5)
            return self.seconds(songbin) == before
        wait_until("the time to stand", stands)
        return self.seconds(songbin)

    def test_a_key_in_small_letters_never_answers(self):
        songbin = self.player(AutoPlay=1)
        self.wait_playing(songbin)
        self.session.key("r", "R")
        time.sleep(0.5)
        self.assertRegex(self.label(songbin, TIME), "^0:")
        self.click_button(songbin, REMAINING_TIME)
        wait_until("remaining time", lambda: self.label(songbin, TIME).startswith("-0:5"))

    def new_window(self, songbin, before):
        def look():
            found = self.session.output(["xdotool", "search", "--all", "--onlyvisible", "--pid",
                                         str(songbin.process.pid), "--name", ""]).split()
            return [number for number in found if number not in before]
        return wait_until("a window more", look)[-1]

    def test_the_menu_opens_at_the_pointer_and_gives_commands(self):
        songbin = self.player()
        before = self.session.output(["xdotool", "search", "--all", "--onlyvisible", "--pid",
                                      str(songbin.process.pid), "--name", ""]).split()
        place = self.at(songbin, 280, 100)
        self.session.xdotool("mousemove", *place, "click", 3)
        menu = self.new_window(songbin, before)
        told = self.session.output(["xdotool", "getwindowgeometry", "--shell", menu])
        self.assertIn(f"X={place[0]}\nY={place[1]}\n", told)
        self.session.key("p")  # its access key: "Play"
        self.wait_playing(songbin)

    def test_double_click_and_delete_in_the_list(self):
        songbin = self.player()
        x, y = self.at(songbin, LIST[0] + 40, LIST[1] + 30)  # the second of three rows
        self.session.click(x, y, times=2)
        self.wait_playing(songbin, "Two")
        self.session.key("Delete")
        wait_until("an entry less", lambda: len(songbin.window(PLAYER).find_all("list item")) == 2)
        self.assertEqual([item.name for item in songbin.window(PLAYER).find_all("list item")], ["One", "Three"])
        self.assertTrue(self.seconds(songbin) >= 1, "what plays goes on")

    def test_a_click_on_the_time_shows_what_remains(self):
        songbin = self.player(AutoPlay=1)
        self.wait_playing(songbin)
        self.session.click(*self.at(songbin, 30, 96))
        wait_until("remaining time", lambda: self.label(songbin, TIME).startswith("-0:5"))
        self.session.click(*self.at(songbin, 30, 96))
        wait_until("elapsed time", lambda: not self.label(songbin, TIME).startswith("-"))


class Faces(PlayerTest):
    def assert_shows(self, songbin, area, expected):
        wait_until(f"the picture at {area}",
                   lambda: not differences(self.shown(songbin).cut(*area), expected, lambda x, y: True), 5)

    def rest(self, number):
        return self.face.cut(*BUTTONS[number][0])

    def pressed(self, number):
        (_, _, width, height), origin, _ = BUTTONS[number]
        return self.parts.cut(*origin, width, height)


class Pointing(Faces):
    def test_the_pressed_picture_shows_while_the_button_is_down(self):
        songbin = self.player()
        for number in (PLAY, REMAINING_TIME):  # the first has the corner 0, 0
            area = BUTTONS[number][0]
            self.session.xdotool("mousemove", *self.middle(songbin, area), "mousedown", 1)
            self.assert_shows(songbin, area, self.pressed(number))
            self.session.xdotool("mouseup", 1)
            self.assert_shows(songbin, area, self.rest(number))
        self.wait_playing(songbin)

    def test_a_slow_release_elsewhere_counts(self):
        songbin = self.player()
        self.drag(self.middle(songbin, BUTTONS[PLAY][0]), self.at(songbin, 150, 80))
        self.wait_playing(songbin)

    def test_the_aids_show_areas_and_frames_until_escape(self):
        songbin = self.player()
        area = BUTTONS[STOP][0]
        plain = self.rest(STOP)
        self.assert_shows(songbin, area, plain)
        self.type_until("the areas", "`", lambda: differences(
            self.shown(songbin).cut(*area), plain, lambda x, y: True))
        self.session.key("Escape")
        self.assert_shows(songbin, area, plain)
        self.type_until("the frames", "~", lambda: differences(
            self.shown(songbin).cut(*area), plain, lambda x, y: x == 0 and y == 5))
        inside = differences(self.shown(songbin).cut(*area), plain, lambda x, y: 2 < x < 38 and 2 < y < 22)
        self.assertEqual(inside, [])
        self.session.key("Escape")
        self.assert_shows(songbin, area, plain)

    def type_until(self, what, text, probe):
        """The keyboard has no key of its own for it, and one that xdotool invents may come too late for the press."""
        def typed():
            self.session.type(text)
            time.sleep(0.3)
            return probe()
        wait_until(what, typed)

    def test_drags_and_snaps_to_the_edges(self):
        songbin = self.player(WinSnap=1)
        width, height = self.session.size
        start = self.at(songbin, 150, 80)
        self.drag(start, (150 + 9, 80 + 12))
        wait_until("the corner", lambda: self.where(songbin)[:2] == (0, 0))
        self.drag(self.at(songbin, 150, 80), (150 + 100, 80 + 50))
        wait_until("a place in the middle", lambda: self.where(songbin)[:2] == (100, 50))
        self.drag(self.at(songbin, 150, 80), (width - FACE[0] - 7 + 150, height - FACE[1] - 10 + 80))
        wait_until("the other corner",
                   lambda: self.where(songbin)[:2] == (width - FACE[0], height - FACE[1]))

    def test_does_not_snap_when_nobody_wants_it(self):
        songbin = self.player()
        self.drag(self.at(songbin, 150, 80), (150 + 9, 80 + 12))
        wait_until("a place near the corner", lambda: self.where(songbin)[:2] == (9, 12))

    def test_comes_back_inside_the_screen(self):
        songbin = self.player(WinSavePos=1, X=-15 * 4000, Y=15 * 9000)
        left, top, width, height = self.where(songbin)
        self.assertEqual((left, top), (0, self.session.size[1] - height))

    def test_stays_on_top_when_it_is_told_to(self):
        songbin = self.player(WinOnTop=1)
        number = self.session.window_id(PLAYER, songbin.process)
        wait_until("the state", lambda: "_NET_WM_STATE_ABOVE" in self.session.output(
            ["xprop", "-id", number, "_NET_WM_STATE"]))
        songbin.raise_window(MAIN)
        time.sleep(0.3)
        self.assertEqual(self.session.stacking()[-1], PLAYER)

    def test_starts_minimised_and_plays(self):
        songbin = self.prepared(StartMin=1, AutoPlay=1)
        songbin.start()
        songbin.press(MAIN, "Open the Tonedeck player")
        self.assert_stays_away(songbin, PLAYER, 1.5)
        number = wait_until("its window", lambda: self.session.output(
            ["xdotool", "search", "--all", "--pid", str(songbin.process.pid), "--name", "^Tonedeck$"]).split())[-1]
        self.session.xdotool("windowactivate", number)
        self.wait_playing(songbin)


class HoverBorder(Faces):
    hover = 1

    def test_the_border_follows_the_pointer(self):
        songbin = self.player()
        edge = lambda number: differences(self.shown(songbin).cut(*BUTTONS[number][0]), self.rest(number),
                                          lambda x, y: x == 0)
        self.session.xdotool("mousemove", *self.middle(songbin, BUTTONS[STOP][0]))
        wait_until("its border", lambda: edge(STOP))
        self.session.xdotool("mousemove", *self.middle(songbin, BUTTONS[PAUSE][0]))
        wait_until("the next one's", lambda: edge(PAUSE) and not edge(STOP))
        self.point(songbin, 150, 80)
        wait_until("none", lambda: not edge(PAUSE))


class HoverPressed(Faces):
    hover = 2

    def test_the_pressed_picture_follows_the_pointer_and_takes_the_press(self):
        songbin = self.player()
        self.session.xdotool("mousemove", *self.middle(songbin, BUTTONS[PLAY][0]))
        self.assert_shows(songbin, BUTTONS[PLAY][0], self.pressed(PLAY))
        self.session.xdotool("click", 1)
        self.wait_playing(songbin)
        self.session.xdotool("mousemove", *self.middle(songbin, BUTTONS[STOP][0]))
        self.assert_shows(songbin, BUTTONS[STOP][0], self.pressed(STOP))
        self.assert_shows(songbin, BUTTONS[PLAY][0], self.rest(PLAY))
        self.point(songbin, 150, 80)
        self.assert_shows(songbin, BUTTONS[STOP][0], self.rest(STOP))


class Sliding(Faces):
    def thumb(self, songbin, track, part):
        """The middle of a thumb on the screen, for a value from 0 to 1."""
        (x, y, width, height), (_, _, thumb_width, thumb_height) = track
        left = x + round(width * part)
        top = y + round(height * (1 - part)) if height else y
        return self.at(songbin, left + thumb_width // 2, top + thumb_height // 2)

    def test_the_position_follows_and_can_be_dragged(self):
        songbin = self.player(AutoPlay=1)
        self.wait_playing(songbin)
        self.session.key("c")
        time.sleep(0.3)
        self.session.key("c")
        now = self.seconds(songbin) / 60
        self.drag(self.thumb(songbin, POSITION, now), self.thumb(songbin, POSITION, 0.5))
        wait_until("half a minute", lambda: 29 <= self.seconds(songbin) <= 33)

    def test_past_the_end_the_next_one_comes(self):
        songbin = self.player(AutoPlay=1)
        self.wait_playing(songbin)
        now = self.seconds(songbin) / 60
        end = self.at(songbin, 315, 66)
        self.drag(self.thumb(songbin, POSITION, now), end, let_go=False)
        (x, y, width, _), (part_x, part_y, thumb_width, thumb_height) = POSITION
        self.assert_shows(songbin, (x + width, y, thumb_width, thumb_height),
                          self.parts.cut(part_x, part_y, thumb_width, thumb_height))
        self.session.xdotool("mouseup", 1)
        self.wait_label(songbin, NAME, "Two")

    def test_the_volume_from_its_top_to_its_bottom(self):
        songbin = self.player()
        self.assertEqual(self.label(songbin, PERCENT), "100%")
        self.drag(self.thumb(songbin, VOLUME, 1), self.thumb(songbin, VOLUME, 0.4))
        self.wait_label(songbin, PERCENT, "40%")
        self.drag(self.thumb(songbin, VOLUME, 0.4), self.at(songbin, 296, 215))
        self.wait_label(songbin, PERCENT, "0%")
        self.drag(self.thumb(songbin, VOLUME, 0), self.at(songbin, 296, 5))
        self.wait_label(songbin, PERCENT, "100%")

    def test_another_button_ends_no_drag(self):
        songbin = self.player()
        self.drag(self.thumb(songbin, VOLUME, 1), self.thumb(songbin, VOLUME, 0.6), let_go=False)
        self.wait_label(songbin, PERCENT, "60%")
        self.session.xdotool("click", 3)
        self.session.xdotool("mousemove", *self.thumb(songbin, VOLUME, 0.4), "sleep", "0.05", "mouseup", 1)
        self.wait_label(songbin, PERCENT, "40%")

    def test_the_volumes_mirror_stays_where_it_is_held(self):
        songbin = self.player()
        held = (MIRROR[0][0], MIRROR[0][1] + 50, *MIRROR[1][2:])
        picture = self.parts.cut(*MIRROR[1])
        self.drag(self.thumb(songbin, MIRROR, 1), self.thumb(songbin, MIRROR, 0.5), let_go=False)
        shown = lambda: not differences(self.shown(songbin).cut(*held), picture, lambda x, y: True)
        wait_until("the thumb below the pointer", shown)
        time.sleep(2.5)  # the volume is looked at meanwhile
        self.assertTrue(shown(), "it jumped back")
        self.assertEqual(self.label(songbin, PERCENT), "100%", "it is no volume")
        self.session.xdotool("mouseup", 1)

    def test_the_keyboard_moves_the_volume(self):
        songbin = self.player()
        slider = songbin.window(PLAYER).find("slider", "Slider 2")
        self.session.xdotool("mousemove", *self.at(songbin, 150, 80))
        for _ in range(12):
            if slider.has_state("focused"):
                break
            self.session.key("Tab")
            with contextlib.suppress(WaitError):
                wait_until("the focus to be there", lambda: slider.has_state("focused"), 0.5)
        self.assertTrue(slider.has_state("focused"))
        self.session.key("Down", "Down")
        self.wait_label(songbin, PERCENT, "90%")


if __name__ == "__main__":
    unittest.main()
