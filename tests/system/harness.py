"""What the system tests share: one screen for each test file, a fresh program directory for each test."""

import functools
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools/demo"))

from session import Session, wait_until
from songbin import Songbin, executable_from_environment

EXECUTABLE = executable_from_environment()
PICTURES = EXECUTABLE.parents[1] / "system-tests"


def make_sample_disk(directory):
    subprocess.run([ROOT / "tools/demo/make_disk.sh", directory], check=True)
    return Path(directory)


@functools.cache
def opened_session():
    """The screen of this test file, closed when its last test is done."""
    directory = Path(tempfile.mkdtemp(prefix="songbin-system-"))
    unittest.addModuleCleanup(shutil.rmtree, directory, ignore_errors=True)
    return unittest.enterModuleContext(Session(directory))


class SongbinTest(unittest.TestCase):
    """A test that fails leaves a picture of the screen and tells what was on it."""

    @classmethod
    def setUpClass(cls):
        cls.session = opened_session()
        cls.directory = Path(tempfile.mkdtemp(prefix="class-", dir=cls.session.directory))
        cls.addClassCleanup(shutil.rmtree, cls.directory, ignore_errors=True)

    def setUp(self):
        self.place = Path(tempfile.mkdtemp(prefix="test-", dir=self.directory))

    def run(self, result=None):
        self.result = result
        return super().run(result)

    def tearDown(self):
        failed = self.result is not None and any(
            test is self for test, _ in self.result.errors + self.result.failures)
        if failed:
            PICTURES.mkdir(parents=True, exist_ok=True)
            picture = PICTURES / f"{self.id()}.png"
            self.session.screenshot(picture)
            print(f"{self.id()} failed; picture: {picture}; on the screen:\n{self.session.outline()}",
                  file=sys.stderr)

    def songbin(self, name="songbin", **options):
        """A program of the test's own, ended with the test."""
        program = Songbin(self.session, EXECUTABLE, self.place / name, **options)
        self.addCleanup(program.stop)
        return program

    def assert_stays_away(self, songbin, title, seconds=1.0):
        """Looks for as long as a window that is wrong here would take to come, and a good deal longer."""
        try:
            wait_until(f"'{title}'", lambda: songbin.windows(title), seconds)
        except AssertionError:
            return
        self.fail(f"the window '{title}' came up")
