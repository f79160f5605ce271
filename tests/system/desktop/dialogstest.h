// Shows the real dialogs, over a drive D: that the test fills.
#pragma once

#include "system/desktop/qtdialogs.h"
#include "system/drives/systemdrives.h"
#include "tests/support/fakes.h"
#include "tests/support/temporary.h"

#include <QFileDialog>
#include <QLineEdit>

#include <gtest/gtest.h>

class DialogsTest : public testing::Test {
protected:
    DialogsTest() { home.makeDirectory("home"); }

    static void typeAndAccept(QFileDialog& dialog, const QString& name)
    {
        dialog.findChild<QLineEdit*>(u"fileNameEdit"_qs)->setText(name);
        static_cast<QDialog&>(dialog).accept();
    }

    Temporary home;
    UserDirectories user{home.at("home"), home.at("home"), home.at("home"), home.at("home")};
    SystemDrives drives{{.user = user, .declared = "D=" + home.at("disk") + ",DISK"}};
    FakeProgram program;
    QtDialogs dialogs{program, drives};
    QObject context;
};
