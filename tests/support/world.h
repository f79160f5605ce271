// A whole platform on a temporary directory: real files, drives, settings and databases; faked are only the
// seams that would leave the process. Drive D: is the directory "disk" with the volume name ROCK_01, the
// program directory is "program" (drive P:).
#pragma once

#include "archive/core/archivecontext.h"
#include "archive/core/archivestore.h"
#include "archive/core/sharedvalues.h"
#include "base/codepage.h"
#include "platform/platform.h"
#include "system/drives/systemdrives.h"
#include "system/files/systemfilenumbers.h"
#include "system/files/systemfiles.h"
#include "system/settings/fileregistry.h"
#include "system/settings/fileusersettings.h"
#include "tests/support/fakes.h"
#include "tests/support/fakewindows.h"
#include "tests/support/temporary.h"

struct World {
    World();

    // Makes Songbin.mdb as the template has it.
    void makeArchive();
    // Returns the archive's rows in their natural order, values parted by "|".
    QStringList archiveRows();
    void execute(const QString& statement);
    // Makes files of drive D:, which nothing can play, and gives their paths.
    QStringList songs(const QStringList& names) const;

    Temporary directory;
    UserDirectories user;
    SystemDrives drives;
    FakeProgram program;
    SystemFiles files;
    SystemFileNumbers fileNumbers;
    FileRegistry registry;
    FileUserSettings settings;
    FakeLauncher launcher;
    FakePrinter printer;
    FakeDialogs dialogs;
    FakeWindows windows;
    SharedValues shared;
    ArchiveStore store;
    CodePage codePage = CodePage::windows1252();
    ArchiveContext context;
};
