-- The empty archive: one table, one row to each song of each disk.
-- Duplicates are allowed, so there is neither a key nor an index. What a row does not tell is a blank, as an
-- import stores it, because a search asks for every field and no text is like a null.
PRAGMA page_size=4096;
CREATE TABLE MP3 (
    fldVolum   TEXT COLLATE NOCASE DEFAULT ' ',
    fldPath    TEXT COLLATE NOCASE DEFAULT ' ',
    fldArtist  TEXT COLLATE NOCASE DEFAULT ' ',
    fldSong    TEXT COLLATE NOCASE DEFAULT ' ',
    fldAlbum   TEXT COLLATE NOCASE DEFAULT ' ',
    fldYear    TEXT COLLATE NOCASE DEFAULT ' ',
    fldComment TEXT COLLATE NOCASE DEFAULT ' '
);
