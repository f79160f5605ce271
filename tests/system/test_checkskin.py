"""Songbin --check-skin: what it says of a skin, the picture it draws, its exit status. No display is needed."""

import os
import shutil
import subprocess
import tempfile
import unittest
import zipfile
from pathlib import Path

from harness import EXECUTABLE

from pixels import Pixels

HEADER = "Tonedeck Skin\n40,30\n40,30\n40,30\nface.bmp,face.bmp\n0,0,0,0,0,0,0,0\n"


class CheckSkin(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory(prefix="songbin-check-")
        self.addCleanup(directory.cleanup)
        self.directory = Path(directory.name)
        Pixels(40, 30, bytes((10, 20, 30)) * 1200).write_bmp(self.directory / "face.bmp")
        self.home = self.directory / "home"
        self.home.mkdir()

    def check(self, lines, name="own.skin", header=HEADER):
        (self.directory / name).write_text(header + lines)
        return self.run_on(name)

    def run_on(self, *arguments):
        kept = {key: os.environ[key] for key in ("PATH", "LC_ALL", "ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS")
                if key in os.environ}
        environment = kept | {"HOME": str(self.home), "XDG_RUNTIME_DIR": str(self.home)}
        return subprocess.run([EXECUTABLE, "--check-skin", *arguments], cwd=self.directory, env=environment,
                              capture_output=True, text=True, timeout=120)

    def test_a_sound_skin_is_drawn(self):
        done = self.check("N4\nP0,0\nP40,0\nP40,20\nP0,20\nE\n")
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertIn("own-preview.png", done.stdout)
        alpha = subprocess.run(["convert", self.directory / "own-preview.png", "-format",
                                "%[pixel:p{5,5}] %[pixel:p{5,25}]", "info:"], capture_output=True, text=True, check=True)
        self.assertRegex(alpha.stdout, r"^s?rgba?\(10,20,30(,1)?\) s?rgba\(0,0,0,0\)$")

    def test_what_is_wrong_is_told_with_its_line(self):
        done = self.check("B2,1,1,9,9,1,1,A,fine\nL21,1,1,9,9,0,0,0,9,Sans Serif,x\nB3,1,1,0,9,1,1,B,x\n"
                          "?0,nowhere\nE\n")
        self.assertEqual(done.returncode, 1, done.stdout + done.stderr)
        self.assertRegex(done.stdout, r"(?m)^own\.skin:8: .*L21")
        self.assertRegex(done.stdout, r"(?m)^own\.skin:9: .*B3")
        self.assertNotRegex(done.stdout, r"(?m)^own\.skin:7:")
        self.assertRegex(done.stdout, r"(?m)^own\.skin:10: .*nowhere")

    def test_a_missing_bitmap_is_told(self):
        done = self.check("E\n", header=HEADER.replace("face.bmp,face.bmp", "face.bmp,none.bmp"))
        self.assertEqual(done.returncode, 1)
        self.assertRegex(done.stdout, r"(?m)^own\.skin:5: .*none\.bmp")

    def test_what_is_no_skin_is_said_so(self):
        done = self.check("", header="Something else\n1,2\n")
        self.assertEqual(done.returncode, 2)
        self.assertIn("Invalid Skin!", done.stderr)
        self.assertFalse((self.directory / "own-preview.png").exists())

    def test_a_file_that_is_not_there_is_said_so(self):
        done = self.run_on("nothing.skin")
        self.assertEqual(done.returncode, 2)
        self.assertIn("nothing.skin", done.stderr)

    def test_the_programs_own_skin_of_that_name_is_not_taken(self):
        self.assertEqual(self.run_on("default.skin").returncode, 2)

    def test_a_part_outside_the_resource_bitmap_is_told(self):
        done = self.check("B2,1,1,9,9,35,1,A,fine\nB3,1,1,9,9,31,21,B,fine\nE\n")
        self.assertEqual(done.returncode, 1)
        self.assertIn("own.skin: the pressed picture of B2 lies outside the resource bitmap", done.stdout)
        self.assertNotIn("B3", done.stdout)

    def test_an_outline_that_leaves_nothing_is_told(self):
        done = self.check("N4\nP90,90\nP99,90\nP99,99\nP90,99\nE\n")
        self.assertEqual(done.returncode, 1)
        self.assertIn("the outline leaves nothing of the window", done.stdout)

    def test_a_name_with_a_percent_sign_is_told_as_it_is(self):
        done = self.check("B51,1,1,9,9,1,1,A,x\nE\n", name="odd%2.skin")
        self.assertRegex(done.stdout, r"(?m)^odd%2\.skin:7: ")

    def test_it_leaves_nothing_in_the_users_settings(self):
        self.check("E\n")
        self.assertEqual(list(self.home.rglob("*.conf")), [])

    def test_a_window_of_no_pixels_is_told(self):
        done = self.check("E\n", header=HEADER.replace("40,30\n", "0,0\n", 1))
        self.assertEqual(done.returncode, 1, done.stdout + done.stderr)
        self.assertRegex(done.stdout, r"(?m)^own\.skin:2: a window of 0 by 0 pixels")

    def make_set(self, name, without=(), more=()):
        """Our own set, packed."""
        with zipfile.ZipFile(self.directory / name, "w") as archive:
            for picture in sorted((EXECUTABLE.parent / "classic").iterdir()):
                if picture.stem not in without:
                    archive.write(picture, f"Set/{picture.name.upper()}")
            for file, text in more:
                archive.writestr(f"Set/{file}", text)

    def test_a_packed_set_is_worn(self):
        self.make_set("own.wsz")
        done = self.run_on("own.wsz")
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertTrue((self.directory / "own-preview.png").exists())
        self.assertEqual(list(self.home.rglob("*.bmp")), [], "nothing of it stays")

    def test_what_a_set_lacks_is_told(self):
        self.make_set("poor.zip", without=("posbar", "text"),
                      more=(("region.txt", "nonsense"), ("viscolor.txt", "0,0,0"), ("eqmain.bmp", "BM")))
        done = self.run_on("poor.zip")
        self.assertEqual(done.returncode, 1, done.stdout + done.stderr)
        self.assertIn('poor.zip: there is no picture "posbar"', done.stdout)
        self.assertIn('poor.zip: there is no picture "text"', done.stdout)
        self.assertRegex(done.stdout, r"(?m)^poor\.zip: what .*region\.txt says cannot be used")
        self.assertIn("poor.zip: not used: eqmain.bmp, viscolor.txt", done.stdout)
        self.assertNotIn("nums_ex", done.stdout)

    def test_a_set_is_checked_by_its_main_picture(self):
        pictures = self.directory / "set"
        shutil.copytree(EXECUTABLE.parent / "classic", pictures)
        (pictures / "volume.bmp").unlink()
        Pixels(20, 5, bytes((9, 9, 9)) * 100).write_bmp(pictures / "posbar.bmp")
        done = self.run_on("set/main.bmp")
        self.assertEqual(done.returncode, 1, done.stdout + done.stderr)
        self.assertIn('there is no picture "volume"', done.stdout)
        self.assertRegex(done.stdout, r"posbar\.bmp is too small, there is nothing to copy at")

    def test_what_is_no_set_is_said_so(self):
        (self.directory / "no.wsz").write_bytes(b"no archive")
        done = self.run_on("no.wsz")
        self.assertEqual(done.returncode, 2)
        self.assertIn("This set of pictures is damaged", done.stderr)

    def test_the_shipped_skins_are_sound(self):
        for skin in sorted(EXECUTABLE.parent.glob("*.skin")):
            with self.subTest(skin=skin.name):
                done = self.run_on(str(skin))
                self.assertEqual(done.returncode, 0, done.stdout + done.stderr)


if __name__ == "__main__":
    unittest.main()
