#include "tests/database/connection/likedatabase.h"
#include "tests/support/childprocess.h"

#include <QRandomGenerator>

#include <fstream>

#include <sys/resource.h>
#include <unistd.h>

namespace {

using ArchiveLikeRows = ArchiveLike;

QByteArray randomText(QRandomGenerator& random)
{
    QByteArray text;
    for (int left = random.bounded(random.bounded(2) == 0 ? 40 : 6); left > 0; --left)
        text += random.bounded(9) == 0 ? static_cast<char>(1 + random.bounded(127))
                                       : "aAbB%%%_"[random.bounded(8)];
    return text;
}

rlim_t sizeInMemory()
{
    std::ifstream facts("/proc/self/statm");
    rlim_t pages = 0;
    facts >> pages;
    return pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
}

} // namespace

TEST_F(ArchiveLikeRows, aPatternThatChangesFromRowToRowIsReadAnew)
{
    ours.rows("create table Pairs (x, p)");
    ours.rows(
        "insert into Pairs values ('Å', 'å'), ('ø', 'å'), ('ø', 'Ø'), (null, 'Ø'), ('ø', null), ('Я', 'я'), "
        "('a', '%b%'), ('abc', '%B%'), ('k', '_'), ('kk', '_')");
    EXPECT_EQ(ours.rows("select x like p from Pairs"), "101--10110");
    EXPECT_EQ(ours.rows("select 'Å' like p from Pairs"), "1100-00011");
    EXPECT_EQ(ours.rows("select x like 'å' from Pairs"), "100-000000");
    EXPECT_EQ(ours.rows("select count(*) from Pairs a, Pairs b where a.x like b.p and a.x like '%K'"), "2");
}

TEST_F(ArchiveLikeRows, aStatementThatRunsAgainTakesItsNewPattern)
{
    const StatementPtr statement =
        ours.prepared("with t(x) as (values ('Å'), ('ø'), ('å')) select x like ?1 || '%' from t");
    for (const auto& [pattern, fits] :
         {std::pair("å", "101"), std::pair("Ø", "010"), std::pair("Å", "101"), std::pair("", "111")}) {
        sqlite3_bind_text(statement.get(), 1, pattern, -1, SQLITE_STATIC);
        EXPECT_EQ(ours.rowsOf(statement.get()), fits);
    }
    sqlite3_bind_null(statement.get(), 1);
    EXPECT_EQ(ours.rowsOf(statement.get()), "---");
}

// It goes once with the pattern that changes fastest and once with the text.
TEST_F(ArchiveLikeRows, fitsWhatTheEnginesFitsInAscii)
{
    QRandomGenerator random(42);
    for (const LikeDatabase* database : {&ours, &engines}) {
        database->rows("create table Texts (x)");
        database->rows("create table Patterns (p)");
    }
    for (const char* insert : {"insert into Texts values (?1)", "insert into Patterns values (?1)"}) {
        const StatementPtr one = ours.prepared(insert);
        const StatementPtr other = engines.prepared(insert);
        for (int row = 0; row < 300; ++row) {
            const QByteArray text = randomText(random);
            for (sqlite3_stmt* statement : {one.get(), other.get()})
                sqlite3_bind_text(statement, 1, text.constData(), static_cast<int>(text.size()),
                                  SQLITE_STATIC);
            ours.rowsOf(one.get());
            engines.rowsOf(other.get());
        }
    }
    for (const char* statement : {"select x like p from Texts cross join Patterns",
                                  "select x like p from Patterns cross join Texts"}) {
        const QByteArray found = ours.rows(statement);
        ASSERT_EQ(found.size(), 90000);
        EXPECT_EQ(found, engines.rows(statement));
        EXPECT_GT(found.count('1'), 5000);
    }
}

// The first row leaves its pattern for the second, which is too long for the memory that is left.
TEST_F(ArchiveLikeRows, wantOfMemoryIsAnError)
{
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the sanitizer's allocator ends the process";
#endif
    const QByteArray text(20000000, 'a');
    const StatementPtr statement =
        ours.prepared("with t(x) as (values ('a'), (?1)) select x like 'A%' from t");
    sqlite3_bind_text(statement.get(), 1, text.constData(), static_cast<int>(text.size()), SQLITE_STATIC);
    EXPECT_EQ(saidByChild([&] {
                  const rlim_t most = sizeInMemory() + 50000000;
                  const rlimit limit{most, most};
                  setrlimit(RLIMIT_AS, &limit);
                  return ours.rowsOf(statement.get());
              }),
              "1out of memory");
    EXPECT_EQ(ours.rowsOf(statement.get()), "11");
}
