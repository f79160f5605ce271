"""The demo's reports: each opened, looked at, exported in each form, read back, and printed on a real queue."""

import csv
import html
import re

from disk import archive_rows
from records import printed_text
from reports import ARTIST_SONG, FULL, LISTING, Reports
from session import WaitError, wait_until

NAMES = {LISTING: "listing", FULL: "full-report", ARTIST_SONG: "artists"}
FOUND = re.compile(r"^1 of \d+$")


class ReportsWalk:
    def __init__(self, songbin, pictures, place, step):
        self.songbin = songbin
        self.reports = Reports(songbin)
        self.take = pictures.take
        self.place = place / "reports"
        self.step = step

    def run(self, queue):
        self.place.mkdir()
        rows = archive_rows(self.songbin.archive)
        for report, name in NAMES.items():
            self.step(f"the report '{name}': its pages, its exports, its paper")
            self.reports.open_by_button(report)
            self.reports.wait_status(report, f"{len(rows)} records")
            self.take(name)
            self.look_through(report, name)
            self.export(report, name, rows)
            self.print(report, queue, rows)
            self.reports.close(report)

    def look_through(self, report, name):
        self.session_key("ctrl+End")
        self.take(f"{name}-end")
        self.session_key("ctrl+Home")
        if report == ARTIST_SONG:
            self.reports.find(report, "Brass", FOUND)
            self.take(f"{name}-found")
            self.session_key("Escape")

    def session_key(self, key):
        self.songbin.session.key(key)

    def export(self, report, name, rows):
        for form in ("pdf", "html", "csv"):
            self.reports.export(report, self.place / f"{name}.{form}")
        text, _ = printed_text(self.place / f"{name}.pdf")
        with open(self.place / f"{name}.csv", encoding="utf-8", newline="") as file:
            listed = list(csv.reader(file))
        page = html.unescape((self.place / f"{name}.html").read_text(encoding="utf-8"))
        self.check(name, rows, {"pdf": text, "html": page, "csv": "\n".join(",".join(line) for line in listed)})
        if len(listed) != len(rows) + 1:
            raise WaitError(f"{name}.csv has {len(listed)} lines for {len(rows)} records")

    def print(self, report, queue, rows):
        before = len(queue.jobs())
        self.reports.print(report)
        wait_until("the paper", lambda: len(queue.jobs()) == before + 1)
        text, _ = printed_text(queue.jobs()[-1])
        self.check("the paper", rows, {"queue": text})

    @staticmethod
    def check(name, rows, texts):
        """Each song's first word, as a long one may go on in the next line."""
        for form, text in texts.items():
            for row in rows:
                word = (row[3].split() or [""])[0]
                if word not in text:
                    raise WaitError(f"{name}, {form}: '{word}' is missing")
