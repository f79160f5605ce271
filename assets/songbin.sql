-- The empty archive: one table, one row to each song of each disk.
-- Duplicates are allowed, so there is neither a key nor an index.
PRAGMA page_size=4096;
CREATE TABLE MP3 (
    fldVolum   TEXT COLLATE NOCASE,
    fldPath    TEXT COLLATE NOCASE,
    fldArtist  TEXT COLLATE NOCASE,
    fldSong    TEXT COLLATE NOCASE,
    fldAlbum   TEXT COLLATE NOCASE,
    fldYear    TEXT COLLATE NOCASE,
    fldComment TEXT COLLATE NOCASE
);
