// Reads the table's rows straight from the file's pages and holds them against what the engine reads.
#include "database/cursor/tablereader.h"

#include "tests/support/testarchive.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

namespace {

struct Close {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
};
using Database = std::unique_ptr<sqlite3, Close>;

const char* const kTable = "CREATE TABLE MP3 (a TEXT, b TEXT, c TEXT)";

class TableReaderTest : public testing::Test {
protected:
    Database opened()
    {
        sqlite3* raw = nullptr;
        sqlite3_open(m_directory.at("t.mdb").constData(), &raw);
        return Database(raw);
    }
    void run(const QByteArray& script)
    {
        const Database database = opened();
        ASSERT_EQ(sqlite3_exec(database.get(), script.constData(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(database.get());
    }
    static QByteArray shown(const RowSearch::Cell& cell)
    {
        return cell ? '[' + cell->toByteArray() + ']' : QByteArray("null");
    }

    // Returns each row as its number and its cells, and nothing when it is left to the engine.
    std::optional<QByteArrayList> read()
    {
        const Database database = opened();
        QByteArrayList rows;
        const bool whole = TableReader(database.get())
                               .read([&](std::int64_t number, const std::vector<RowSearch::Cell>& cells) {
                                   QByteArray row = QByteArray::number(qlonglong{number});
                                   for (const RowSearch::Cell& cell : cells)
                                       row += shown(cell);
                                   rows += row;
                               });
        return whole ? std::optional(rows) : std::nullopt;
    }
    QByteArrayList readByTheEngine()
    {
        const Database database = opened();
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(database.get(), "SELECT rowid, * FROM MP3 ORDER BY rowid", -1, &statement,
                           nullptr);
        QByteArrayList rows;
        while (sqlite3_step(statement) == SQLITE_ROW) {
            QByteArray row(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
            for (int i = 1; i < sqlite3_column_count(statement); ++i) {
                const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
                row += shown(text ? RowSearch::Cell(QByteArrayView(text, sqlite3_column_bytes(statement, i)))
                                  : std::nullopt);
            }
            rows += row;
        }
        sqlite3_finalize(statement);
        return rows;
    }

    Temporary m_directory;
    std::mt19937 m_random{20261121};
};

// Insertions, changes and deletions at random places, so that pages are split, freed and used again.
QByteArray randomScript(std::mt19937& random, int statements)
{
    const auto below = [&](unsigned limit) { return static_cast<unsigned>(random()) % limit; };
    QByteArray script = "BEGIN;";
    for (int i = 0; i < statements; ++i) {
        const QByteArray number = QByteArray::number(below(5000));
        const unsigned longest = below(40) == 0 ? 20'000 : below(6) == 0 ? 400 : 40;
        const QByteArray text = "'" + QByteArray(below(longest), 'x') + "\xC3\xB8'";
        switch (below(8)) {
        case 0:
            script += "DELETE FROM MP3 WHERE rowid=" + number + ';';
            break;
        case 1:
            script += "UPDATE MP3 SET b=" + text + " WHERE rowid=" + number + ';';
            break;
        default:
            script += "INSERT OR REPLACE INTO MP3 (rowid,a,b,c) VALUES (" + number + ',' + text +
                      (below(3) ? ",NULL,''" : ",'b','c'") + ");";
        }
    }
    return script + "COMMIT;";
}

} // namespace

TEST_F(TableReaderTest, readsWhatTheEngineReadsWhateverThePagesSize)
{
    for (const char* size : {"512", "1024", "4096", "65536"}) {
        std::filesystem::remove(m_directory.at("t.mdb").toStdString());
        run(QByteArray("PRAGMA page_size=") + size + ';' + kTable);
        EXPECT_EQ(read(), QByteArrayList());
        for (int round = 0; round < 6; ++round) {
            run(randomScript(m_random, 1 << (2 * round)));
            EXPECT_EQ(read(), readByTheEngine()) << size;
        }
    }
}

TEST_F(TableReaderTest, readsLongTextsFromTheirChains)
{
    run(kTable);
    run("WITH n(i) AS (VALUES(1) UNION ALL SELECT i+1 FROM n WHERE i<300) INSERT INTO MP3 "
        "SELECT hex(zeroblob(i*i)), i||'', printf('%.*c', 3900+i, 'y') FROM n");
    const std::optional<QByteArrayList> rows = read();
    ASSERT_TRUE(rows);
    EXPECT_EQ(*rows, readByTheEngine());
    EXPECT_EQ(rows->size(), 300);
}

TEST_F(TableReaderTest, numbersAndBlobsAreLeftToTheEngine)
{
    for (const char* value : {"1", "1.5", "0", "x'41'", "zeroblob(0)", "-9223372036854775808"}) {
        std::filesystem::remove(m_directory.at("t.mdb").toStdString());
        run("CREATE TABLE MP3 (a, b, c); INSERT INTO MP3 VALUES ('a','b','c')");
        EXPECT_TRUE(read());
        run(QByteArray("INSERT INTO MP3 VALUES ('a',") + value + ",'c')");
        EXPECT_FALSE(read()) << value;
    }
}

TEST_F(TableReaderTest, tablesOfAnotherMakeAreLeftToTheEngine)
{
    for (const char* script :
         {"CREATE TABLE MP3 (a TEXT PRIMARY KEY, b TEXT) WITHOUT ROWID; INSERT INTO MP3 VALUES ('a','b')",
          "CREATE TABLE MP3 (a INTEGER PRIMARY KEY, b TEXT); INSERT INTO MP3 VALUES (7,'b')",
          "CREATE TABLE x (a TEXT); INSERT INTO x VALUES ('a'); CREATE VIEW MP3 AS SELECT * FROM x",
          "CREATE TABLE MP3 (a TEXT); INSERT INTO MP3 VALUES ('a'); ALTER TABLE MP3 ADD COLUMN b TEXT "
          "DEFAULT 'd'",
          "CREATE TABLE MP3 (a TEXT, b TEXT AS (a||'!')); INSERT INTO MP3 VALUES ('a')",
          "PRAGMA encoding='UTF-16'; CREATE TABLE MP3 (a TEXT); INSERT INTO MP3 VALUES ('a')",
          "PRAGMA journal_mode=WAL; CREATE TABLE MP3 (a TEXT); INSERT INTO MP3 VALUES ('a')",
          "CREATE TABLE other (a TEXT)"}) {
        std::filesystem::remove(m_directory.at("t.mdb").toStdString());
        run(script);
        EXPECT_FALSE(read()) << script;
    }
}

TEST_F(TableReaderTest, aTransactionOfOnesOwnIsLeftToTheEngine)
{
    run(kTable);
    const Database database = opened();
    sqlite3_exec(database.get(), "BEGIN; INSERT INTO MP3 VALUES ('a','b','c')", nullptr, nullptr, nullptr);
    EXPECT_FALSE(TableReader(database.get()).read([](std::int64_t, const auto&) {}));
}

TEST_F(TableReaderTest, nobodyCanWriteWhileItReads)
{
    run(QByteArray(kTable) + "; INSERT INTO MP3 VALUES ('a','b','c')");
    const Database database = opened();
    const Database other = opened();
    int code = SQLITE_OK;
    EXPECT_TRUE(TableReader(database.get()).read([&](std::int64_t, const auto&) {
        code = sqlite3_exec(other.get(), "DELETE FROM MP3", nullptr, nullptr, nullptr);
    }));
    EXPECT_EQ(code, SQLITE_BUSY);
    EXPECT_EQ(sqlite3_exec(other.get(), "DELETE FROM MP3", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_EQ(read(), QByteArrayList());
}

// What it makes of it does not matter; it has to come to an end and to stay within its memory.
TEST_F(TableReaderTest, aDamagedFileDoesNoHarm)
{
    run(QByteArray("PRAGMA page_size=1024;") + kTable);
    run(randomScript(m_random, 3000));
    const QByteArray sound = m_directory.read("t.mdb");
    int left = 0;
    for (int round = 0; round < 2000; ++round) {
        QByteArray damaged = sound;
        for (int i = 0; i < 4; ++i) {
            // It mostly hits where a page begins: there stand the numbers that the rest depends on.
            const qsizetype page =
                static_cast<qsizetype>(m_random() % static_cast<unsigned>(sound.size() / 1024)) * 1024;
            const qsizetype at = page + static_cast<qsizetype>(m_random() % (m_random() % 4 ? 30 : 1024));
            damaged[std::max<qsizetype>(at, 100)] = static_cast<char>(m_random());
        }
        if (round % 10 == 0)
            damaged.truncate(static_cast<qsizetype>(m_random() % static_cast<unsigned>(sound.size())));
        m_directory.write("t.mdb", damaged);
        left += !read();
    }
    EXPECT_GT(left, 100);
    EXPECT_LT(left, 2000);
}

namespace {

// An inner page of 512 bytes, each of whose children is the one page.
QByteArray leadingTo(char page)
{
    constexpr int kChildren = 40;
    QByteArray bytes(512, '\0');
    bytes[0] = 5;
    bytes[4] = kChildren;
    bytes[11] = page;
    for (int i = 0; i < kChildren; ++i) {
        const int cell = 505 - 8 * i;
        bytes[12 + 2 * i] = static_cast<char>(cell >> 8);
        bytes[13 + 2 * i] = static_cast<char>(cell & 0xFF);
        bytes[cell + 3] = page;
    }
    return bytes;
}

} // namespace

TEST_F(TableReaderTest, pagesInACircleOrReachedAgainAndAgainAreGivenUp)
{
    run(QByteArray("PRAGMA page_size=512;") + kTable);
    run(randomScript(m_random, 2000));
    const QByteArray sound = m_directory.read("t.mdb");
    ASSERT_EQ(sound[512], 5);

    m_directory.write("t.mdb", QByteArray(sound).replace(512, 512, leadingTo(2)));
    EXPECT_FALSE(read());

    QByteArray fan = sound; // forty times forty times ...
    for (char page = 2; page < 16; ++page)
        fan.replace((page - 1) * 512, 512, leadingTo(static_cast<char>(page + 1)));
    QByteArray emptyLeaf(512, '\0');
    emptyLeaf[0] = 13;
    fan.replace(15 * 512, 512, emptyLeaf);
    m_directory.write("t.mdb", fan);
    EXPECT_FALSE(read());
}
