// Has the archive's context on real seams, as the program builds it, with questions answered at once.
#pragma once

#include "archive/core/archivestore.h"
#include "archive/core/sharedvalues.h"
#include "archive/scan/frmresult.h"
#include "archive/scan/scansetup.h"
#include "base/codepage.h"
#include "system/desktop/qtprogram.h"
#include "system/drives/systemdrives.h"
#include "system/files/systemfilenumbers.h"
#include "system/files/systemfiles.h"
#include "system/settings/fileregistry.h"
#include "system/settings/fileusersettings.h"
#include "tests/support/fakes.h"
#include "tests/support/fakewindows.h"

class WholeTree : public ScanSetup {
public:
    QString searchString() const override { return QStringLiteral("D:\\*.MP3"); }
    QString directory() const override { return QStringLiteral("D:\\"); }
    bool includesSubdirectories() const override { return true; }
    QString customExt() const override { return QStringLiteral("MP3"); }
};

// Drive D: is the tree, P: the directory with the archive.
struct BenchWorld {
    BenchWorld(const std::string& work, const std::string& tree)
        : user{.home = place(work, "/home"),
               .config = place(work, "/config"),
               .state = place(work, "/state"),
               .data = place(work, "/data")},
          drives({.user = user, .declared = QByteArray::fromStdString("D=" + tree + ",ROCK_01\nP=" + work)}),
          program(QStringLiteral("P:"),
                  {QStringLiteral("Songbin"), QStringLiteral("0.0.0"), QStringLiteral("Songbin")}),
          files(drives), fileNumbers(drives), registry(user.config + "/registry.conf"),
          settings(user.config + "/settings.conf"),
          store(files, program, user.state), context{{drives, files, registry, settings, launcher, printer,
                                                      dialogs, program},
                                                     fileNumbers,
                                                     store,
                                                     shared,
                                                     windows,
                                                     codePage}
    {
        shared.SearchRoot = QStringLiteral("D:\\");
    }

    static QByteArray place(const std::string& work, const char* name)
    {
        return QByteArray::fromStdString(work + name);
    }

    // Returns the result window, scanned, on the screen.
    frmResult* scan()
    {
        auto* result =
            new frmResult(context, [this]() -> ScanSetup& { return setup; }, {.open = [] {}, .close = [] {}});
        result->showForm();
        return result;
    }

    UserDirectories user;
    SystemDrives drives;
    QtProgram program;
    SystemFiles files;
    SystemFileNumbers fileNumbers;
    FileRegistry registry;
    FileUserSettings settings;
    FakeLauncher launcher;
    FakePrinter printer;
    FakeDialogs dialogs;
    FakeWindows windows;
    SharedValues shared;
    WholeTree setup;
    ArchiveStore store;
    CodePage codePage = CodePage::windows1252();
    ArchiveContext context;
};
