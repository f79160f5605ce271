"""What the archive should say about a directory of MP3 files, worked out from the files themselves."""

import sqlite3
from pathlib import Path

FIELDS = ("fldVolum", "fldPath", "fldArtist", "fldSong", "fldAlbum", "fldYear", "fldComment")

TAG_SIZE = 128
TAG_FIELDS = {"song": (3, 30), "artist": (33, 30), "album": (63, 30), "year": (93, 4), "comment": (97, 30)}


def _tag(path):
    """The fields of the ID3v1 tag as Windows-1252 text, none when the file ends without one."""
    end = path.read_bytes()[-TAG_SIZE:]
    if not end.startswith(b"TAG"):
        return None
    return {name: end[at:at + size].decode("cp1252") for name, (at, size) in TAG_FIELDS.items()}


def _from_name(name):
    artist, dash, song = name.partition("-")
    if not dash:
        return {"artist": name, "song": name}
    return {"artist": artist.replace("_", " "), "song": song.replace("_", " ")}


def _stored(text):
    """As a value ends up in the archive: no NUL, no apostrophe, never empty."""
    return text.replace("\0", "  ").replace("'", "-") or " "


def expected_row(path, root, drive, volume):
    values = {"album": "", "year": "", "comment": ""} | (_tag(path) or _from_name(path.name))
    song = _stored(values["song"])
    place = drive + ":\\" + str(path.relative_to(root)).replace("/", "\\")
    return (_stored(volume), _stored(place), _stored(values["artist"]), song.removeprefix(" ") or " ",
            _stored(values["album"]), _stored(values["year"]), _stored(values["comment"]))


def expected_rows(root, drive, volume):
    """The rows for every MP3 file of a disk, in the order of their paths."""
    root = Path(root)
    files = [f for f in root.rglob("*") if f.is_file() and f.suffix.upper() == ".MP3"]
    return sorted(expected_row(f, root, drive, volume) for f in files)


def archive_rows(archive):
    """The rows of an archive in the order in which they were inserted."""
    with sqlite3.connect(f"file:{archive}?mode=ro", uri=True) as connection:
        rows = connection.execute(f"SELECT {', '.join(FIELDS)} FROM MP3 ORDER BY rowid").fetchall()
    connection.close()
    return rows


def differences(expected, found):
    """One line for each row that is too many or missing; no line when the rows agree, in any order."""
    lines, missing = [], list(expected)
    for row in found:
        if row in missing:
            missing.remove(row)
        else:
            lines.append(f"not on the disk: {row}")
    return lines + [f"not in the archive: {row}" for row in missing]
