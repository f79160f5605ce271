// Looks at the questions as they stand on the screen.
#include "tests/system/desktop/dialogstest.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QInputDialog>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QSplitter>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include <gtest/gtest.h>

namespace {

// Returns what the toolkit keeps of a file dialog for all of its programs.
QByteArray keptIn(const QFileDialog& dialog)
{
    const auto& columns = *dialog.findChild<QTreeView*>(u"treeView"_qs)->header();
    QByteArray kept;
    for (const QUrl& url : dialog.sidebarUrls())
        kept += url.toEncoded() + ' ';
    for (int column = 0; column < columns.count(); ++column)
        kept += QByteArray::number(columns.sectionResizeMode(column)) + ' ';
    kept += QByteArray::number(columns.sectionSize(0)) + (columns.stretchLastSection() ? " last " : " ");
    return kept + QByteArray::number(dialog.findChild<QSplitter*>(u"splitter"_qs)->sizes().constFirst());
}

class QtDialogsTest : public DialogsTest {
protected:
    QtDialogsTest() { home.makeDirectory("disk/Backups"); }

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
        whenOpen<QFileDialog>([name](QFileDialog& dialog) { typeAndAccept(dialog, name); });
    }

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

TEST_F(QtDialogsTest, aBoxIsWideEnoughForItsTitle)
{
    int width = 0;
    int title = 0;
    int line = 0;
    whenOpen<QMessageBox>([&](QMessageBox& box) {
        QFont bold = box.font();
        bold.setBold(true);
        title = QFontMetrics(bold).horizontalAdvance(box.windowTitle());
        line = QFontMetrics(bold).height();
        width = box.width();
        box.button(QMessageBox::Ok)->click();
    });
    dialogs.message(
        {.text = u"Yes."_qs, .title = u"A title that is longer than the short text in the box"_qs});
    EXPECT_GT(width, title + 8 * line); // the frame's icon and buttons stand beside it
}

TEST_F(QtDialogsTest, theErrorBoxSaysWhatCanBeDone)
{
    QString text;
    whenOpen<QMessageBox>([&](QMessageBox& box) {
        text = box.text();
        box.button(QMessageBox::Ok)->click();
    });
    dialogs.runTimeError(RunTimeError(ErrorNumber::DiskFull));
    EXPECT_EQ(text,
              u"Run-time error '61':\n\nDisk full\n\nMake room on the disk, or choose another place."_qs);
}

TEST_F(QtDialogsTest, theDrivesStandAtTheSideOfAFileDialogWithTheirNames)
{
    QStringList shown;
    QString chosen;
    whenOpen<QFileDialog>([&](QFileDialog& dialog) {
        auto* side = dialog.findChild<QListView*>(u"sidebar"_qs);
        QTest::qWait(100); // the toolkit looks at the directories meanwhile
        for (int row = 0; row < side->model()->rowCount(); ++row)
            shown += side->model()->index(row, 0).data().toString();
        const QModelIndex disk = side->model()->index(static_cast<int>(shown.indexOf(u"D: [DISK]"_qs)), 0);
        QTest::mouseClick(side->viewport(), Qt::LeftButton, {}, side->visualRect(disk).center());
        chosen = dialog.directory().path();
        dialog.reject();
    });
    dialogs.openFile({u"Open it"_qs, u"*.Bck"_qs, u"C:\\"_qs});
    EXPECT_EQ(shown, QStringList({u"C:"_qs, u"D: [DISK]"_qs, u"Z:"_qs}));
    EXPECT_EQ(chosen.toUtf8(), home.at("disk"));
}

TEST_F(QtDialogsTest, otherProgramsGetTheirShortcutsAndColumnsBack)
{
    const QByteArray before = [] {
        QFileDialog dialog;
        dialog.setOption(QFileDialog::DontUseNativeDialog);
        dialog.setSidebarUrls({QUrl::fromLocalFile(u"/"_qs)});
        auto& columns = *dialog.findChild<QTreeView*>(u"treeView"_qs)->header();
        columns.setSectionResizeMode(QHeaderView::Interactive);
        columns.setStretchLastSection(true);
        columns.resizeSection(0, 217);
        dialog.show(); // places its parts
        dialog.findChild<QSplitter*>(u"splitter"_qs)->setSizes({177, 300});
        return keptIn(dialog);
    }();
    whenOpen<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    dialogs.openFile({u"Open it"_qs, u"*.Bck"_qs, u"D:\\"_qs});
    QFileDialog dialog;
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.show();
    EXPECT_EQ(keptIn(dialog), before) << keptIn(dialog).constData() << " was " << before.constData();
}

TEST_F(QtDialogsTest, datesAreNotCut)
{
    home.write("disk/a name that is as long as names of files usually are - and longer.Bck");
    {
        QFileDialog another; // of some program, with a name's column that leaves the dates no room
        another.setOption(QFileDialog::DontUseNativeDialog);
        auto& columns = *another.findChild<QTreeView*>(u"treeView"_qs)->header();
        columns.setSectionResizeMode(QHeaderView::Interactive);
        columns.resizeSection(0, 2000);
    }
    const QFont usual = QApplication::font();
    for (const int points : {9, 14}) {
        QFont font = usual;
        font.setPointSize(points);
        QApplication::setFont(font);
        whenOpen<QFileDialog>([&](QFileDialog& dialog) {
            QTest::qWait(300); // until the directory was read
            const auto& files = *dialog.findChild<QTreeView*>(u"treeView"_qs);
            const int last = files.header()->count() - 1;
            const QModelIndex date = files.model()->index(0, last, files.rootIndex());
            const int needed = static_cast<const QAbstractItemView&>(files).sizeHintForIndex(date).width();
            EXPECT_GT(needed, 50) << points;
            EXPECT_GE(files.columnWidth(last), needed) << points;
            EXPECT_LE(files.columnViewportPosition(last) + files.columnWidth(last), files.viewport()->width())
                << points;
            EXPECT_GE(files.columnWidth(0), 20 * files.fontMetrics().averageCharWidth()) << points;
            dialog.reject();
        });
        dialogs.openFile({u"Open it"_qs, u"*.Bck"_qs, u"D:\\"_qs});
    }
    QApplication::setFont(usual);
}

TEST_F(QtDialogsTest, anyNameThatIsTypedCanBeOpened)
{
    home.write("disk/an archive.mdb");
    home.write("disk/Backups/old.copy");
    home.write("home/mine.Bck");
    home.write("disk/.hidden copy");
    const QString absolute = QString::fromUtf8(home.at("disk/Backups/old.copy"));
    const std::vector<std::pair<QString, QString>> names = {
        {u"an archive.mdb"_qs, u"D:\\an archive.mdb"_qs},
        {absolute, u"D:\\Backups\\old.copy"_qs},
        {u"Backups/old.copy"_qs, u"D:\\Backups\\old.copy"_qs},
        {u"Backups\\old.copy"_qs, u"D:\\Backups\\old.copy"_qs},
        {u"d:\\backups\\OLD.copy"_qs, u"D:\\Backups\\old.copy"_qs},
        {u".hidden copy"_qs, u"D:\\.hidden copy"_qs},
        {u"AN ARCHIVE.MDB"_qs, u"D:\\an archive.mdb"_qs},
        {u"C:\\mine.Bck"_qs, u"C:\\mine.Bck"_qs}};
    for (const auto& [typed, opened] : names) {
        bool enabled = false;
        whenOpen<QFileDialog>([&](QFileDialog& dialog) {
            QTest::qWait(200);
            auto* edit = dialog.findChild<QLineEdit*>(u"fileNameEdit"_qs);
            edit->setFocus();
            QTest::keyClicks(edit, typed);
            QMetaObject::invokeMethod(&dialog, "_q_updateOkButton"); // as when it hears of another file
            QTimer::singleShot(500, &context, [] {
                if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
                    box->close(); // that the file is not there
            });
            const auto* buttons = dialog.findChild<QDialogButtonBox*>(u"buttonBox"_qs);
            enabled = buttons->button(QDialogButtonBox::Open)->isEnabled();
            QTest::mouseClick(buttons->button(QDialogButtonBox::Open), Qt::LeftButton);
            if (dialog.isVisible())
                dialog.reject();
        });
        EXPECT_EQ(dialogs.openFile({u"Open it"_qs, u"*.Bck"_qs, u"D:\\"_qs}), opened) << typed.toStdString();
        EXPECT_TRUE(enabled) << typed.toStdString();
    }
}

TEST_F(QtDialogsTest, aBackslashMayBePartOfAName)
{
    home.makeDirectory("disk/a");
    home.write("disk/a/b.Bck");
    home.write("disk/a\\b.Bck");
    choose(u"a\\b.Bck"_qs);
    EXPECT_EQ(dialogs.openFile({u"Open it"_qs, u"*.Bck"_qs, u"D:\\"_qs}),
              drives.drivePath(home.at("disk/a\\b.Bck")));
}

TEST_F(QtDialogsTest, aFileToSaveMayBeTypedWithItsDrive)
{
    home.makeDirectory("disk/a");
    home.write("disk/a/b.Bck");
    choose(u"d:\\Backups\\new.Bck"_qs);
    EXPECT_EQ(dialogs.saveFile({u"Save it"_qs, u"x"_qs, u"C:\\"_qs}), u"D:\\Backups\\new.Bck"_qs);
    choose(u"a\\b.Bck"_qs); // a name like any other here
    EXPECT_EQ(dialogs.saveFile({u"Save it"_qs, u"x"_qs, u"D:\\"_qs}),
              drives.drivePath(home.at("disk/a\\b.Bck")));
}

TEST_F(QtDialogsTest, aFileOfAnEqualNameIsNotReplacedWithoutAQuestion)
{
    home.write("disk/One.Bck");
    home.write("disk/A\xCC\x8A.Bck"); // the letter and its ring apart
    for (const QString& typed : {u"one.bck"_qs, u"\u00C5.Bck"_qs}) {
        QString told;
        whenOpen<QFileDialog>([&](QFileDialog& dialog) {
            dialog.findChild<QLineEdit*>(u"fileNameEdit"_qs)->setText(typed);
            QTimer::singleShot(0, &context, [&] {
                if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                    told = box->text();
                    box->close();
                }
            });
            static_cast<QDialog&>(dialog).accept();
            dialog.reject();
        });
        dialogs.saveFile({u"Save it"_qs, u"x"_qs, u"D:\\"_qs});
        EXPECT_TRUE(told.contains(u".Bck"_qs)) << typed.toStdString() << told.toStdString();
    }
}

TEST_F(QtDialogsTest, aNameThatIsNotThereIsToldAndAnotherCanBeTyped)
{
    home.write("disk/one.Bck");
    QString told;
    whenOpen<QFileDialog>([&](QFileDialog& dialog) {
        auto* edit = dialog.findChild<QLineEdit*>(u"fileNameEdit"_qs);
        edit->setText(u"D:\\none.Bck"_qs);
        QTimer::singleShot(0, &context, [&] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                told = box->text();
                box->close();
            }
        });
        QTest::mouseClick(
            dialog.findChild<QDialogButtonBox*>(u"buttonBox"_qs)->button(QDialogButtonBox::Open),
            Qt::LeftButton);
        EXPECT_TRUE(dialog.isVisible());
        edit->setText(u"one.Bck"_qs);
        static_cast<QDialog&>(dialog).accept();
    });
    EXPECT_EQ(dialogs.openFile({u"Open it"_qs, u"*.Bck"_qs, u"D:\\"_qs}), u"D:\\one.Bck"_qs);
    EXPECT_TRUE(told.contains(u"none.Bck"_qs)) << told.toStdString();
}

TEST_F(QtDialogsTest, nothingIsAskedWhenTheProgramIsEnding)
{
    program.end(0);
    EXPECT_EQ(dialogs.inputBox(u"Artist?"_qs, u"Search"_qs), std::nullopt);
    EXPECT_EQ(dialogs.openFile({u"Open it"_qs, u"*.Bck"_qs, u"D:\\"_qs}), std::nullopt);
    EXPECT_EQ(dialogs.saveFile({u"Save it"_qs, u"x"_qs, u"D:\\"_qs}), std::nullopt);
}
