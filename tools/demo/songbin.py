"""Songbin as its user sees it: the windows by their titles, and the steps of everyday work in them."""

import contextlib
import os
import re
import shutil
from pathlib import Path

from session import WaitError, last_of, steady, wait_until

MAIN = "Songbin"
FIRST_RUN = "For your information"
TIP = "Tip of the Day"
SEARCH = "Search"
RESULT = "Result"
EDITOR = "Edit cell"
ADDED = "information"

BUTTON = "push button"
MENU_ITEMS = ("menu item", "check menu item")
DRIVE_SHOWN = re.compile(r"^[A-Z]:")  # a combo box is called what it shows


class Songbin:
    """The program in a directory of its own with fresh settings. `drives` maps a letter to (directory, name).

    `beside` is another one whose program directory, and with it the archive, is shared.
    """

    def __init__(self, session, executable, place, drives=None, env=None, beside=None):
        self.session = session
        self.executable = Path(executable).absolute()
        self.place = Path(place).absolute()
        self.program = beside.program if beside else self.place / "program"
        self.home = self.place / "home"
        self.output = "Songbin beside" if beside else "Songbin"
        self.process = None
        if not beside:
            self._copy_program()
        self.home.mkdir(parents=True)
        self.env = self._environment(drives or {}) | (env or {})

    def _copy_program(self):
        beside = self.executable.parent
        shutil.copytree(beside, self.program, ignore=lambda *_: [self.executable.name, "Songbin.mdb"])

    def _environment(self, drives):
        declared = "\n".join(f"{letter}={root},{name}" for letter, (root, name) in drives.items())
        return {
            "HOME": str(self.home),
            "XDG_CONFIG_HOME": str(self.home / ".config"),
            "XDG_DATA_HOME": str(self.home / ".local/share"),
            "XDG_STATE_HOME": str(self.home / ".local/state"),
            "XDG_CACHE_HOME": str(self.home / ".cache"),
            "SONGBIN_HOME": str(self.program),
            "SONGBIN_DRIVES": declared,
        }

    @property
    def archive(self):
        return self.program / "Songbin.mdb"

    # Life

    def start(self, wrapper=(), arguments=()):
        """Starts the program, below a command such as setpriv when one is given."""
        argv = [*wrapper, self.executable, *arguments]
        self.process = self.session.spawn(self.output, argv, env=self.env, cwd=self.home)
        return self

    def is_running(self):
        return self.process is not None and self.process.poll() is None

    def wait_exit(self, limit=20.0):
        """The exit status, once the program has ended by itself."""
        wait_until("Songbin to end", lambda: not self.is_running(), limit)
        status = self.process.returncode
        self.session.end(self.process)
        return status

    def stop(self):
        """Ends the program whatever it is doing."""
        if self.process is not None:
            self.session.end(self.process)

    def windows(self, title):
        return self.session.windows(title, self.process)

    def window(self, title, limit=20.0):
        """A window of the program; a program that ended instead is told with what it wrote."""
        def look():
            if not self.is_running():
                raise WaitError(f"Songbin ended with status {self.process.returncode} before the window "
                                f"'{title}' came: {self.session.log(self.output)}")
            return last_of(self.windows(title))

        return steady(f"the window '{title}' of Songbin", look, limit)

    def wait_gone(self, title, limit=20.0):
        wait_until(f"the window '{title}' of Songbin to go", lambda: not self.windows(title), limit)

    def control(self, title, role, name, limit=20.0):
        """A control of a window by its role and its caption or accessible name, once it stands still."""
        def look():
            window = last_of(self.windows(title))
            return last_of(window.find_all(role, name)) if window else None

        self.window(title, limit)
        return steady(f"the {role} '{name}' of '{title}'", look, limit)

    def press(self, title, button):
        self.control(title, BUTTON, button).click()

    def raise_window(self, title):
        self.session.raise_window(title, self.process)

    # Steps

    def answer_first_run(self):
        self.press(FIRST_RUN, "OK")
        self.wait_gone(FIRST_RUN)

    def raise_tip(self):
        """Whether it lies over the main window by itself is a test of its own."""
        self.window(TIP)
        self.raise_window(TIP)

    def close_tip(self):
        self.raise_tip()
        self.press(TIP, "OK")
        self.wait_gone(TIP)

    def start_to_main(self, first_run=True, **start):
        """Starts and answers what comes up, until the main window is free."""
        self.start(**start)
        if first_run:
            self.answer_first_run()
        self.close_tip()
        return self.window(MAIN)

    def menu(self, *captions):
        """Opens a menu of the main window and chooses an entry; captions without the access mark."""
        for caption in captions:
            self.control(MAIN, MENU_ITEMS, caption).click()

    def close_main(self):
        """Closes the main window and gives the exit status."""
        self.session.close_window(MAIN, self.process)
        return self.wait_exit()

    def open_search(self):
        self.press(MAIN, "Scan disk for MP3")
        return self.window(SEARCH)

    def choose_drive(self, letter):
        wanted = re.compile(f"^{letter}:")

        def chosen():
            self.control(SEARCH, "combo box", DRIVE_SHOWN).click()
            with contextlib.suppress(WaitError):
                # A press and its release far apart, on a busy machine, close the list again.
                steady(f"drive {letter} in the list", lambda: self.entry_of_open_list(wanted), 3.0).click()
            return self.control(SEARCH, "combo box", DRIVE_SHOWN).name.startswith(letter)

        wait_until(f"drive {letter} to be chosen", chosen, 30.0)

    def entry_of_open_list(self, wanted):
        for combo in self.window(SEARCH).find_all("combo box", DRIVE_SHOWN):
            for opened in combo.find_all("list", showing=False):
                if opened.extents[3] > 0:
                    return last_of(opened.find_all("list item", wanted))
        return None

    def search_string(self):
        return self.control(SEARCH, "text", "Files to scan").text

    def scan(self, letter, rows, subdirectories=True, limit=60.0):
        """Scans a drive until the grid of the result window holds that many rows, and gives the grid."""
        self.open_search()
        self.choose_drive(letter)
        wanted = f"{letter}:\\*.MP3"
        wait_until(f"the search string to be {wanted}", lambda: self.search_string() == wanted)
        box = self.window(SEARCH).find("check box")
        if box.has_state("checked") != subdirectories:
            box.click()
            wait_until("the box for subdirectories to change", lambda: box.has_state("checked") == subdirectories)
        self.press(SEARCH, "Scan")
        grid = self.window(RESULT).find("table")
        try:
            wait_until(f"{rows} rows in the result", lambda: grid.size()[0] == rows, limit)
        except WaitError as problem:
            raise WaitError(f"{problem}; there are {grid.size()[0]}") from None
        return grid

    def edit_cell(self, grid, row, column, text):
        """Opens the small editor on a cell and types another text into it."""
        grid.show_cell(row, column).click(times=2)
        box = self.window(EDITOR).find("text")
        box.click()
        self.session.key("ctrl+a")
        self.session.type(text)
        wait_until(f"'{text}' in the cell editor", lambda: box.text == text)

    def accept_cell(self):
        self.press(EDITOR, "OK")
        self.wait_gone(EDITOR)

    def update(self):
        self.press(RESULT, "Update")

    def added_message(self, limit=60.0):
        """The text of the box that tells the end of an insertion."""
        labels = self.window(ADDED, limit).find_all("label")
        return " ".join(label.name for label in labels if label.name)


def executable_from_environment():
    """The program under test, as CTest names it."""
    path = os.environ.get("SONGBIN")
    if not path or not os.access(path, os.X_OK):
        raise SystemExit(f"SONGBIN has to name the program; it is {path!r}")
    return Path(path)
