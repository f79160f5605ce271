#include "archive/scan/insertrows.h"

#include "platform/grid.h"
#include "tests/support/childprocess.h"
#include "tests/support/directorysyncs.h"
#include "tests/support/world.h"
#include "toolkit/grids/texttable.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <sqlite3.h>

#include <csignal>

namespace {

class TableGrid : public Grid {
public:
    int Rows() const override { return table.rows(); }
    int Cols() const override { return table.columns(); }
    int Row() const override { return m_row; }
    int Col() const override { return m_col; }
    void setRow(int row) override { m_row = row; }
    void setCol(int col) override { m_col = col; }
    QString Text() const override { return table.text(m_row, m_col); }
    void setText(const QString& text) override { table.setText(m_row, m_col, text); }
    void setRedraw(bool on) override
    {
        redraw = on;
        wasOff = wasOff || !on;
    }
    void addItem(const QStringList& values) override { table.append(values); }

    TextTable table{7};
    bool redraw = true;
    bool wasOff = false;

private:
    int m_row = 0;
    int m_col = 0;
};

class View : public ImportView {
public:
    void setLabel1(const QString& text) override { label1 = text; }
    void setLabel5(const QString& text) override { label5 = text; }
    void showNow() override
    {
        ++shown;
        shownLabel = label1;
    }

    void setWaiting(const QString& text) override { waiting += text; }

    QStringList waiting;
    QString label1;
    QString shownLabel;
    QString label5 = QStringLiteral("Time taken: 1 seconds");
    int shown = 0;
};

struct InsertGridRowsTest : testing::Test {
    World world;
    TableGrid grid;
    View view;

    InsertGridRowsTest() { world.makeArchive(); }
    void add(const QString& song, const QString& comment = {})
    {
        grid.addItem({u"ROCK_01"_qs, u"D:\\a.mp3"_qs, u"Artist"_qs, song, {}, {}, comment});
    }
    void insert()
    {
        world.program.busyPointer = true;
        InsertGridRows(world.context, grid, view);
    }
    QByteArray trace() { return world.directory.read("home/.local/state/Songbin/test.txt"); }
    QStringList songs()
    {
        QStringList all;
        for (const QString& row : world.archiveRows())
            all += row.section(u'|', 3, 3);
        return all;
    }
};

} // namespace

TEST(valueList, quotesEachValueAndPartsThemByCommas)
{
    EXPECT_EQ(valueList({u"a"_qs, u"b"_qs}), u"'a', 'b'"_qs);
}

TEST(valueList, anEmptyValueBecomesABlank)
{
    EXPECT_EQ(valueList({u"a"_qs, QString(), QString()}), u"'a', ' ', ' '"_qs);
}

TEST(valueList, apostrophesAreNotEscapedButParted)
{
    EXPECT_EQ(valueList({u"it's"_qs}), u"'it's'"_qs);
    EXPECT_EQ(valueList({u"'"_qs}), u"' ''"_qs); // pairs are parted from the left, once
}

TEST(traceLine, endsEveryValueButTheLastWithASemicolon)
{
    EXPECT_EQ(traceLine({u"ROCK"_qs, u"x"_qs, QString(), u"y"_qs}), u"ROCK;x; ; y\r\n"_qs);
    EXPECT_EQ(traceLine({QString(), QString()}), u" ;  \r\n"_qs);
}

TEST_F(InsertGridRowsTest, storesOneRecordForEachRowWithBlanksForEmptyValues)
{
    add(u"Song"_qs, u"good"_qs);
    add(u"Sjøen Я"_qs);
    insert();
    EXPECT_EQ(world.archiveRows(), QStringList({u"ROCK_01|D:\\a.mp3|Artist|Song| | |good"_qs,
                                                u"ROCK_01|D:\\a.mp3|Artist|Sjøen Я| | | "_qs}));
}

TEST_F(InsertGridRowsTest, tellsTheNumberOfRowsAndLeavesEverythingAsItWas)
{
    add(u"a"_qs);
    add(u"b"_qs);
    insert();
    EXPECT_EQ(world.dialogs.said(0), u"information|2 Records is added to Songbin"_qs);
    EXPECT_EQ(world.dialogs.messages.at(0).icon, MessageIcon::Information);
    EXPECT_EQ(world.dialogs.messages.size(), 1U);
    EXPECT_EQ(view.label1, u"Finished inserting 2 records..."_qs);
    EXPECT_EQ(view.label5, QString());
    EXPECT_TRUE(grid.redraw);
    EXPECT_TRUE(grid.wasOff);
    EXPECT_FALSE(world.program.busyPointer);
    EXPECT_EQ(world.fileNumbers.freeFile(), 1);
    EXPECT_EQ(world.program.yields, 2);
}

TEST_F(InsertGridRowsTest, countsARowThatTheUserEmptied)
{
    grid.addItem({});
    insert();
    EXPECT_EQ(world.archiveRows(), QStringList({u" | | | | | | "_qs}));
    EXPECT_EQ(world.dialogs.said(0), u"information|1 Records is added to Songbin"_qs);
}

TEST_F(InsertGridRowsTest, theLabelNamesTheRowWhileItYields)
{
    add(u"a"_qs);
    QStringList seen;
    world.program.onYield = [&] { seen += view.label1; };
    insert();
    EXPECT_EQ(seen, QStringList({u"Inserting... 'ROCK_01', 'D:\\a.mp3', 'Artist', 'a', ' ', ' ', ' '"_qs}));
}

TEST_F(InsertGridRowsTest, whatTheUserHasSeenAsInsertedIsDurable)
{
    for (int i = 0; i < 50; ++i)
        add(QString::number(i));
    int atFirstShow = -1;
    world.program.onYield = [&] {
        if (view.shown == 1 && atFirstShow < 0)
            atFirstShow = static_cast<int>(world.archiveRows().size());
    };
    insert();
    EXPECT_EQ(atFirstShow, 1); // the first row is shown at once
    EXPECT_EQ(world.archiveRows().size(), 50);
}

TEST_F(InsertGridRowsTest, theTraceFileHoldsOneLineForEachRow)
{
    add(u"Blå"_qs);
    add(u"b"_qs, u"x"_qs);
    insert();
    EXPECT_EQ(trace(), "ROCK_01;D:\\a.mp3;Artist;Blå; ; ;  \r\nROCK_01;D:\\a.mp3;Artist;b; ; ; x\r\n");
}

TEST_F(InsertGridRowsTest, theTraceFileIsOverwrittenByTheNextImport)
{
    add(u"a"_qs);
    add(u"b"_qs);
    insert();
    grid.table.clear();
    add(u"c"_qs);
    insert();
    EXPECT_EQ(trace().count('\n'), 1);
    EXPECT_EQ(songs(), QStringList({u"a"_qs, u"b"_qs, u"c"_qs}));
}

TEST_F(InsertGridRowsTest, touchesNoFileOfTheUsers)
{
    world.directory.write("home/test.txt", "mine");
    add(u"a"_qs);
    insert();
    EXPECT_EQ(world.directory.read("home/test.txt"), "mine");
}

TEST_F(InsertGridRowsTest, duplicatesAreStoredTwice)
{
    add(u"a"_qs);
    insert();
    insert();
    EXPECT_EQ(songs(), QStringList({u"a"_qs, u"a"_qs}));
}

TEST_F(InsertGridRowsTest, anEmptyGridSaysSoAndWritesNothing)
{
    insert();
    EXPECT_EQ(world.dialogs.said(0), u"Information|No DataFound"_qs);
    EXPECT_FALSE(world.directory.exists("home/.local/state/Songbin/test.txt"));
}

TEST_F(InsertGridRowsTest, anApostropheBreaksItsRowAndLaterOnesEarlierStay)
{
    add(u"a"_qs);
    add(u"b"_qs);
    add(u"it's"_qs);
    add(u"d"_qs);
    insert();
    EXPECT_EQ(world.dialogs.said(0), u"error|error "_qs);
    EXPECT_EQ(world.dialogs.messages.at(0).icon, MessageIcon::Critical);
    EXPECT_EQ(world.dialogs.messages.size(), 1U);
    EXPECT_EQ(songs(), QStringList({u"a"_qs, u"b"_qs}));
    EXPECT_EQ(trace().count('\n'), 3);
    EXPECT_TRUE(grid.redraw);
    EXPECT_FALSE(world.program.busyPointer);
    EXPECT_EQ(world.fileNumbers.freeFile(), 1);
}

TEST_F(InsertGridRowsTest, whenARowFailsTheLabelShowsTheLastOneThatWasStored)
{
    for (int i = 0; i < 20; ++i)
        add(QString::number(i));
    add(u"it's"_qs);
    QString shownUnderTheMessage;
    world.dialogs.onMessage = [&](const Message&) { shownUnderTheMessage = view.shownLabel; };
    insert();
    EXPECT_EQ(songs().last(), u"19"_qs);
    EXPECT_EQ(shownUnderTheMessage, u"Inserting... 'ROCK_01', 'D:\\a.mp3', 'Artist', '19', ' ', ' ', ' '"_qs);
}

TEST_F(InsertGridRowsTest, whenTheArchiveCannotBeOpenedTheLabelStays)
{
    std::remove(world.directory.at("program/Songbin.mdb").constData());
    add(u"a"_qs);
    insert();
    EXPECT_EQ(view.shown, 0);
}

TEST_F(InsertGridRowsTest, aSecondStatementInACellIsRefused)
{
    add(u"a"_qs);
    grid.addItem({u"v"_qs, u"p"_qs, u"a"_qs, u"s"_qs, u"al"_qs, u"y"_qs, u"x'); DELETE FROM MP3; --"_qs});
    insert();
    EXPECT_EQ(world.dialogs.said(0), u"error|error "_qs);
    EXPECT_EQ(songs(), QStringList({u"a"_qs}));
}

TEST_F(InsertGridRowsTest, nothingButPlainTextsIsRun)
{
    const std::vector<QStringList> ends{{u"x' || 'y"_qs},
                                        {u"x'),('1','2','3','4','5','6','7"_qs},
                                        {u"x', 'y"_qs},
                                        {u"' || (SELECT 'x') || '"_qs},
                                        {u"'"_qs, u", 'z"_qs}};
    for (const QStringList& end : ends) {
        QStringList row(7 - end.size(), u"v"_qs);
        grid.table.clear();
        add(u"before"_qs);
        grid.addItem(row + end);
        add(u"behind"_qs);
        insert();
        EXPECT_EQ(world.dialogs.said(-1), u"error|error "_qs) << end.join(u'|').toStdString();
    }
    EXPECT_EQ(songs(), QStringList(static_cast<qsizetype>(ends.size()), u"before"_qs));
}

// Is a program that runs a script on the archive and lets go of it after a while.
class Locker {
public:
    Locker(World& world, const char* script, int milliseconds)
        : m_process([&, script, milliseconds](int descriptor) {
              sqlite3* database = nullptr;
              sqlite3_open(world.directory.at("program/Songbin.mdb").constData(), &database);
              sqlite3_exec(database, script, nullptr, nullptr, nullptr);
              say(descriptor, "locked");
              usleep(static_cast<useconds_t>(milliseconds) * 1000);
          })
    {
        EXPECT_EQ(m_process.read(), "locked");
    }
    ~Locker() { kill(m_process.id(), SIGKILL); }
    Locker(const Locker&) = delete;
    Locker& operator=(const Locker&) = delete;

private:
    ChildProcess m_process;
};

TEST_F(InsertGridRowsTest, anotherProgramsLockIsWaitedForAndToldInALineOfItsOwn)
{
    for (const char* script : {"BEGIN EXCLUSIVE", "BEGIN IMMEDIATE", "BEGIN; SELECT count(*) FROM MP3"}) {
        const Locker locker(world, script, 1500);
        view.waiting.clear();
        grid.table.clear();
        for (int i = 0; i < 30; ++i)
            add(QString::number(i));
        insert();
        EXPECT_EQ(world.dialogs.said(-1), u"information|30 Records is added to Songbin"_qs) << script;
        ASSERT_GE(view.waiting.size(), 2) << script;
        EXPECT_TRUE(view.waiting.first().startsWith(u"Another program is using the archive"));
        EXPECT_EQ(view.waiting.last(), QString());
    }
    EXPECT_EQ(songs().size(), 90);
}

TEST_F(InsertGridRowsTest, aLockInPassingIsNotWorthAWord)
{
    const Locker locker(world, "BEGIN EXCLUSIVE", 100);
    add(u"a"_qs);
    insert();
    EXPECT_EQ(songs().size(), 1);
    EXPECT_TRUE(view.waiting.isEmpty());
}

TEST_F(InsertGridRowsTest, tenSecondsInAllAreWaitedAndWhatWasStoredStays)
{
    for (int i = 0; i < 4; ++i)
        add(QString::number(i));
    std::unique_ptr<Locker> locker;
    QElapsedTimer timer;
    qint64 longest = 0;
    QElapsedTimer sinceYield;
    world.program.onYield = [&] {
        longest = std::max(longest, sinceYield.isValid() ? sinceYield.elapsed() : 0);
        sinceYield.start();
        usleep(40'000); // so that the next row is shown
        if (view.label1.contains(u"'1'") && !locker) {
            locker = std::make_unique<Locker>(world, "BEGIN; SELECT count(*) FROM MP3", 60'000);
            timer.start();
        }
    };
    insert();
    EXPECT_EQ(world.dialogs.said(-1), u"error|error "_qs);
    EXPECT_NEAR(static_cast<double>(timer.elapsed()), 10'000, 1'500);
    EXPECT_LT(longest, 500); // the window is drawn meanwhile
    EXPECT_TRUE(view.shownLabel.contains(u"'1'")) << view.shownLabel.toStdString();
    EXPECT_EQ(view.waiting.last(), QString());
    locker.reset();
    EXPECT_EQ(songs(), QStringList({u"0"_qs, u"1"_qs}));
}

TEST_F(InsertGridRowsTest, theEndOfTheProgramEndsTheWaiting)
{
    const Locker locker(world, "BEGIN IMMEDIATE", 60'000);
    world.program.onYield = [&] { world.program.end(0); };
    add(u"a"_qs);
    QElapsedTimer timer;
    timer.start();
    insert();
    EXPECT_LT(timer.elapsed(), 6'000); // ten seconds are waited for otherwise
}

// Reads the archive from a moment on, for a while. It is there before: a process that parts from one with a
// group open takes that one's locks for its own.
class LaterReader {
public:
    LaterReader(World& world, useconds_t time)
        : m_world(world), m_process([this, time](int descriptor) {
              while (!m_world.directory.exists("go"))
                  usleep(1000);
              sqlite3* database = nullptr;
              sqlite3_open(m_world.directory.at("program/Songbin.mdb").constData(), &database);
              sqlite3_exec(database, "BEGIN; SELECT count(*) FROM MP3", nullptr, nullptr, nullptr);
              say(descriptor, "reading");
              usleep(time);
          })
    {
    }
    ~LaterReader() { kill(m_process.id(), SIGKILL); }
    LaterReader(const LaterReader&) = delete;
    LaterReader& operator=(const LaterReader&) = delete;

    bool reads() const { return m_reads; }
    void read()
    {
        m_world.directory.write("go");
        m_reads = m_process.read() == "reading";
    }

private:
    World& m_world;
    ChildProcess m_process;
    bool m_reads = false;
};

// The reader comes after the fifth row and stays for a while.
TEST_F(InsertGridRowsTest, rowsBeforeAFailingOneWaitForAReader)
{
    for (int i = 0; i < 20; ++i)
        add(QString::number(i));
    add(u"it's"_qs);
    LaterReader reader(world, 1'500'000);
    world.program.onYield = [&] {
        if (view.label1.contains(u"'5'") && !reader.reads())
            reader.read();
    };
    insert();
    EXPECT_EQ(world.dialogs.said(-1), u"error|error "_qs);
    EXPECT_EQ(songs().size(), 20);
    EXPECT_TRUE(view.shownLabel.contains(u"'19'")) << view.shownLabel.toStdString();
}

TEST_F(InsertGridRowsTest, theEndOfTheProgramGivesAReaderAMoment)
{
    for (int i = 0; i < 20; ++i)
        add(QString::number(i));
    LaterReader reader(world, 500'000);
    world.program.onYield = [&] {
        if (!view.label1.contains(u"'5'") || reader.reads())
            return;
        reader.read();
        world.program.end(0);
    };
    insert();
    EXPECT_EQ(songs().size(), 6);
    EXPECT_TRUE(world.dialogs.messages.empty());
}

TEST_F(InsertGridRowsTest, whatTheDiskDidNotConfirmIsStoredAllTheSame)
{
    for (const char* last : {"20", "it's"}) {
        grid.table.clear();
        for (int i = 0; i < 20; ++i)
            add(QString::number(i));
        add(QString::fromLatin1(last));
        world.program.onYield = [&] {
            if (view.label1.contains(u"'5'"))
                directorysyncs::failures = directorysyncs::kAll;
        };
        insert();
        directorysyncs::failures = 0;
        EXPECT_EQ(world.dialogs.said(-1), u"error|error "_qs);
        EXPECT_TRUE(view.shownLabel.contains(u'\'' + songs().last() + u'\''))
            << view.shownLabel.toStdString();
    }
}

TEST_F(InsertGridRowsTest, valuesWithTabsAndLineEndsArriveWhole)
{
    add(u"two\nlines\tand \"quotes\" \\"_qs);
    insert();
    EXPECT_EQ(songs(), QStringList({u"two\nlines\tand \"quotes\" \\"_qs}));
}

TEST_F(InsertGridRowsTest, aMissingArchiveIsAnError)
{
    std::remove(world.directory.at("program/Songbin.mdb").constData());
    add(u"a"_qs);
    insert();
    EXPECT_EQ(world.dialogs.said(0), u"error|error "_qs);
    EXPECT_FALSE(world.directory.exists("program/Songbin.mdb"));
}

TEST_F(InsertGridRowsTest, aDamagedArchiveIsAnErrorAndStaysAsItIs)
{
    world.directory.write("program/Songbin.mdb", "this is no database at all");
    add(u"a"_qs);
    insert();
    EXPECT_EQ(world.dialogs.said(0), u"error|error "_qs);
    EXPECT_EQ(world.directory.read("program/Songbin.mdb"), "this is no database at all");
}

TEST_F(InsertGridRowsTest, endsInGoodOrderWhenTheProgramEnds)
{
    for (int i = 0; i < 10; ++i)
        add(QString::number(i));
    world.program.onYield = [&] {
        if (world.program.yields == 4)
            world.program.end(0);
    };
    insert();
    EXPECT_EQ(songs(), QStringList({u"0"_qs, u"1"_qs, u"2"_qs, u"3"_qs}));
    EXPECT_TRUE(world.dialogs.messages.empty());
    EXPECT_FALSE(world.directory.exists("program/Songbin.mdb-journal"));
}

TEST_F(InsertGridRowsTest, nothingLiesBesideTheArchiveAtRest)
{
    add(u"a"_qs);
    insert();
    EXPECT_FALSE(world.directory.exists("program/Songbin.mdb-journal"));
    EXPECT_FALSE(world.directory.exists("program/Songbin.mdb-wal"));
    EXPECT_FALSE(world.directory.exists("program/Songbin.mdb-shm"));
}
