"""The second half of the demo: searching, browsing, printing, playing, editing, backup and restore."""

from disk import archive_rows
from records import (BACKUP_DONE, CRITERIA, FOUND, OPEN_BACKUP, RECORDS, SAVE_BACKUP, Player, Records,
                     printed_text)
from session import WaitError, wait_until

VOLUM, PATH, ARTIST, SONG = range(4)
DELETED = "D:\\Various\\Brass_Lantern - Lighthouse.mp3"
PLAYED = "Fjord & Fjell/02 Ærlig øl.mp3"
CHANGED = "D:\\Jazz\\Blue Kitchen\\Slow Boil.mp3"
ADDED = ("TAPE_07", "D:\\Tapes\\Side A.mp3", "Øystein Vik", "Natt i Ørsta", " ", " ", " ")


def expect(what, found, wanted):
    if found != wanted:
        raise WaitError(f"{what}: {found!r} instead of {wanted!r}")


class ArchiveWalk:
    def __init__(self, songbin, pictures, place, step):
        self.songbin = songbin
        self.records = Records(songbin)
        self.take = pictures.take
        self.place = place
        self.step = step
        self.player = Player(songbin)
        self.rows = []

    def run(self):
        self.rows = archive_rows(self.songbin.archive)
        self.search_all_of()
        self.search_any_of()
        self.walk_the_grid()
        self.play()
        self.print_list()
        self.delete_in_grid()
        self.edit()
        self.back_up_and_restore()
        return self.rows

    def paths(self, grid):
        return [grid.cell(row, 1).name for row in range(grid.size()[0])]

    def search_all_of(self):
        self.step("a search for all of: artist 'åse SØR', path 'fjell'")
        grid = self.records.search({"Name of Artist": "åse SØR", "Which path": "fjell"})
        self.songbin.session.raise_window(CRITERIA)
        self.take("criteria-and", CRITERIA)
        self.songbin.session.raise_window(FOUND)
        self.take("found-and", FOUND)
        wanted = [row[PATH] for row in self.rows if row[ARTIST].startswith("Åse Sør") and "Fjell" in row[PATH]]
        expect("found", self.paths(grid), wanted)
        self.records.filter_again()

    def search_any_of(self):
        self.step("a search for any of: artist 'LANTERN', song 'ØL'")
        grid = self.records.search({"Name of Artist": "LANTERN", "Name of Song": "ØL"}, any_of=True)
        self.songbin.session.raise_window(CRITERIA)
        self.take("criteria-or", CRITERIA)
        self.songbin.session.raise_window(FOUND)
        self.take("found-or", FOUND)
        wanted = [row[PATH] for row in self.rows if "Lantern" in row[ARTIST] or "øl" in row[SONG]]
        expect("found", self.paths(grid), wanted)

    def walk_the_grid(self):
        self.step("walking through the rows by buttons, keys and a click")
        records = self.records
        records.wait_record(FOUND, 1)
        records.step(FOUND, "Last record", 3)
        records.step(FOUND, "Previous record", 2)
        grid = self.songbin.window(FOUND).find("table")
        grid.cell(2, 0).click()
        records.wait_record(FOUND, 3)
        records.keys(FOUND, "Home", 1)
        records.keys(FOUND, "Down", 2)
        self.take("grid", FOUND)
        records.keys(FOUND, "Up", 1)

    def play(self):
        self.step("playing the first one with the desktop's player")
        self.songbin.press(FOUND, "Play Song")
        self.player.wait_played(self.place / "disk" / PLAYED)

    def print_list(self):
        self.step("printing the list")
        self.songbin.press(FOUND, "Print List")

    def delete_in_grid(self):
        self.step("deleting a row")
        grid = self.songbin.window(FOUND).find("table")
        at = self.paths(grid).index(DELETED)
        grid.cell(at, 1).click()
        self.records.wait_record(FOUND, at + 1)
        self.songbin.press(FOUND, "Delete")
        self.rows = [row for row in self.rows if row[PATH] != DELETED]
        wait_until("the row to go from the archive", lambda: archive_rows(self.songbin.archive) == self.rows)
        self.take("deleted", FOUND)
        self.records.close_result()
        self.songbin.wait_gone(CRITERIA)

    def edit(self):
        self.step("the editor: find, edit, add")
        records = self.records
        records.open_editor()
        self.take("editor", RECORDS)
        records.step(RECORDS, "Next record", 2)
        records.find("Find Artist", "BLUE kitchen")
        wait_until("the artist", lambda: records.box("Artist").startswith("Blue Kitchen"))
        self.songbin.press(RECORDS, "Find Next")
        wait_until("the next one", lambda: records.box("Path") == CHANGED)
        self.take("found-next", RECORDS)
        self.change("Song", "Slow Boil (long)")
        self.add()
        records.close_editor()

    def change(self, label, text):
        self.songbin.press(RECORDS, "Edit")
        self.records.fill(RECORDS, label, text)
        self.take("edit", RECORDS)
        self.songbin.press(RECORDS, "Update")
        self.rows = [row[:SONG] + (text,) + row[SONG + 1:] if row[PATH] == CHANGED else row for row in self.rows]
        wait_until("the changed row", lambda: archive_rows(self.songbin.archive) == self.rows)

    def add(self):
        self.songbin.press(RECORDS, "Add")
        for label, text in zip(("Disk Name", "Path", "Artist", "Song"), ADDED):
            self.records.fill(RECORDS, label, text)
        self.take("add", RECORDS)
        self.songbin.press(RECORDS, "Update")
        self.rows = [*self.rows, ADDED]
        wait_until("the added row", lambda: archive_rows(self.songbin.archive) == self.rows)
        expect("shown after the update", self.records.box("Artist"), ADDED[ARTIST])

    def back_up_and_restore(self):
        self.step("a backup, a deletion, and the restore")
        backup = self.songbin.home / "Songbin.Bck"
        records = self.records
        records.back_up(backup)
        self.take("backup", SAVE_BACKUP)
        records.confirm_file(SAVE_BACKUP)
        expect("told", "placed under: C:\\Songbin.Bck" in records.message(BACKUP_DONE), True)
        self.take("backup-done", BACKUP_DONE)
        records.answer(BACKUP_DONE)
        expect("the backup's bytes", backup.read_bytes() == self.songbin.archive.read_bytes(), True)
        records.open_editor()
        self.songbin.press(RECORDS, "Delete")
        wait_until("one row less", lambda: len(archive_rows(self.songbin.archive)) == len(self.rows) - 1)
        records.begin_restore()
        self.take("restore", OPEN_BACKUP)
        records.name_file(OPEN_BACKUP, backup)
        records.confirm_file(OPEN_BACKUP)
        expect("told", "restored from: C:\\Songbin.Bck" in records.message(BACKUP_DONE), True)
        records.answer(BACKUP_DONE)
        self.songbin.session.raise_window(RECORDS)
        self.songbin.press(RECORDS, "Refresh")
        records.step(RECORDS, "Last record", len(self.rows))
        self.take("restored", RECORDS)
        records.close_editor()

    def check_paper(self, pdf):
        self.step(f"what was printed: {pdf.name}")
        text, (width, height) = printed_text(pdf)
        print(text)
        expect("landscape", width > height, True)
        for word in ("Ærlig øl", "Brass Lantern", "Lighthouse"):
            expect(f"'{word}' printed", word in text, True)
