// Holds the two commands that copy the archive out to a file of the user's choice, and such a file back.
#pragma once

struct ArchiveContext;

// Kept: cancelling the dialog is not trapped, so that the copy then goes to "Songbin.Bck" in the current
// directory all the same, and is told. Throws what backUpArchive (database/connection/archivecopy.h) throws.
void makeBackup(ArchiveContext& context);

// Ends without a word, and without change, when it is not wanted, cancelled or cannot be done.
void restoreBackup(ArchiveContext& context);
