#include "database/sql/insertliteral.h"

#include "base/runtimeerror.h"
#include "database/connection/connection.h"
#include "tests/support/testarchive.h"

#include <gtest/gtest.h>

#include <sqlite3.h>

#include <random>

namespace {

QStringList read(const char* statement)
{
    InsertLiteral literal;
    if (!literal.read(statement))
        return {QStringLiteral("refused")};
    QStringList values;
    for (const QByteArrayView value : literal.values())
        values.append(QString::fromUtf8(value));
    return values;
}

QStringList list(std::initializer_list<const char*> values)
{
    QStringList result;
    for (const char* value : values)
        result.append(QString::fromUtf8(value));
    return result;
}

const QStringList kRefused(QStringLiteral("refused"));

// Makes odd statements of pieces at random, the same ones in each run of the tests.
class OddStatements {
public:
    QString next()
    {
        QStringList values;
        for (int i = chance(12) ? number(9) : 7; i > 0; --i)
            values.append(value());
        QString statement =
            head() + QStringLiteral("'") + values.join(separator()) + QStringLiteral("'") + end();
        for (int i = chance(3) ? 1 + number(2) : 0; i > 0; --i)
            spoil(statement);
        return statement;
    }

private:
    int number(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    bool chance(int oneIn) { return number(oneIn) == 0; }

    QString piece()
    {
        static const std::vector<QString> pieces{QStringLiteral("'"),
                                                 QStringLiteral("''"),
                                                 QStringLiteral("'''"),
                                                 QStringLiteral(";"),
                                                 QStringLiteral("--"),
                                                 QStringLiteral("/*"),
                                                 QStringLiteral("*/"),
                                                 QStringLiteral("\n"),
                                                 QStringLiteral("\r\n"),
                                                 QStringLiteral("\v"),
                                                 QStringLiteral("\f"),
                                                 QStringLiteral("\u00A0"),
                                                 QStringLiteral("ø"),
                                                 QStringLiteral("\U0001F3B5"),
                                                 QStringLiteral("\uFEFF"),
                                                 QString(QChar(0)),
                                                 QString(QChar(0xD800)),
                                                 QString(QChar(0xDC00)),
                                                 QStringLiteral("("),
                                                 QStringLiteral(")"),
                                                 QStringLiteral(","),
                                                 QStringLiteral("', '"),
                                                 QStringLiteral("?"),
                                                 QStringLiteral(":a"),
                                                 QStringLiteral("\""),
                                                 QStringLiteral("`"),
                                                 QStringLiteral("["),
                                                 QStringLiteral("||"),
                                                 QStringLiteral("X"),
                                                 QStringLiteral("NULL"),
                                                 QStringLiteral("12"),
                                                 QStringLiteral(" "),
                                                 QStringLiteral("\\"),
                                                 QStringLiteral("%"),
                                                 QStringLiteral("\x01"),
                                                 QStringLiteral("; DELETE FROM MP3"),
                                                 QStringLiteral("); SELECT 1; --"),
                                                 QStringLiteral("VALUES")};
        return pieces[static_cast<std::size_t>(number(static_cast<int>(pieces.size())))];
    }

    // Makes mostly what can stand in a literal.
    QString value()
    {
        QString text = QStringLiteral("abc").first(number(4));
        for (int i = number(4); i > 0; --i) {
            QString next = piece();
            if (!chance(40))
                next.replace(u'\'', QStringLiteral("''")).remove(QChar(0));
            text += next;
        }
        return text + QStringLiteral("xyz").first(number(4));
    }

    QString separator() { return chance(3) ? QStringLiteral("','") : QStringLiteral("' ,\t\n'"); }

    QString head()
    {
        static const std::array<const char*, 9> heads{
            "INSERT INTO MP3(fldVolum,fldPath,fldArtist,fldSong,fldAlbum,fldYear,fldComment)VALUES(",
            "\tinsert\ninto\r\nmp3 ( FLDVOLUM , fldPath,fldArtist,fldSong,fldAlbum,fldYear,fldComment ) "
            "values\f(",
            "INSERT INTO MP3 (fldVolum,fldPath,fldArtist,fldSong,fldAlbum,fldYear,fldNone) VALUES (",
            "INSERT INTO None (fldVolum) VALUES (",
            "INSERT INTO MP3 (\"fldVolum\",fldPath,fldArtist,fldSong,fldAlbum,fldYear,fldComment) VALUES (",
            "INSERT INTO MP3 VALUES (",
            "INSERT INTO Checked (a,b,c,d,e,f,select) VALUES (",
            "INSERT INTO Checked (a,b,c,d,e,f,g) VALUES (",
            "REPLACE INTO MP3 (fldVolum,fldPath,fldArtist,fldSong,fldAlbum,fldYear,fldComment) VALUES ("};
        if (!chance(3))
            return insertStatement({}).chopped(4);
        return QString::fromUtf8(heads[static_cast<std::size_t>(number(static_cast<int>(heads.size())))]);
    }

    QString end()
    {
        static const std::array<const char*, 8> ends{");",      ")",        " ) ;\n",        ");;",
                                                     "); -- x", "), ('a')", ") RETURNING 1", ""};
        return chance(2) ? QStringLiteral(");")
                         : QString::fromUtf8(ends[static_cast<std::size_t>(number(8))]);
    }

    void spoil(QString& statement)
    {
        const int at = number(static_cast<int>(statement.size()) + 1);
        if (chance(2))
            statement.insert(at, piece());
        else
            statement.remove(at, 1 + number(3));
    }

    std::mt19937 m_random{20240229};
};

QString outcome(Connection& connection, const QString& statement)
{
    try {
        connection.execute(statement);
    } catch (const RunTimeError& error) {
        return QString::number(error.number()) + error.text();
    }
    return QStringLiteral("done");
}

// There are numbers of many kinds in the columns: how a text is taken there must not depend on the way it
// comes.
constexpr const char* kChecked =
    "CREATE TABLE Checked (a INTEGER, b REAL, c NUMERIC, d BLOB, e, f TEXT UNIQUE,"
    " g TEXT CHECK (length(g) < 9))";
constexpr const char* kAllRows = "SELECT hex(fldVolum), hex(fldPath), hex(fldArtist), hex(fldSong), "
                                 "hex(fldAlbum), hex(fldYear), hex(fldComment),"
                                 " typeof(fldVolum) || typeof(fldPath) || typeof(fldComment), rowid FROM MP3";
constexpr const char* kAllChecked = "SELECT hex(a), hex(b), hex(c), hex(d), hex(e), hex(f), hex(g), "
                                    "typeof(a) || typeof(b) || typeof(c) || typeof(d)"
                                    " || typeof(e) || typeof(f) || typeof(g) FROM Checked";

} // namespace

TEST(InsertLiteral, readsTheStatementOfTheImporter)
{
    InsertLiteral literal;
    const QByteArray statement =
        insertStatement(list({"DISK", "D:\\a.mp3", "a", "b", " ", "", "x, ('y');"})).toUtf8();
    ASSERT_FALSE(literal.read(statement)) << "the last value has quotes that are not doubled";
    ASSERT_TRUE(literal.read(QByteArray(statement).replace("'y'", "''y''")));
    EXPECT_EQ(literal.head(),
              " INSERT INTO MP3 (fldVolum,fldPath,fldArtist,fldSong,fldAlbum,fldYear,fldComment) VALUES (");
    ASSERT_EQ(literal.values().size(), 7U);
    EXPECT_EQ(literal.values()[5].toByteArray(), QByteArray(""));
    EXPECT_EQ(literal.values()[6].toByteArray(), QByteArray("x, ('y');"));
}

TEST(InsertLiteral, doubledQuotesAreOneQuote)
{
    EXPECT_EQ(read("INSERT INTO t (a) VALUES ('it''s', '''', '''a', 'a''''b', '')"),
              list({"it's", "'", "'a", "a''b", ""}));
}

TEST(InsertLiteral, wordsIgnoreCaseAndBlanksAreFree)
{
    EXPECT_EQ(read("\n insert\tInto t_1(a,\r\nB2 )values( 'x' ,\f'y' ) ; ;; "), list({"x", "y"}));
}

TEST(InsertLiteral, refusesWhateverElseIsThere)
{
    for (const char* statement : {"",
                                  "INSERT",
                                  "INSERTINTO t (a) VALUES ('x')",
                                  "INSERT OR IGNORE INTO t (a) VALUES ('x')",
                                  "INSERT INTO t VALUES ('x')",
                                  "INSERT INTO t () VALUES ('x')",
                                  "INSERT INTO t (a,) VALUES ('x')",
                                  "INSERT INTO main.t (a) VALUES ('x')",
                                  "INSERT INTO \"t\" (a) VALUES ('x')",
                                  "INSERT INTO t ([a]) VALUES ('x')",
                                  "INSERT INTO t (a) VALUES ()",
                                  "INSERT INTO t (a) VALUES ('x',)",
                                  "INSERT INTO t (a) VALUES (x)",
                                  "INSERT INTO t (a) VALUES (1)",
                                  "INSERT INTO t (a) VALUES (X'00')",
                                  "INSERT INTO t (a) VALUES ('x' || 'y')",
                                  "INSERT INTO t (a) VALUES ('x' 'y')",
                                  "INSERT INTO t (a) VALUES ('x'), ('y')",
                                  "INSERT INTO t (a) VALUES ('x'",
                                  "INSERT INTO t (a) VALUES ('x",
                                  "INSERT INTO t (a) VALUES ('x'')",
                                  "INSERT INTO t (a) VALUES ('it's')",
                                  "INSERT INTO t (a) VALUES ('x') -- c",
                                  "/* c */ INSERT INTO t (a) VALUES ('x')",
                                  "INSERT INTO t (a) VALUES ('x'); DELETE FROM t",
                                  "INSERT INTO t (a) VALUES ('x') RETURNING a",
                                  "INSERT INTO t (a) VALUES ('x')\v",
                                  "INSERT INTO t (a) VALUES ('x');\xC2\xA0",
                                  "INSERT INTO 1t (a) VALUES ('x')",
                                  "INSERT INTO t (a) SELECT ('x')",
                                  "UPDATE t SET a = ('x')"})
        EXPECT_EQ(read(statement), kRefused) << statement;
}

TEST(InsertLiteral, aHeadThatWasReadBeforeIsNotTakenForAnother)
{
    InsertLiteral literal;
    EXPECT_TRUE(literal.read("INSERT INTO t (a) VALUES ('x')"));
    EXPECT_TRUE(literal.read("INSERT INTO u (a) VALUES ('y')"));
    EXPECT_EQ(literal.head(), "INSERT INTO u (a) VALUES (");
    EXPECT_FALSE(literal.read("INSERT INTO u (a) VALUES"));
    EXPECT_FALSE(literal.read("DELETE FROM u"));
    EXPECT_TRUE(literal.read("INSERT INTO u (a) VALUES ('it''s', '''')"));
    EXPECT_EQ(literal.values()[1].toByteArray(), QByteArray("'"));
}

// A comment in front changes nothing of what a statement means, but is not read as literals.
TEST(InsertLiteral, oddStatementsDoTheSameAsWhenTheEngineReadsThem)
{
    TestArchive bound;
    TestArchive parsed;
    bound.run(kChecked);
    parsed.run(kChecked);
    Connection quick(bound.drives());
    Connection slow(parsed.drives());
    quick.open(TestArchive::connectionText());
    slow.open(TestArchive::connectionText());
    quick.beginGroup();
    slow.beginGroup();

    OddStatements statements;
    InsertLiteral literal;
    int read = 0;
    int done = 0;
    int readAndFailed = 0;
    constexpr int kStatements = 20000;
    for (int i = 0; i < kStatements; ++i) {
        const QString statement = statements.next();
        const QString result = outcome(quick, statement);
        ASSERT_EQ(result, outcome(slow, QStringLiteral("/**/") + statement)) << statement.toStdString();
        const bool isRead = literal.read(statement.toUtf8());
        read += isRead ? 1 : 0;
        done += result == QStringLiteral("done") ? 1 : 0;
        readAndFailed += isRead && result != QStringLiteral("done") ? 1 : 0;
    }
    quick.endGroup();
    slow.endGroup();
    EXPECT_EQ(bound.run(kAllRows), parsed.run(kAllRows));
    EXPECT_EQ(bound.run(kAllChecked), parsed.run(kAllChecked));
    // There has to be enough of each kind for the comparison to say something.
    EXPECT_GT(read, kStatements / 3);
    EXPECT_GT(done, kStatements / 3);
    EXPECT_GT(kStatements - done, kStatements / 10);
    EXPECT_GT(readAndFailed, kStatements / 100);
    EXPECT_GT(bound.run(kAllChecked).size(), 100);
}
