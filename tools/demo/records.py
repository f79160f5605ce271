"""The windows of the archive's records as their user works in them: searching, browsing, editing, backup."""

import subprocess
from pathlib import Path

from session import WaitError, last_of, wait_until
from songbin import MAIN

CRITERIA = "Search criteria"
FOUND = "Search result"
RECORDS = "Songbin Editor"
FIND_BOX = "Search"
SAVE_BACKUP = "Select the destination for the backup copy"
OPEN_BACKUP = "Select your backupfile"
BACKUP_DONE = "Backup finnished"
IMPORTANT = "IMPORTANT"

HANDLER = """#!/bin/sh
printf '%s\\n' "$1" >> "{log}"
"""
DESKTOP_FILE = """[Desktop Entry]
Type=Application
Name=Test player
Exec={program} %f
MimeType=audio/mpeg;
NoDisplay=true
"""


class Records:
    """Steps in these windows of a running Songbin (tools/demo/songbin.py)."""

    def __init__(self, songbin):
        self.songbin = songbin
        self.session = songbin.session

    # Searching

    def search(self, criteria=None, any_of=False, until=None):
        """Fills in the criteria (label to text), searches and gives the grid, or waits for a window's title."""
        if not self.songbin.windows(CRITERIA):
            self.songbin.raise_window(MAIN)
            self.songbin.press(MAIN, "Search/Edit the database")
        self.songbin.window(CRITERIA)
        self.songbin.raise_window(CRITERIA)
        for label in ("Name of Artist", "Name of Song", "Name of Album", "Which year", "String in comment",
                      "Disk volum", "Which path"):
            self.fill(CRITERIA, label, (criteria or {}).get(label, ""))
        self.songbin.control(CRITERIA, "radio button", "Or" if any_of else "And").click()
        self.songbin.press(CRITERIA, "Search")
        return self.songbin.window(until) if until else self.songbin.window(FOUND).find("table")

    def fill(self, title, label, text):
        box = self.songbin.control(title, "text", label)
        if box.text == text:
            return
        box.click()
        self.session.key("ctrl+a", "Delete")
        if text:
            self.session.type(text)
        wait_until(f"'{text}' in '{label}'", lambda: box.text == text)

    def filter_again(self):
        self.songbin.press(FOUND, "Filter")
        self.songbin.wait_gone(FOUND)

    def close_result(self):
        self.songbin.press(FOUND, "Close")
        self.songbin.wait_gone(FOUND)

    # Walking

    def shown_record(self, title):
        """The number that the status label of a window tells."""
        label = last_of([n for n in self.songbin.window(title).find_all("label") if n.name.startswith("Record: ")])
        return int(label.name.split()[1]) if label else None

    def wait_record(self, title, number):
        try:
            wait_until(f"record {number} in '{title}'", lambda: self.shown_record(title) == number)
        except WaitError as problem:
            raise WaitError(f"{problem}; it is {self.shown_record(title)}") from None

    def step(self, title, button, number):
        self.songbin.press(title, button)
        self.wait_record(title, number)

    def keys(self, title, key, number):
        self.session.key(key)
        self.wait_record(title, number)

    # The editor

    def open_editor(self):
        self.songbin.raise_window(MAIN)
        self.songbin.press(MAIN, "Browse/Edit content of database")
        return self.songbin.window(RECORDS)

    def box(self, label):
        return self.songbin.control(RECORDS, "text", label).text

    def find(self, button, text):
        """Presses Find Artist or Find Song and answers the box that asks for a text."""
        self.songbin.press(RECORDS, button)
        self.songbin.window(FIND_BOX)
        if text is None:
            self.songbin.press(FIND_BOX, "Cancel")
        else:
            self.session.type(text)
            box = self.songbin.window(FIND_BOX).find("text")
            wait_until(f"'{text}' in the box", lambda: box.text == text)
            self.songbin.press(FIND_BOX, "OK")
        self.songbin.wait_gone(FIND_BOX)

    def close_editor(self):
        self.songbin.press(RECORDS, "Close")
        self.songbin.wait_gone(RECORDS)

    # Messages

    def message(self, title):
        """The text of a message box."""
        labels = self.songbin.window(title).find_all("label")
        return "\n".join(label.name for label in labels if label.name)

    def answer(self, title, button="OK"):
        self.songbin.press(title, button)
        self.songbin.wait_gone(title)

    # Backup and restore

    def name_file(self, title, path):
        """Types the machine's path into a file dialog; the caller confirms it."""
        self.songbin.window(title)
        box = self.songbin.control(title, "text", "File name:")
        box.click()
        self.session.key("ctrl+a")
        self.session.type(str(path))
        wait_until("the path in the dialog", lambda: box.text == str(path))

    def back_up(self, path):
        self.songbin.raise_window(MAIN)
        self.songbin.menu("Tools", "Backup", "Make a backup of your database")
        self.name_file(SAVE_BACKUP, path)

    def begin_restore(self):
        """Up to the dialog that asks for the file."""
        self.songbin.raise_window(MAIN)
        self.songbin.menu("Tools", "Backup", "Restore your database from a backupfile")
        self.answer(IMPORTANT, "Yes")
        self.songbin.window(OPEN_BACKUP)

    def restore(self, path):
        self.begin_restore()
        self.name_file(OPEN_BACKUP, path)

    def confirm_file(self, title):
        self.session.key("Return")
        self.songbin.wait_gone(title)


class Player:
    """A program that the desktop of this home opens MP3 files with; it notes what it was given."""

    def __init__(self, songbin):
        self.log = songbin.place / "played.txt"
        program = songbin.place / "player.sh"
        program.write_text(HANDLER.format(log=self.log), encoding="utf-8")
        program.chmod(0o755)
        applications = songbin.home / ".local/share/applications"
        applications.mkdir(parents=True)
        (applications / "testplayer.desktop").write_text(DESKTOP_FILE.format(program=program), encoding="utf-8")
        config = songbin.home / ".config"
        config.mkdir(exist_ok=True)
        (config / "mimeapps.list").write_text("[Default Applications]\naudio/mpeg=testplayer.desktop\n",
                                              encoding="utf-8")

    def played(self):
        return self.log.read_text(encoding="utf-8").splitlines() if self.log.exists() else []

    def wait_played(self, *paths):
        wanted = [str(path) for path in paths]
        try:
            wait_until(f"{wanted} to be played", lambda: self.played() == wanted)
        except WaitError as problem:
            raise WaitError(f"{problem}; played were {self.played()}") from None


def printed_text(pdf):
    """What stands on the pages of a PDF, and the size of its first page in points."""
    pdf = Path(pdf)
    wait_until(f"{pdf.name} to be printed", lambda: pdf.exists() and pdf.read_bytes().rstrip().endswith(b"%%EOF"))
    text = subprocess.run(["pdftotext", "-layout", pdf, "-"], check=True, capture_output=True, text=True).stdout
    facts = subprocess.run(["pdfinfo", pdf], check=True, capture_output=True, text=True).stdout
    size = next(line for line in facts.splitlines() if line.startswith("Page size:")).split()
    return text, (float(size[2]), float(size[4]))
