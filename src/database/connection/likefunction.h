// Is LIKE in the archive's statements, which ignores case for every letter, not only for those of ASCII.
#pragma once

struct sqlite3;

// Replaces SQLite's LIKE on this connection, but not the form with ESCAPE. "%" stands for any characters, "_"
// for any one; a null on either side gives a null, a blob never fits. Throws RunTimeError kConnectionError.
void registerArchiveLike(sqlite3* database);
