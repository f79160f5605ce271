#include "database/connection/archivecollation.h"

#include "tests/support/testarchive.h"

#include <QLocale>

#include <gtest/gtest.h>

#include <sqlite3.h>

#include <algorithm>
#include <cstdlib>
#include <random>

namespace {

ArchiveOrder orderOf(const char* locale)
{
    return ArchiveOrder(QCollator(QLocale(QString::fromUtf8(locale))));
}

int sign(int number)
{
    return number < 0 ? -1 : number > 0 ? 1 : 0;
}

// It goes both ways, and in both directions.
int compare(ArchiveOrder& order, QByteArrayView a, QByteArrayView b)
{
    const int result = sign(order.compare(a, b));
    EXPECT_EQ(sign(order.compare(b, a)), -result) << a.data() << " and " << b.data();
    EXPECT_EQ(sign(order.compareFolded(a, b)), result) << a.data() << " and " << b.data();
    return result;
}

void expectSorted(const char* locale, const std::vector<const char*>& texts)
{
    ArchiveOrder order = orderOf(locale);
    for (std::size_t i = 0; i < texts.size(); ++i)
        for (std::size_t j = i + 1; j < texts.size(); ++j)
            EXPECT_EQ(compare(order, texts[i], texts[j]), -1)
                << locale << ": " << texts[i] << " before " << texts[j];
}

} // namespace

TEST(ArchiveOrder, followsTheLocale)
{
    expectSorted("nb_NO", {"a-ha", "abba", "ZZ Top", "Ære", "ø", "Å", "Ås"});
    expectSorted("nb_NO", {"Haz", "Haag", "Haas", "Håt"});
    expectSorted("sv_SE", {"z", "å", "ä", "ö"});
    expectSorted("de_DE", {"a", "Ä", "az", "o", "ö", "z"});
    expectSorted("cs_CZ", {"c", "cz", "Hz", "Cha", "i"});
    expectSorted("br_FR", {"c-h", "cz", "ch", "c'h", "d"});
    expectSorted("ru_RU", {"Ария", "БИ-2", "Жуки", "я", "Ярость"});
}

TEST(ArchiveOrder, ignoresTheCaseOfEveryLetter)
{
    for (const char* locale : {"nb_NO", "en_US", "ru_RU", "tr_TR", "C"}) {
        ArchiveOrder order = orderOf(locale);
        EXPECT_EQ(compare(order, "Я", "я"), 0) << locale;
        EXPECT_EQ(compare(order, "BJØRK ÅSE", "bjørk åse"), 0) << locale;
        EXPECT_EQ(compare(order, "ABBA", "abba"), 0) << locale;
        EXPECT_EQ(compare(order, "ΟΔΟΣ", "οδος"), 0) << locale;
        EXPECT_EQ(compare(order, "\U00010400", "\U00010428"), 0) << locale;
    }
}

TEST(ArchiveOrder, textsThatDifferInMoreThanCaseAreNeverEqual)
{
    ArchiveOrder order = orderOf("nb_NO");
    for (const char* other : {"a\x01", "a\u00AD", "a\u200D", "\uFEFFa", "á", "a\u0301", "a ", "ａ", ""})
        EXPECT_NE(compare(order, "a", other), 0) << other;
    EXPECT_NE(compare(order, "é", "e\u0301"), 0);
    EXPECT_NE(compare(order, "ß", "ss"), 0);
    EXPECT_NE(compare(order, "か", "カ"), 0);
    EXPECT_NE(compare(order, QByteArrayView("a\0b", 3), "ab"), 0);
}

TEST(ArchiveOrder, aTextSortsBehindItsOwnBeginning)
{
    expectSorted("nb_NO", {"", " ", "ABBA", "abba ", "ABBA 2", "abbaa"});
    expectSorted("C", {"", "a", "ab", "b"});
}

TEST(ArchiveOrder, bytesThatAreNoTextDoNoHarm)
{
    ArchiveOrder order = orderOf("nb_NO");
    EXPECT_EQ(compare(order, "\xFF\xC3", "\xFF\xC3"), 0);
    EXPECT_NE(compare(order, "a\xC3", "a"), 0);
    EXPECT_NE(compare(order, "\xED\xA0\x80", "b"), 0);
}

// The short way must never tell otherwise than the one for any text; locales with letters made of two or
// three characters, without any, and with other alphabets first.
TEST(ArchiveOrder, theShortWayTellsWhatTheLongOneTells)
{
    std::mt19937 random(11);
    const std::vector<std::string> pieces{"a",   "A", "aa", "c", "ch",   "C", "h",      "z", "s", "zs",
                                          "dzs", "l", "j",  "n", "g",    "y", "'",      " ", "-", "9",
                                          "w",   "v", "d",  "i", "\x01", "é", "\u0301", "я"};
    const auto text = [&] {
        std::string result;
        for (auto i = random() % 6; i > 0; --i)
            result += pieces[random() % pieces.size()];
        return result;
    };
    for (const char* locale : {"nb_NO", "da_DK", "cs_CZ", "hu_HU", "hr_HR", "cy_GB", "br_FR", "fi_FI",
                               "sv_SE", "lt_LT", "et_EE", "tr_TR", "fr_CA", "ru_RU", "en_US", "ja_JP", "C"}) {
        ArchiveOrder order = orderOf(locale);
        for (int i = 0; i < 4000; ++i) {
            const std::string common = text();
            const std::string a = common + text();
            const std::string b = common + text();
            ASSERT_EQ(sign(order.compare(QByteArrayView(a), QByteArrayView(b))),
                      sign(order.compareFolded(QByteArrayView(a), QByteArrayView(b))))
                << locale << ": " << a << " and " << b;
        }
    }
}

TEST(ArchiveOrder, isTotal)
{
    std::mt19937 random(5);
    const std::vector<std::string> pieces{"a",      "B",    "aa", "å",  "Å", "é", "e",
                                          "\u0301", "\x01", "ß",  "ss", "я", "Я", " "};
    std::vector<std::string> texts(300);
    for (std::string& text : texts)
        for (auto i = random() % 4; i > 0; --i)
            text += pieces[random() % pieces.size()];
    ArchiveOrder order = orderOf("nb_NO");
    std::sort(texts.begin(), texts.end(), [&](const std::string& a, const std::string& b) {
        return order.compare(QByteArrayView(a), QByteArrayView(b)) < 0;
    });
    for (std::size_t i = 0; i < texts.size(); ++i)
        for (std::size_t j = i; j < texts.size(); ++j)
            ASSERT_LE(order.compare(QByteArrayView(texts[i]), QByteArrayView(texts[j])), 0)
                << texts[i] << texts[j];
}

TEST(ArchiveOrder, servesTheEngineUnderTheNameNocase)
{
    TestArchive archive;
    archive.run("INSERT INTO MP3 (fldArtist) VALUES ('Åge'), ('abba'), ('Zappa'), ('øya'), ('ABBA 2'), "
                "('ÆRE'), ('åge')");
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(archive.file().constData(), &database), SQLITE_OK);
    registerArchiveOrder(database, QCollator(QLocale(QStringLiteral("nb_NO"))));
    std::string rows;
    const auto append = [](void* to, int, char** cells, char**) {
        *static_cast<std::string*>(to) += std::string(cells[0]) + ' ';
        return 0;
    };
    EXPECT_EQ(
        sqlite3_exec(database, "SELECT fldArtist FROM MP3 ORDER BY fldArtist, rowid", append, &rows, nullptr),
        SQLITE_OK);
    EXPECT_EQ(rows, "abba ABBA 2 Zappa ÆRE øya Åge åge ");
    rows.clear();
    sqlite3_exec(database, "SELECT count(*) FROM MP3 WHERE fldArtist='ÅGE'", append, &rows, nullptr);
    EXPECT_EQ(rows, "2 ");
    EXPECT_EQ(sqlite3_close(database), SQLITE_OK);
}
