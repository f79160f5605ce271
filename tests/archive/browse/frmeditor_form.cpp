#include "archive/browse/frmeditor.h"

#include "archive/browse/querytext.h"
#include "database/cursor/rowwriter.h"
#include "tests/support/find.h"
#include "tests/support/world.h"
#include "toolkit/widgets/picturebutton.h"
#include "toolkit/widgets/recordbar.h"
#include "toolkit/widgets/textfield.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>

#include <gtest/gtest.h>

namespace {

struct EditorTest : testing::Test {
    World world;
    QPointer<frmEditor> editor;

    EditorTest() { world.makeArchive(); }
    ~EditorTest() override { delete editor; }

    void add(const QString& artist, const QString& song)
    {
        world.execute(
            u"INSERT INTO MP3 VALUES ('ROCK_01', 'D:\\%2.mp3', '%1', '%2', 'L', '1999', 'C')"_qs.arg(artist,
                                                                                                     song));
    }
    frmEditor& open()
    {
        delete editor;
        editor = new frmEditor(world.context);
        editor->showForm();
        return *editor;
    }
    frmEditor& openThree()
    {
        add(u"Cello"_qs, u"third"_qs);
        add(u"Alto"_qs, u"first"_qs);
        add(u"bass"_qs, u"second"_qs);
        return open();
    }
    QString fields() const
    {
        QStringList texts;
        for (const TextField* field : editor->txtFields)
            texts += field->text();
        return texts.join(u'|');
    }
    QString song() const { return editor->txtFields[2]->text(); }
    QString status() const { return editor->picStatBox->lblStatus->text(); }
    void type(int field, const QString& text)
    {
        TextField* box = editor->txtFields[static_cast<std::size_t>(field)];
        box->selectAll();
        QTest::keyClicks(box, text);
    }
    void find(const char* button, const QString& text)
    {
        world.dialogs.inputAnswer = text;
        click(*editor, button);
    }
    bool isShown(const char* name) { return ::find<QWidget>(*editor, name)->isVisible(); }
    void expectRest(bool rest)
    {
        for (const char* name : {"cmdAdd", "cmdEdit", "cmdDelete", "cmdClose", "cmdRefresh"})
            EXPECT_EQ(isShown(name), rest) << name;
        for (const char* name : {"cmdUpdate", "cmdCancel"})
            EXPECT_EQ(isShown(name), !rest) << name;
        for (const char* name : {"cmdFirst", "cmdPrevious", "cmdNext", "cmdLast"})
            EXPECT_EQ(::find<QWidget>(*editor, name)->isEnabled(), rest) << name;
    }
    QStringList rows() { return world.archiveRows(); }
};

} // namespace

TEST_F(EditorTest, showsTheFirstRecordByArtist)
{
    openThree();
    EXPECT_EQ(fields(), u"Alto|D:\\first.mp3|first|ROCK_01");
    EXPECT_EQ(status(), u"Record: 1");
    expectRest(true);
    EXPECT_FALSE(isShown("cmdFindNext"));
    click(*editor, "cmdNext");
    EXPECT_EQ(song(), u"second");
    click(*editor, "cmdNext");
    EXPECT_EQ(song(), u"third");
    click(*editor, "cmdNext");
    EXPECT_EQ(song(), u"third");
    EXPECT_EQ(world.program.beeps, 1);
    click(*editor, "cmdPrevious");
    EXPECT_EQ(status(), u"Record: 2");
    click(*editor, "cmdFirst");
    click(*editor, "cmdPrevious");
    EXPECT_EQ(status(), u"Record: 1");
    EXPECT_EQ(world.program.beeps, 2);
    click(*editor, "cmdLast");
    EXPECT_EQ(status(), u"Record: 3");
}

TEST_F(EditorTest, everyControlHasItsCaption)
{
    open();
    const std::vector<std::pair<const char*, QString>> captions{{"cmdFindRec", u"Find Artist"_qs},
                                                                {"cmdFindSong", u"Find Song"_qs},
                                                                {"cmdFindNext", u"Find Next"_qs},
                                                                {"cmdPlay", u"Play Song"_qs},
                                                                {"cmdAdd", u"&Add"_qs},
                                                                {"cmdEdit", u"&Edit"_qs},
                                                                {"cmdDelete", u"&Delete"_qs},
                                                                {"cmdRefresh", u"&Refresh"_qs},
                                                                {"cmdClose", u"&Close"_qs},
                                                                {"cmdUpdate", u"&Update"_qs},
                                                                {"cmdCancel", u"&Cancel"_qs},
                                                                {"Command1", u"Select MP3 player to use"_qs}};
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(::find<QPushButton>(*editor, name)->text(), caption);
    EXPECT_FALSE(::find<QPushButton>(*editor, "cmdPlay")->toolTip().isEmpty());
    EXPECT_EQ(::find<QLabel>(*editor, "Label1")->text(), u"Songbin Editor");
    const QStringList labels{u"Artist:"_qs, u"Path:"_qs, u"Song:"_qs, u"Disk Name:"_qs};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(::find<QLabel>(*editor, qPrintable(u"lblLabels(%1)"_qs.arg(i)))->text().remove(u'&'),
                  labels[i]);
        EXPECT_TRUE(::find<TextField>(*editor, qPrintable(u"txtFields(%1)"_qs.arg(i))));
    }
}

TEST_F(EditorTest, findsAnArtistInAnyCaseFromTheFirstRecordOn)
{
    add(u"Zebra"_qs, u"z"_qs);
    add(u"The BEATniks"_qs, u"t"_qs);
    add(u"Heartbeat"_qs, u"h"_qs);
    open();
    click(*editor, "cmdLast");
    find("cmdFindRec", u"beat"_qs);
    EXPECT_EQ(world.dialogs.asked, QStringList(u"Search|Name/part of name of artist."_qs));
    EXPECT_EQ(song(), u"h");
    EXPECT_TRUE(isShown("cmdFindNext"));
    click(*editor, "cmdFindNext");
    EXPECT_EQ(song(), u"t");
    click(*editor, "cmdFindNext");
    EXPECT_EQ(fields(), u"|||");
    EXPECT_EQ(status(), u"Record: 0");
    EXPECT_TRUE(world.dialogs.messages.empty());
    EXPECT_TRUE(world.dialogs.errors.empty());
    click(*editor, "cmdFindNext");
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{kNoCurrentRecord});
    EXPECT_TRUE(editor->isVisible());
}

TEST_F(EditorTest, findsASong)
{
    openThree();
    find("cmdFindSong", u"IR"_qs);
    EXPECT_EQ(world.dialogs.asked, QStringList(u"Search|Name/part of name of song."_qs));
    EXPECT_EQ(song(), u"first");
    click(*editor, "cmdFindNext");
    EXPECT_EQ(song(), u"third");
}

TEST_F(EditorTest, aFindThatIsCancelledOrEmptyChangesNothing)
{
    openThree();
    click(*editor, "cmdNext");
    world.dialogs.inputAnswer = std::nullopt;
    click(*editor, "cmdFindRec");
    find("cmdFindSong", QString());
    EXPECT_EQ(song(), u"second");
    EXPECT_FALSE(isShown("cmdFindNext"));
    find("cmdFindSong", u"d"_qs);
    EXPECT_EQ(song(), u"second");
    world.dialogs.inputAnswer = std::nullopt;
    click(*editor, "cmdFindRec");
    EXPECT_TRUE(isShown("cmdFindNext"));
    click(*editor, "cmdFindNext");
    EXPECT_EQ(song(), u"third");
}

TEST_F(EditorTest, anApostropheBreaksTheFind)
{
    openThree();
    click(*editor, "cmdLast");
    find("cmdFindRec", u"o'brien"_qs);
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{kBadCriterion});
    EXPECT_EQ(status(), u"Record: 1");
    EXPECT_FALSE(isShown("cmdFindNext"));
}

TEST_F(EditorTest, findNextIsHiddenAgainWhenTheWindowWasClosed)
{
    openThree();
    find("cmdFindRec", u"a"_qs);
    EXPECT_TRUE(isShown("cmdFindNext"));
    click(*editor, "cmdClose");
    EXPECT_TRUE(editor->cmdFindNext->isHidden());
}

TEST_F(EditorTest, editSwapsTheButtonsAndUpdateSaves)
{
    openThree();
    click(*editor, "cmdNext");
    click(*editor, "cmdEdit");
    EXPECT_EQ(status(), u"Edit record");
    expectRest(false);
    type(2, u"Sjøen"_qs);
    EXPECT_TRUE(rows()[2].contains(u"second"));
    click(*editor, "cmdUpdate");
    expectRest(true);
    EXPECT_EQ(status(), u"Record: 2");
    EXPECT_EQ(rows()[2], u"ROCK_01|D:\\second.mp3|bass|Sjøen|L|1999|C");
}

TEST_F(EditorTest, theBoxesCanBeEditedAtAllTimesAndMovingAwaySaves)
{
    openThree();
    type(0, u"Aalto"_qs);
    click(*editor, "cmdNext");
    EXPECT_EQ(rows()[1], u"ROCK_01|D:\\first.mp3|Aalto|first|L|1999|C");
    type(3, u"DISK 9"_qs);
    QTest::keyClick(editor->txtFields[3], Qt::Key_Down);
    EXPECT_EQ(rows()[2], u"DISK 9|D:\\second.mp3|bass|second|L|1999|C");
    type(3, u"X"_qs);
    find("cmdFindRec", u"aalto"_qs);
    EXPECT_EQ(rows()[0], u"X|D:\\third.mp3|Cello|third|L|1999|C");
}

TEST_F(EditorTest, closingDropsWhatIsPending)
{
    openThree();
    const QStringList before = rows();
    type(2, u"stray"_qs);
    click(*editor, "cmdClose");
    EXPECT_EQ(rows(), before);
    open();
    QTest::keyClick(editor->txtFields[0], Qt::Key_X);
    QTest::keyClick(editor->txtFields[0], Qt::Key_Escape);
    EXPECT_FALSE(editor->isVisible());
    EXPECT_EQ(rows(), before);
    open();
    click(*editor, "cmdEdit");
    type(2, u"stray"_qs);
    editor->close();
    EXPECT_EQ(rows(), before);
    open();
    click(*editor, "cmdAdd");
    type(2, u"dropped"_qs);
    editor->close();
    EXPECT_EQ(rows().size(), 3);
    EXPECT_FALSE(rows().join(u' ').contains(u"dropped"));
}

TEST_F(EditorTest, refreshSavesAndReadsAgain)
{
    openThree();
    type(2, u"changed"_qs);
    add(u"Aaa"_qs, u"new"_qs);
    click(*editor, "cmdRefresh");
    EXPECT_EQ(song(), u"new");
    EXPECT_TRUE(rows()[1].contains(u"changed"));
}

TEST_F(EditorTest, addThenUpdateShowsTheNewRecordAsTheLast)
{
    openThree();
    click(*editor, "cmdAdd");
    EXPECT_EQ(status(), u"Add record");
    EXPECT_EQ(fields(), u"|||");
    expectRest(false);
    type(0, u"Aaa"_qs);
    type(1, u"D:\\new.mp3"_qs);
    click(*editor, "cmdUpdate");
    expectRest(true);
    EXPECT_EQ(status(), u"Record: 4");
    EXPECT_EQ(fields(), u"Aaa|D:\\new.mp3| | ");
    EXPECT_EQ(rows()[3], u" |D:\\new.mp3|Aaa| | | | ");
    click(*editor, "cmdRefresh");
    EXPECT_EQ(fields(), u"Aaa|D:\\new.mp3| | ");
}

// The archive of these tests is one from before its columns had a default.
TEST_F(EditorTest, anAddedRecordIsFoundByASearchThatAsksForNothing)
{
    openThree();
    click(*editor, "cmdAdd");
    type(1, u"D:\\new.mp3"_qs);
    click(*editor, "cmdUpdate");
    Connection connection(world.drives);
    connection.open(world.store.ownConnectionText());
    Recordset found;
    Criteria every;
    every.extension = u"MP3"_qs;
    found.open(querytext::allOf(every), connection);
    EXPECT_EQ(found.recordCount(), 4);
}

TEST_F(EditorTest, anAddedRecordCanBeChangedAndDeletedAtOnce)
{
    openThree();
    click(*editor, "cmdAdd");
    type(0, u"Zoo"_qs);
    click(*editor, "cmdUpdate");
    type(2, u"later"_qs);
    click(*editor, "cmdPrevious");
    EXPECT_EQ(rows()[3], u" | |Zoo|later| | | ");
    click(*editor, "cmdLast");
    click(*editor, "cmdDelete");
    EXPECT_EQ(rows().size(), 3);
    EXPECT_TRUE(world.dialogs.errors.empty());
}

TEST_F(EditorTest, oneKeyThatFailsIsToldOnce)
{
    openThree();
    type(2, u"mine"_qs);
    world.execute(u"UPDATE MP3 SET fldSong = 'theirs' WHERE fldSong = 'first'"_qs);
    QTest::keyClick(editor->txtFields[2], Qt::Key_Down);
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{kRowNotFound});
}

TEST_F(EditorTest, findNextFromTheLastRecordIsAFindWithoutAHit)
{
    openThree();
    find("cmdFindSong", u"third"_qs);
    EXPECT_EQ(status(), u"Record: 3");
    click(*editor, "cmdFindNext");
    EXPECT_EQ(fields(), u"|||");
    EXPECT_TRUE(editor->records().eof());
    EXPECT_TRUE(world.dialogs.errors.empty());
    click(*editor, "cmdFindNext");
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{kNoCurrentRecord});
    EXPECT_EQ(fields(), u"|||");
    click(*editor, "cmdPrevious");
    EXPECT_EQ(song(), u"third");
}

TEST_F(EditorTest, anAddedRecordThatIsEmptyIsRefused)
{
    openThree();
    click(*editor, "cmdAdd");
    click(*editor, "cmdUpdate");
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{kEmptyRow});
    expectRest(false);
    click(*editor, "cmdCancel");
    EXPECT_EQ(rows().size(), 3);
    expectRest(true);
}

TEST_F(EditorTest, cancelAfterAddComesBackToTheRecordBefore)
{
    openThree();
    click(*editor, "cmdNext");
    click(*editor, "cmdAdd");
    type(2, u"x"_qs);
    click(*editor, "cmdCancel");
    EXPECT_EQ(status(), u"Record: 2");
    EXPECT_EQ(song(), u"second");
    EXPECT_EQ(rows().size(), 3);
}

TEST_F(EditorTest, cancelAfterEditGoesToTheFirstRecordOrTheBookmarkOfTheLastAdd)
{
    openThree();
    click(*editor, "cmdLast");
    click(*editor, "cmdEdit");
    type(2, u"x"_qs);
    click(*editor, "cmdCancel");
    EXPECT_EQ(status(), u"Record: 1");
    EXPECT_EQ(song(), u"first");
    EXPECT_FALSE(rows().join(u' ').contains(u"x|"));
    click(*editor, "cmdNext");
    click(*editor, "cmdAdd");
    click(*editor, "cmdCancel");
    click(*editor, "cmdLast");
    click(*editor, "cmdEdit");
    click(*editor, "cmdCancel");
    EXPECT_EQ(status(), u"Record: 2");
    click(*editor, "cmdRefresh");
    click(*editor, "cmdLast");
    click(*editor, "cmdEdit");
    click(*editor, "cmdCancel");
    EXPECT_TRUE(world.dialogs.errors.empty());
    EXPECT_EQ(status(), u"Record: 3");
}

TEST_F(EditorTest, anEmptyArchiveCanBeAddedToAndCancelled)
{
    open();
    EXPECT_EQ(status(), u"Record: 0");
    EXPECT_TRUE(editor->txtFields[0]->isReadOnly());
    click(*editor, "cmdNext");
    click(*editor, "cmdPrevious");
    EXPECT_EQ(world.program.beeps, 0);
    click(*editor, "cmdAdd");
    type(2, u"x"_qs);
    click(*editor, "cmdCancel");
    EXPECT_TRUE(world.dialogs.errors.empty());
    EXPECT_EQ(status(), u"Record: 0");
    EXPECT_TRUE(rows().isEmpty());
    click(*editor, "cmdAdd");
    type(2, u"one"_qs);
    click(*editor, "cmdUpdate");
    EXPECT_EQ(status(), u"Record: 1");
    EXPECT_EQ(rows().size(), 1);
    click(*editor, "cmdDelete");
    EXPECT_TRUE(rows().isEmpty());
    EXPECT_EQ(fields(), u"|||");
    EXPECT_TRUE(world.dialogs.errors.empty());
    click(*editor, "cmdDelete");
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{kNoCurrentRecord});
}

TEST_F(EditorTest, deleteTakesExactlyTheShownRecord)
{
    openThree();
    click(*editor, "cmdNext");
    click(*editor, "cmdDelete");
    EXPECT_EQ(song(), u"third");
    EXPECT_EQ(status(), u"Record: 2");
    EXPECT_EQ(rows().size(), 2);
    EXPECT_FALSE(rows().join(u' ').contains(u"second"));
    click(*editor, "cmdDelete");
    EXPECT_EQ(song(), u"first");
    EXPECT_TRUE(world.dialogs.messages.empty());
}

TEST_F(EditorTest, aRecordThatSomebodyElseChangedIsToldAndCanBeLeft)
{
    openThree();
    type(2, u"mine"_qs);
    world.execute(u"UPDATE MP3 SET fldSong = 'theirs' WHERE fldSong = 'first'"_qs);
    click(*editor, "cmdNext");
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{kRowNotFound});
    EXPECT_EQ(song(), u"mine");
    click(*editor, "cmdEdit");
    click(*editor, "cmdCancel");
    EXPECT_EQ(song(), u"first");
    click(*editor, "cmdNext");
    EXPECT_EQ(song(), u"second");
    EXPECT_TRUE(rows()[1].contains(u"theirs"));
}

TEST_F(EditorTest, keysStepThroughTheRecordsButNotWhileOneIsEdited)
{
    openThree();
    TextField* box = editor->txtFields[1];
    QTest::keyClick(box, Qt::Key_End);
    EXPECT_EQ(status(), u"Record: 3");
    QTest::keyClick(box, Qt::Key_PageUp);
    EXPECT_EQ(status(), u"Record: 2");
    QTest::keyClick(box, Qt::Key_Home);
    EXPECT_EQ(status(), u"Record: 1");
    QTest::keyClick(box, Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(status(), u"Record: 3");
    QTest::keyClick(box, Qt::Key_Up, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(status(), u"Record: 2");
    click(*editor, "cmdEdit");
    for (const Qt::Key key : {Qt::Key_End, Qt::Key_Home, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_Escape})
        QTest::keyClick(box, key);
    EXPECT_EQ(status(), u"Edit record");
    EXPECT_EQ(song(), u"second");
    EXPECT_TRUE(editor->isVisible());
    click(*editor, "cmdUpdate");
    QTest::keyClick(box, Qt::Key_Escape);
    EXPECT_FALSE(editor->isVisible());
}

TEST_F(EditorTest, playsTheShownSong)
{
    openThree();
    click(*editor, "cmdPlay");
    EXPECT_EQ(world.shared.PlayPath, u"D:\\first.mp3");
    EXPECT_EQ(world.launcher.opened, QStringList(u"D:\\first.mp3"_qs));
    EXPECT_TRUE(world.dialogs.messages.empty());
    click(*editor, "cmdNext");
    for (TextField* box : editor->txtFields)
        QTest::mouseDClick(box, Qt::LeftButton);
    EXPECT_EQ(world.launcher.opened.size(), 5);
    EXPECT_EQ(world.launcher.opened.last(), u"D:\\second.mp3");
    EXPECT_EQ(rows().size(), 3);
}

// The check is made by the record that is shown here, whatever file was asked for.
TEST_F(EditorTest, SpillMusikkChecksTheShownRecordAndPlaysThePathAskedFor)
{
    openThree();
    world.shared.PlayPath = u"D:\\asked.mp3"_qs;
    editor->SpillMusikk();
    EXPECT_TRUE(world.dialogs.messages.empty());
    type(3, u"OTHER"_qs);
    editor->SpillMusikk();
    EXPECT_EQ(world.dialogs.messages.size(), 1U);
    EXPECT_EQ(world.launcher.opened, (QStringList{u"D:\\asked.mp3"_qs, u"D:\\asked.mp3"_qs}));
}

TEST_F(EditorTest, thePlayerChoiceOpens)
{
    open();
    click(*editor, "Command1");
    EXPECT_EQ(world.windows.shown, std::vector<WindowId>{WindowId::frmOptions});
}

TEST_F(EditorTest, anArchiveThatCannotBeOpenedIsExplained)
{
    world.directory.write("program/Songbin.mdb", QByteArray(5000, 'x'));
    editor = new frmEditor(world.context);
    editor->showForm();
    EXPECT_FALSE(editor->isVisible());
    ASSERT_EQ(world.dialogs.messages.size(), 1U);
    EXPECT_TRUE(world.dialogs.messages[0].text.contains(u"no archive"));
}

TEST_F(EditorTest, strangeValuesAreNotChangedByBeingShown)
{
    const QString large(100'000, u'x');
    world.execute(
        u"INSERT INTO MP3 VALUES (NULL, 'D:\\two\r\nlines', '%1', char(9) || 'tab', NULL, NULL, NULL)"_qs.arg(
            large));
    const QStringList before = rows();
    open();
    EXPECT_TRUE(editor->txtFields[0]->text() == large);
    click(*editor, "cmdPlay");
    EXPECT_EQ(world.launcher.opened, QStringList(u"D:\\two\r\nlines"_qs));
    type(3, u"V"_qs);
    click(*editor, "cmdNext");
    EXPECT_TRUE(rows()[0].startsWith(u"V|D:\\two\r\nlines|xxx"));
    EXPECT_EQ(rows()[0].size(), before[0].size() - 6 + 1);
}

TEST_F(EditorTest, theWindowKeepsItsSizeWhenTheButtonsAreSwapped)
{
    openThree();
    const QSize before = editor->size();
    const QSize smallest = editor->minimumSizeHint();
    for (const char* button : {"cmdEdit", "cmdCancel", "cmdAdd", "cmdCancel", "cmdEdit", "cmdUpdate"}) {
        click(*editor, button);
        QCoreApplication::processEvents();
        EXPECT_EQ(editor->size(), before) << button;
        EXPECT_LE(editor->minimumSizeHint().width(), smallest.width()) << button;
    }
}

TEST_F(EditorTest, aHeldAccessKeyPressesItsButtonOnce)
{
    openThree();
    ASSERT_TRUE(QTest::qWaitForWindowActive(editor));
    for (const bool again : {true, true, true}) {
        QKeyEvent ask(QEvent::ShortcutOverride, Qt::Key_D, Qt::AltModifier, u"d"_qs, again);
        QCoreApplication::sendEvent(editor->txtFields[0], &ask);
        EXPECT_TRUE(ask.isAccepted()); // so that it is no shortcut
        QKeyEvent press(QEvent::KeyPress, Qt::Key_D, Qt::AltModifier, u"d"_qs, again);
        QCoreApplication::sendEvent(editor->txtFields[0], &press);
    }
    EXPECT_EQ(rows().size(), 3);
    EXPECT_EQ(editor->txtFields[0]->text(), u"Alto"_qs);
}

// The number of a row that was deleted is given to the next one.
TEST_F(EditorTest, aRowThatIsEqualInTheShownFieldsAloneIsNotDeleted)
{
    world.execute(u"INSERT INTO MP3 VALUES ('D','D:\\a.mp3','A','song','one','1999','c')"_qs);
    open();
    world.execute(u"DELETE FROM MP3"_qs);
    world.execute(u"INSERT INTO MP3 VALUES ('D','D:\\a.mp3','A','song','other','1999','c')"_qs);
    click(*editor, "cmdDelete");
    EXPECT_EQ(world.dialogs.errors.size(), 1U);
    EXPECT_EQ(rows().size(), 1);
}

TEST_F(EditorTest, theTotalAndWhatAFindCameToStandBesideThePosition)
{
    openThree();
    const auto text = [&](const char* name) { return ::find<QLabel>(*editor, name)->text(); };
    EXPECT_EQ(text("lblTotal"), u"3 records");
    EXPECT_EQ(text("lblFound"), QString());
    find("cmdFindRec", u"nobody"_qs);
    EXPECT_EQ(text("lblFound"), u"Nothing found: no artist with “nobody”");
    EXPECT_EQ(status(), u"Record: 0");
    click(*editor, "cmdFirst");
    EXPECT_EQ(text("lblFound"), QString());
    find("cmdFindSong", u"third"_qs);
    EXPECT_EQ(text("lblFound"), QString());
    EXPECT_EQ(status(), u"Record: 3");
    click(*editor, "cmdFindNext");
    EXPECT_EQ(text("lblFound"), u"Nothing more found: no other song with “third”");
    click(*editor, "cmdPrevious");
    EXPECT_EQ(text("lblFound"), QString());
    click(*editor, "cmdAdd");
    EXPECT_EQ(status(), u"Add record");
    type(0, u"New"_qs);
    click(*editor, "cmdUpdate");
    EXPECT_EQ(text("lblTotal"), u"4 records");
    for (int i = 0; i < 3; ++i)
        click(*editor, "cmdDelete");
    EXPECT_EQ(text("lblTotal"), u"1 record");
    EXPECT_EQ(status(), u"Record: 1");
}

TEST_F(EditorTest, theTextsBesideThePositionLieInsideItAndDoNotOverlap)
{
    openThree();
    find("cmdFindRec", QString(300, u'm'));
    for (const int width : {editor->minimumSizeHint().width(), 900, 1600}) {
        editor->resize(width, 400);
        QCoreApplication::processEvents();
        const RecordBar& bar = *editor->picStatBox;
        EXPECT_TRUE(bar.lblStatus->geometry().contains(bar.lblTotal->geometry())) << width;
        EXPECT_TRUE(bar.lblStatus->geometry().contains(bar.lblFound->geometry())) << width;
        EXPECT_GT(bar.lblTotal->x(), bar.lblFound->geometry().right()) << width;
        EXPECT_GT(bar.lblFound->x(), bar.lblStatus->x() + bar.lblStatus->sizeHint().width()) << width;
        EXPECT_GE(bar.lblTotal->width(), bar.lblTotal->sizeHint().width()) << width;
        EXPECT_GE(bar.lblFound->width(), bar.lblFound->sizeHint().width()) << width;
        EXPECT_TRUE(bar.lblFound->text().endsWith(u'…')) << width;
        EXPECT_TRUE(bar.lblFound->toolTip().contains(QString(300, u'm'))) << width;
    }
}

TEST_F(EditorTest, controlsStandAsTheWindowIsWide)
{
    open();
    editor->resize(900, 400);
    QCoreApplication::processEvents();
    EXPECT_EQ(editor->picStatBox->lblStatus->width(), 800);
    EXPECT_EQ(editor->picStatBox->cmdNext->x(), 846);
    EXPECT_EQ(editor->picStatBox->cmdLast->x(), 868);
}
