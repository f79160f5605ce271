"""The previews of the reports as their user works in them: opening, pages, finding, exporting, printing."""

import re

from session import last_of, steady, wait_until
from songbin import BUTTON, MAIN

ARTISTS = "Report on Artist & Song"
EXPORT = "Export"
PRINT = "Print"
STATUS = re.compile(r"^Page ")

LISTING, FULL, ARTIST_SONG = range(3)
MENU = {LISTING: "Full ListOut", FULL: "Full report", ARTIST_SONG: "List of Artists/Songs"}
TIPS = {LISTING: "Make a complete listout", FULL: "Make a detailed report",
        ARTIST_SONG: "Make report with only Artist and Songname"}
TITLES = {LISTING: MAIN, FULL: MAIN, ARTIST_SONG: ARTISTS}


class Reports:
    """Steps with the previews of a running Songbin (tools/demo/songbin.py), one of them open at a time.

    Two of them have the main window's title: a preview is told by its pages.
    """

    def __init__(self, songbin):
        self.songbin = songbin
        self.session = songbin.session

    def previews(self, report):
        return [w for w in self.songbin.windows(TITLES[report]) if w.find_all("document frame")]

    def preview(self, report):
        return steady("a preview", lambda: last_of(self.previews(report)), 30.0)

    def open_by_menu(self, report):
        self.songbin.menu("Reports", MENU[report])
        return self.preview(report)

    def open_by_button(self, report):
        self.songbin.press(MAIN, TIPS[report])
        return self.preview(report)

    def control(self, report, role, name):
        return steady(f"the {role} '{name}' of the preview",
                      lambda: last_of(last_of(self.previews(report)).find_all(role, name)))

    def press(self, report, name):
        self.control(report, BUTTON, name).click()

    def status(self, report):
        preview = last_of(self.previews(report))
        label = last_of(preview.find_all("label", STATUS)) if preview else None
        return label.name if label else ""

    def wait_status(self, report, text):
        try:
            wait_until(f"'{text}' in the status", lambda: text in self.status(report), 30.0)
        except AssertionError as problem:
            raise type(problem)(f"{problem}; it is '{self.status(report)}'") from None

    def close(self, report):
        self.press(report, "Close")
        wait_until("the preview to go", lambda: not self.previews(report))

    def find(self, report, text, found):
        """Searches the pages for a text until the bar tells what was found."""
        self.session.key("ctrl+f")
        self.control(report, "text", "Text to find")
        self.session.type(text)
        self.session.key("Return")
        wait_until(f"'{found}' to be told", lambda: last_of(self.previews(report)).find_all("label", found))

    def export(self, report, path):
        self.press(report, EXPORT)
        self.songbin.window(EXPORT)
        box = self.songbin.control(EXPORT, "text", "File name:")
        box.click()
        self.session.key("ctrl+a")
        self.session.type(str(path))
        wait_until("the path in the dialog", lambda: box.text == str(path))
        self.session.key("Return")
        self.songbin.wait_gone(EXPORT)
        self.wait_status(report, "Exported to")

    def print(self, report):
        """Prints all pages on the printer that the desktop's dialog proposes."""
        self.session.key("ctrl+p")
        self.songbin.press(PRINT, "Print")
        self.songbin.wait_gone(PRINT)
        self.wait_status(report, "Printed")
