#!/usr/bin/python3
"""The demo: the real program on a screen of its own, used with mouse and keyboard from start to finish.

A sample disk is scanned, one cell corrected, the rows inserted; then they are searched, printed, played,
changed, backed up and restored; the reports are looked through, exported and printed; an album is handed to
the player, which plays it in each of its skins. Each window is left as a picture in build/demo/, paper comes
from a real queue. The exit status tells whether the archive then holds what it should.
"""

import shutil
import subprocess
import sys
from pathlib import Path

import disk
from archive_walk import ArchiveWalk
from player_walk import OPTIONS, look_at_skins, make_album
from printqueue import PrintQueue
from reports_walk import ReportsWalk
from session import Session, WaitError, wait_until
from songbin import ADDED, EDITOR, FIRST_RUN, MAIN, RESULT, SEARCH, TIP, Songbin

ROOT = Path(__file__).resolve().parents[2]
PROGRAM = ROOT / "build/release/Songbin/Songbin"
PLACE = ROOT / "build/demo"
PAPER = PLACE / "printed.pdf"

DRIVE = "D"
VOLUME = "ROCK_01"
ARTIST_COLUMN = 2
CORRECTED_FILE = DRIVE + ":\\Plain.mp3"
CORRECTED_ARTIST = "Åse Sørlie"


class Pictures:
    """Numbers the pictures in the order in which they are taken."""

    def __init__(self, session):
        self.session = session
        self.count = 0

    def take(self, name, title=None):
        self.count += 1
        path = PLACE / f"{self.count:02}-{name}.png"
        self.session.screenshot(path, title)
        print(f"   {path.relative_to(ROOT)}", flush=True)


def step(text):
    print(f"-- {text}", flush=True)


def first_run(songbin, pictures):
    step("the first run generates the archive")
    songbin.start()
    songbin.window(FIRST_RUN)
    pictures.take("first-run", FIRST_RUN)
    songbin.answer_first_run()


def tip(songbin, pictures):
    step("main window and tip of the day")
    songbin.window(MAIN)
    songbin.window(TIP)
    pictures.take("start")
    songbin.press(TIP, "Next Tip")
    pictures.take("tip", TIP)
    songbin.close_tip()
    pictures.take("main", MAIN)


def scan(songbin, pictures, rows):
    step(f"scanning drive {DRIVE}: for {rows} files")
    grid = songbin.scan(DRIVE, rows)
    songbin.session.raise_window(SEARCH)
    pictures.take("search", SEARCH)
    songbin.session.raise_window(RESULT)
    pictures.take("result", RESULT)
    return grid


def correct(songbin, pictures, grid):
    step(f"correcting the artist of {CORRECTED_FILE}")
    row = next(r for r in range(grid.size()[0]) if grid.cell(r, 1).name == CORRECTED_FILE)
    songbin.edit_cell(grid, row, ARTIST_COLUMN, CORRECTED_ARTIST)
    pictures.take("cell-editor", EDITOR)
    songbin.accept_cell()
    wait_until("the corrected cell", lambda: grid.cell(row, ARTIST_COLUMN).name == CORRECTED_ARTIST)
    pictures.take("corrected", RESULT)


def insert(songbin, pictures, rows):
    step("inserting the rows")
    songbin.update()
    told = songbin.added_message()
    pictures.take("added", ADDED)
    if f"{rows} Records is added to Songbin" not in told:
        raise WaitError(f"the program told: {told}")
    songbin.press(ADDED, "OK")
    songbin.wait_gone(RESULT)


def look_around(songbin, pictures):
    step("Options and About")
    songbin.press(SEARCH, "Cancel")
    songbin.wait_gone(SEARCH)
    songbin.menu("Tools")
    pictures.take("menu")
    songbin.menu("Options...")
    songbin.window("Options")
    pictures.take("options", "Options")
    songbin.session.close_window("Options")
    songbin.wait_gone("Options")
    songbin.menu("Help", "About")
    songbin.window("About Songbin")
    pictures.take("about", "About Songbin")
    songbin.press("About Songbin", "OK")
    songbin.wait_gone("About Songbin")


def leave(songbin):
    step("closing the main window")
    status = songbin.close_main()
    if status != 0:
        raise WaitError(f"Songbin ended with status {status}: {songbin.session.log('Songbin')}")


def expected():
    """The rows of the disk with the one correction."""
    rows = disk.expected_rows(PLACE / "disk", DRIVE, VOLUME)
    return [row[:2] + (CORRECTED_ARTIST,) + row[3:] if row[1] == CORRECTED_FILE else row for row in rows]


def walk(session, queue):
    wanted = expected()
    songbin = Songbin(session, PROGRAM, PLACE, drives={DRIVE: (PLACE / "disk", VOLUME)},
                      env=queue.env)
    config = songbin.home / ".config/Songbin"
    config.mkdir(parents=True)
    (config / "settings.conf").write_text(OPTIONS)
    pictures = Pictures(session)
    archive_walk = ArchiveWalk(songbin, pictures, PLACE, step)
    try:
        first_run(songbin, pictures)
        tip(songbin, pictures)
        grid = scan(songbin, pictures, len(wanted))
        correct(songbin, pictures, grid)
        insert(songbin, pictures, len(wanted))
        check_scanned(songbin.archive, wanted)
        look_around(songbin, pictures)
        wanted = archive_walk.run()
        ReportsWalk(songbin, pictures, PLACE, step).run(queue)
        step("the player plays an album in each of its skins")
        look_at_skins(songbin, pictures, make_album(songbin.home / "Music/Tides"))
        leave(songbin)
        shutil.copyfile(queue.jobs()[0], PAPER)
        archive_walk.check_paper(PAPER)
    except WaitError:
        session.screenshot(PLACE / "failure.png")
        print(session.outline(), file=sys.stderr)
        raise
    return songbin.archive, wanted


def check_scanned(archive, wanted):
    wrong = disk.differences(wanted, disk.archive_rows(archive))
    if wrong:
        raise WaitError("the archive does not hold what is on the disk: " + "; ".join(wrong))


def show_archive(archive):
    step(f"the rows in {archive.relative_to(ROOT)}")
    query = "SELECT " + ", ".join(f"rtrim({field}) AS {field}" for field in disk.FIELDS) + " FROM MP3"
    subprocess.run(["sqlite3", "-batch", "-header", "-column", "-readonly", str(archive), query], check=True)


def prepare():
    if not PROGRAM.exists():
        raise SystemExit(f"{PROGRAM.relative_to(ROOT)} is not built: ./dev demo builds and shows it")
    shutil.rmtree(PLACE, ignore_errors=True)
    PLACE.mkdir(parents=True)
    step("making the sample disk")
    subprocess.run([Path(__file__).with_name("make_disk.sh"), PLACE / "disk"], check=True)


def main():
    prepare()
    try:
        with PrintQueue(PLACE / "cups") as queue, Session(PLACE / "session") as session:
            archive, wanted = walk(session, queue)
    except WaitError as problem:
        print(f"demo: {problem}", file=sys.stderr)
        return 1
    show_archive(archive)
    if disk.archive_rows(archive) != wanted:
        print("demo: the archive does not hold what it should", file=sys.stderr)
        return 1
    step(f"the archive holds its {len(wanted)} rows: the disk's, with one corrected, deleted, changed and added")
    return 0


if __name__ == "__main__":
    sys.exit(main())
