// The questions as they stand on the screen.
#include "platform/dialogs_qt.h"

#include "platform/drives_system.h"
#include "tests/support/fakes.h"
#include "tests/support/temporary.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

class QtDialogsTest : public testing::Test {
protected:
    QtDialogsTest()
    {
        home.makeDirectory("home");
        home.makeDirectory("disk/Backups");
    }

    // Answers the dialog that opens next.
    template <typename Dialog>
    void whenOpen(const std::function<void(Dialog&)>& answer)
    {
        QTimer::singleShot(0, &context, [this, answer] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            seen = dialog->objectName() + u'|' + dialog->windowTitle();
            answer(*dialog);
        });
    }
    void choose(const QString& name)
    {
        whenOpen<QFileDialog>([name](QFileDialog& dialog) {
            dialog.findChild<QLineEdit*>(u"fileNameEdit"_qs)->setText(name);
            static_cast<QDialog&>(dialog).accept();
        });
    }

    Temporary home;
    UserDirectories user{home.at("home"), home.at("home"), home.at("home"), home.at("home")};
    SystemDrives drives{{.user = user, .declared = "D=" + home.at("disk") + ",DISK"}};
    FakeProgram program;
    QtDialogs dialogs{program, drives};
    QObject context;
    QString seen;
};

} // namespace

TEST_F(QtDialogsTest, carriageReturnsPartTheLinesOfAMessage)
{
    QString text;
    whenOpen<QMessageBox>([&](QMessageBox& box) {
        text = box.text();
        box.button(QMessageBox::Ok)->click();
    });
    EXPECT_EQ(dialogs.message({.text = u"one\rtwo\r\nthree\n<b>four"_qs, .title = u"Title"_qs}), Answer::Ok);
    EXPECT_EQ(seen, u"MessageBox|Title"_qs);
    EXPECT_EQ(text, u"one\ntwo\nthree\n<b>four"_qs);
}

TEST_F(QtDialogsTest, theInputBoxHandsBackWhatWasTyped)
{
    QString prompt;
    whenOpen<QInputDialog>([&](QInputDialog& box) {
        prompt = box.labelText();
        box.setTextValue(u"Bj\u00F6rk & 'co"_qs);
        box.accept();
    });
    EXPECT_EQ(dialogs.inputBox(u"Artist?"_qs, u"Search"_qs), u"Bj\u00F6rk & 'co"_qs);
    EXPECT_EQ(seen, u"InputBox|Search"_qs);
    EXPECT_EQ(prompt, u"Artist?"_qs);
}

TEST_F(QtDialogsTest, aCancelledInputBoxIsNoAnswer)
{
    whenOpen<QInputDialog>([](QInputDialog& box) {
        box.setTextValue(u"typed"_qs);
        box.reject();
    });
    EXPECT_EQ(dialogs.inputBox(u"Artist?"_qs, u"Search"_qs), std::nullopt);
}

TEST_F(QtDialogsTest, aFileToSaveIsSuggestedAndNamedByItsDrive)
{
    QString suggested;
    QString directory;
    whenOpen<QFileDialog>([&](QFileDialog& dialog) {
        suggested = dialog.findChild<QLineEdit*>(u"fileNameEdit"_qs)->text();
        directory = dialog.directory().path();
        static_cast<QDialog&>(dialog).accept();
    });
    EXPECT_EQ(dialogs.saveFile({.title = u"Save it"_qs,
                                .fileName = u"Songbin.Bck"_qs,
                                .directory = u"D:\\Backups"_qs,
                                .objectName = u"SaveDialog1"_qs}),
              u"D:\\Backups\\Songbin.Bck"_qs);
    EXPECT_EQ(seen, u"SaveDialog1|Save it"_qs);
    EXPECT_EQ(suggested, u"Songbin.Bck"_qs);
    EXPECT_EQ(directory.toUtf8(), home.at("disk/Backups"));
}

TEST_F(QtDialogsTest, strangeNamesComeThroughUnchanged)
{
    for (const QString& name : {u"a 'b' & c.Bck"_qs, u"\u00C5\u042F\u266B.Bck"_qs, u"no ending"_qs}) {
        choose(name);
        EXPECT_EQ(dialogs.saveFile({u"Save it"_qs, u"Songbin.Bck"_qs, u"D:\\"_qs}), u"D:\\"_qs + name);
    }
}

TEST_F(QtDialogsTest, aPatternIsAFilterAndNotAName)
{
    home.write("disk/one.Bck");
    QStringList filters;
    QString name = u"?"_qs;
    whenOpen<QFileDialog>([&](QFileDialog& dialog) {
        filters = dialog.nameFilters();
        auto* edit = dialog.findChild<QLineEdit*>(u"fileNameEdit"_qs);
        name = edit->text();
        edit->setText(u"one.Bck"_qs);
        static_cast<QDialog&>(dialog).accept();
    });
    EXPECT_EQ(dialogs.openFile({u"Open it"_qs, u"*.Bck"_qs, u"D:\\"_qs}), u"D:\\one.Bck"_qs);
    EXPECT_EQ(filters.value(0), u"*.Bck"_qs);
    EXPECT_EQ(filters.size(), 2);
    EXPECT_EQ(name, QString());
}

TEST_F(QtDialogsTest, aCancelledFileDialogIsNoAnswer)
{
    whenOpen<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(dialogs.openFile({u"Open it"_qs, u"*.Bck"_qs, u"D:\\"_qs}), std::nullopt);
    whenOpen<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(dialogs.saveFile({u"Save it"_qs, u"x"_qs, u"D:\\"_qs}), std::nullopt);
}

TEST_F(QtDialogsTest, aDirectoryThatIsNotThereIsTheHomeDirectory)
{
    QString directory;
    for (const QString& wanted : {u"Q:\\"_qs, u"D:\\no\\such"_qs}) {
        whenOpen<QFileDialog>([&](QFileDialog& dialog) {
            directory = dialog.directory().path();
            dialog.reject();
        });
        EXPECT_EQ(dialogs.openFile({u"Open it"_qs, u"*.Bck"_qs, wanted}), std::nullopt);
        EXPECT_EQ(directory, QDir::homePath()) << wanted.toStdString();
    }
}

TEST_F(QtDialogsTest, nothingIsAskedWhenTheProgramIsEnding)
{
    program.end(0);
    EXPECT_EQ(dialogs.inputBox(u"Artist?"_qs, u"Search"_qs), std::nullopt);
    EXPECT_EQ(dialogs.openFile({u"Open it"_qs, u"*.Bck"_qs, u"D:\\"_qs}), std::nullopt);
    EXPECT_EQ(dialogs.saveFile({u"Save it"_qs, u"x"_qs, u"D:\\"_qs}), std::nullopt);
}
