// Knows the archive, one database file beside the program, and the texts by which windows connect to it.
#pragma once

#include "database/connection/archivecopy.h"
#include "database/connection/opengroups.h"

#include <QString>

class Dialogs;
class Drives;
class Files;
class Program;

// Is a named connection that several windows share, with the text by which it is opened.
struct DataEnvironment {
    QString connectionName;
    QString connectionText;
};

class ArchiveStore {
public:
    // Takes the user's directory for the program's state, where unfinished copies are noted.
    ArchiveStore(Files& files, Program& program, const QByteArray& state);

    QString file() const; // "...\Songbin.mdb"

    // Copies the template when there is no archive yet, after a word to the user. An archive that is there,
    // be it empty or damaged, stays as it is. Throws RunTimeError FileNotFound when the template is
    // missing, PathFileAccess when what has the archive's name is no file, such as a link to a disk that is
    // not there.
    void createOnFirstRun(Dialogs& dialogs);

    // A program that was killed during an import leaves its unfinished group beside the archive. It is undone
    // here, so that the archive is one whole file again. What one that was killed during a backup or a
    // restore left is removed, in the background. It costs nothing when there is none, and never fails.
    void recover(Drives& drives);

    QString sharedConnectionText() const;
    QString ownConnectionText() const; // for a window or an import with a connection of its own

    OpenGroups groups; // of all connections to the archive that this process has
    CopyNotes copies;

    DataEnvironment SelectData;
    DataEnvironment DataEnvironment1;

private:
    Files& m_files;
    Program& m_program;
};
