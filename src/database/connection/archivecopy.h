// Copies the archive out to a backup and back, so that neither copy is ever a torn one. Paths are absolute
// paths of the machine.
//
// The content is copied byte by byte, a file that is no database as well: nothing is checked.
#pragma once

#include "posix/copynotes.h"

class OpenGroups;

// A backup may be taken at any moment: this process's open groups are made durable first, other programs
// cannot write while the bytes are read (they wait, as for any reader), and what a killed program left
// unfinished is undone. Throws RunTimeError PermissionDenied when the archive is locked for longer than a
// second or is itself the target, else what copyToFile (posix/filecopy.h) throws, FileNotFound for an archive
// that is not there; the target then stays as it was.
void backUpArchive(const QByteArray& archive, const QByteArray& target, OpenGroups& groups,
                   const CopyNotes* notes = nullptr);

// The source is locked and settled likewise when it is a database. The archive's file is replaced, not
// written over: a connection that is open notices that at its next statement. Does nothing when the source is
// the archive itself. Throws RunTimeError PermissionDenied while this process has a group open or another
// program's lock lasts for longer than a second, else as above for a source that cannot be read; the archive
// then stays as it was.
void restoreArchive(const QByteArray& source, const QByteArray& archive, OpenGroups& groups,
                    const CopyNotes* notes = nullptr);
