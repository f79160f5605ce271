#include "archive/reports/datacommands.h"

#include "archive/reports/tablecolumns.h"
#include "base/runtimeerror.h"
#include "tests/support/testarchive.h"
#include "tests/support/world.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

struct DataCommands : testing::Test {
    World world;

    DataCommands()
    {
        world.makeArchive();
        world.store.SelectData.connectionText = world.store.sharedConnectionText();
        world.store.DataEnvironment1.connectionText = world.store.sharedConnectionText();
    }

    CommandRows rowsOf(const DataCommand& command)
    {
        return rowsOfCommand(command, world.store, world.drives);
    }

    // The cells of a column, nulls as "NULL", parted by "|"; a "/" where a group begins.
    QString texts(const CommandRows& rows, const QString& name)
    {
        QStringList cells;
        for (int row = 0; row < rows.cells.rows(); ++row) {
            const RowStore::Cell cell = rows.cells.cell(row, columnOf(rows.names, name));
            const bool begins = !rows.groups.empty() && rows.groups[static_cast<std::size_t>(row)];
            cells += (begins ? u"/"_qs : u""_qs) + (cell ? QString::fromUtf8(*cell) : u"NULL"_qs);
        }
        return cells.join(u'|');
    }

    void add(const char* values) { world.execute(u"INSERT INTO MP3 VALUES "_qs + QString::fromUtf8(values)); }

    QByteArray archive() { return *world.drives.machinePath(world.store.file()); }
    QString refusalOf(const DataCommand& command)
    {
        try {
            rowsOf(command);
            return {};
        } catch (const RunTimeError& error) {
            return error.text();
        }
    }
};

} // namespace

TEST_F(DataCommands, goThroughTheirEnvironmentsConnection)
{
    using namespace datacommands;
    EXPECT_EQ(FullListe_Grouping().name, u"FullListe_Grouping");
    EXPECT_EQ((world.store.*FullListe_Grouping().environment).connectionName, u"Songbin_Report");
    for (const DataCommand& command : {SelectAll(), SelectAllSortOnArtist()})
        EXPECT_EQ((world.store.*command.environment).connectionName, u"Songbin_Hovedtabell");
    world.store.DataEnvironment1.connectionText = u"Provider=none"_qs;
    EXPECT_EQ(refusalOf(FullListe_Grouping()), u"The provider is not known: none");
    EXPECT_TRUE(refusalOf(SelectAll()).isEmpty());
}

TEST_F(DataCommands, SelectAllIsTheWholeTable)
{
    add("('V', 'p2', 'b', '1', 'l', 'y', 'c'), ('V', 'p1', 'a', NULL, '', ' ', 'd')");
    const CommandRows rows = rowsOf(datacommands::SelectAll());
    EXPECT_EQ(rows.names, tablecolumns::names());
    EXPECT_TRUE(rows.groups.empty());
    EXPECT_EQ(texts(rows, u"fldPath"_qs), u"p2|p1");
    EXPECT_EQ(texts(rows, u"fldSong"_qs), u"1|NULL");
    EXPECT_EQ(texts(rows, u"fldComment"_qs), u"c|d");
}

TEST_F(DataCommands, groupsAreTheDistinctPairsOfDiskAndPathUnsorted)
{
    add("('B', 'p', 'x', '1', '', '', ''), ('A', 'p', 'x', '2', '', '', ''), ('B', 'p', 'a', '3', '', '', "
        "''),"
        " ('b', 'p', 'x', '4', '', '', ''), (NULL, 'p', 'x', '5', '', '', ''), ('', 'p', 'x', '6', '', '', "
        "''),"
        " ('A', 'P', 'x', '7', '', '', ''), (NULL, 'p', 'x', '8', '', '', ''), ('B', 'p', 'x', '9', '', '', "
        "'')");
    const CommandRows rows = rowsOf(datacommands::FullListe_Grouping());
    EXPECT_EQ(rows.names, tablecolumns::names());
    EXPECT_EQ(texts(rows, u"fldSong"_qs), u"/1|3|9|/2|/4|/5|8|/6|/7");
}

TEST_F(DataCommands, artistsFollowTheLocaleAndThoseWithoutComeFirst)
{
    add("('', '', 'b', '1', '', '', ''), ('', '', '  ', '2', '', '', ''), ('', '', 'A', '3', '', '', ''),"
        " ('', '', '', '4', '', '', ''), ('', '', NULL, '5', '', '', ''), ('', '', '\t!', '6', '', '', ''),"
        " ('', '', 'a', '7', '', '', ''), ('', '', ' ', '8', '', '', ''), ('', '', '\xC2\xA0', '9', '', '', "
        "''),"
        " ('', '', '', 'x', '', '', ''), ('', '', 'az', 'z', '', '', "
        "'')");
    const CommandRows rows = rowsOf(datacommands::SelectAllSortOnArtist());
    EXPECT_EQ(rows.names, (QStringList{u"fldArtist"_qs, u"fldSong"_qs}));
    const QString songs = texts(rows, u"fldSong"_qs);
    EXPECT_TRUE(songs.startsWith(u"5|4|x|")) << songs.toStdString();
    QStringList blanks = songs.split(u'|').mid(3, 3);
    blanks.sort();
    EXPECT_EQ(blanks.join(u'|'), u"2|8|9") << songs.toStdString();
    EXPECT_TRUE(songs.endsWith(u"|6|3|7|z|1")) << songs.toStdString();
}

TEST_F(DataCommands, anEmptyArchiveGivesNoRows)
{
    for (const DataCommand& command : {datacommands::FullListe_Grouping(), datacommands::SelectAll(),
                                       datacommands::SelectAllSortOnArtist()})
        EXPECT_EQ(rowsOf(command).cells.rows(), 0);
}

TEST_F(DataCommands, rowsStayWhenTheArchiveIsReplaced)
{
    add("('V', 'p', 'a', 'old', '', '', '')");
    const CommandRows rows = rowsOf(datacommands::FullListe_Grouping());
    std::filesystem::remove(archive().toStdString());
    world.makeArchive();
    EXPECT_EQ(texts(rows, u"fldSong"_qs), u"/old");
    EXPECT_EQ(rowsOf(datacommands::FullListe_Grouping()).cells.rows(), 0);
}

TEST_F(DataCommands, anArchiveThatCannotBeReadIsTheEnginesError)
{
    runScript(archive(), "DROP TABLE MP3");
    EXPECT_TRUE(refusalOf(datacommands::FullListe_Grouping()).contains(u"no such table: MP3"));
    runScript(archive(), "CREATE TABLE MP3 (fldSong, fldArtist)");
    EXPECT_EQ(refusalOf(datacommands::FullListe_Grouping()), u"There is no field fldVolum");
    EXPECT_TRUE(refusalOf(datacommands::SelectAllSortOnArtist()).isEmpty());
    EXPECT_TRUE(world.files.exists(world.store.file()));
    world.files.replace(world.store.file(), QByteArray(5000, 'x'));
    EXPECT_TRUE(refusalOf(datacommands::FullListe_Grouping()).contains(u"file is not a database"));
    std::filesystem::remove(archive().toStdString());
    EXPECT_FALSE(refusalOf(datacommands::SelectAllSortOnArtist()).isEmpty());
    EXPECT_FALSE(world.files.exists(world.store.file()));
}
