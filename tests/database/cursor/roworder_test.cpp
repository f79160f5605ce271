#include "database/cursor/roworder.h"

#include "database/connection/connection.h"
#include "database/cursor/recordset.h"
#include "tests/support/testarchive.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

namespace {

std::vector<int> orderOf(const std::vector<std::optional<QByteArray>>& texts)
{
    RowStore rows(1);
    for (const std::optional<QByteArray>& text : texts)
        rows.append({text ? RowStore::Cell(*text) : std::nullopt});
    return rowsInOrder(rows, 0);
}

} // namespace

TEST(RowOrder, nullsFirstThenTextsWithoutCase)
{
    EXPECT_EQ(orderOf({"b", "A", std::nullopt, "", "a", "zz", std::nullopt}),
              (std::vector<int>{2, 6, 3, 1, 4, 0, 5}));
    EXPECT_TRUE(orderOf({}).empty());
    EXPECT_EQ(orderOf({std::nullopt}), std::vector<int>{0});
}

// A statement that we do not order ourselves goes the engine's way: both must give the same.
TEST(RowOrder, isWhatTheEngineGives)
{
    TestArchive archive;
    Connection connection(archive.drives());
    connection.open(TestArchive::connectionText());
    QRandomGenerator random(7);
    const QStringList letters{u"a"_qs, u"A"_qs, u"å"_qs, u"Å"_qs, u"я"_qs, u"Я"_qs, u" "_qs,
                              u"-"_qs, u"ß"_qs, u"s"_qs, u"ſ"_qs, u"z"_qs, u"é"_qs, u"É"_qs};
    connection.beginGroup();
    for (int row = 0; row < 3000; ++row) {
        QString artist;
        for (int length = random.bounded(4); length > 0; --length)
            artist += letters[random.bounded(letters.size())];
        connection.execute(
            random.bounded(20) == 0
                ? u"INSERT INTO MP3 (fldArtist, fldSong) VALUES (NULL, '%1')"_qs.arg(row)
                : u"INSERT INTO MP3 (fldArtist, fldSong) VALUES ('%1', '%2')"_qs.arg(artist).arg(row));
    }
    connection.endGroup();
    Recordset ours;
    Recordset engines;
    ours.open(u"select fldArtist, fldSong from MP3 order by fldArtist"_qs, connection);
    engines.open(u"select fldArtist, fldSong from MP3 order by fldArtist, rowid"_qs, connection);
    ASSERT_EQ(ours.recordCount(), 3000);
    for (; !ours.eof(); ours.moveNext(), engines.moveNext())
        ASSERT_EQ(ours.value(1), engines.value(1)) << ours.absolutePosition();
}
