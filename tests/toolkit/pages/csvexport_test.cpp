#include "toolkit/pages/csvexport.h"

#include "tests/toolkit/pages/exporttest.h"

#include <gtest/gtest.h>

namespace {

using Field = std::optional<QByteArray>;
using Line = std::vector<Field>;

// Reads as the standard has it, byte by byte; nothing for a field of nothing.
std::vector<Line> parsed(const QByteArray& text)
{
    std::vector<Line> lines;
    Line line;
    for (qsizetype at = 0; at < text.size();) {
        Field field;
        if (text[at] == '"') {
            field = QByteArray();
            for (++at; at < text.size() && (text[at] != '"' || text.mid(at, 2) == "\"\""); ++at) {
                *field += text[at];
                at += text[at] == '"';
            }
            ++at;
        } else {
            const qsizetype begin = at;
            while (at < text.size() && text[at] != ',' && text[at] != '\r')
                ++at;
            if (at > begin)
                field = text.mid(begin, at - begin);
        }
        line.push_back(field);
        if (text.mid(at, 1) == ",") {
            ++at;
            continue;
        }
        EXPECT_EQ(text.mid(at, 2), "\r\n") << at;
        at += 2;
        lines.push_back(std::exchange(line, {}));
    }
    return lines;
}

} // namespace

struct CsvExport : testing::Test {
    SmallReport small;

    QByteArray csv() { return small.written(writeCsv); }
};

TEST_F(CsvExport, namesTheListedColumnsThenEachRow)
{
    small.add("ROCK_01", "D:\\a.mp3");
    small.add("Blå", "D:\\b c.mp3");
    EXPECT_EQ(csv(), "fldPath,fldVolum\r\nD:\\a.mp3,ROCK_01\r\nD:\\b c.mp3,Blå\r\n");
}

TEST_F(CsvExport, isItsHeaderWithoutRows)
{
    EXPECT_EQ(csv(), "fldPath,fldVolum\r\n");
}

TEST_F(CsvExport, tellsANullFromAnEmptyText)
{
    small.add(std::nullopt, "");
    EXPECT_EQ(csv(), "fldPath,fldVolum\r\n\"\",\r\n");
}

TEST_F(CsvExport, quotesWhatWouldPartFieldsAndNothingElse)
{
    for (const char* plain : {"a", "12345678", "a;b", "it's", "a b", "\xC3\xA6\xFF", "\x7F"}) {
        small.rows.rows.clear();
        small.add("x", plain);
        EXPECT_EQ(csv(), QByteArray("fldPath,fldVolum\r\n") + plain + ",x\r\n");
    }
    for (int length = 1; length < 20; ++length)
        for (const char sign : {',', '"', '\n', '\r', '\0', '\x1F'}) {
            QByteArray value(length, '\xFF');
            value[length - 1] = sign;
            small.rows.rows.clear();
            small.add("x", value);
            EXPECT_EQ(csv().mid(18, 1), "\"") << length << ' ' << int(sign);
        }
}

TEST_F(CsvExport, everyValueComesBackAsItIsStored)
{
    const std::vector<QByteArray> values = hostileValues();
    for (std::size_t i = 0; i < values.size(); ++i)
        small.add(i % 3 == 0   ? Field()
                  : i % 3 == 1 ? Field("")
                               : Field("v\"" + QByteArray::number(int(i))),
                  values[i]);
    const std::vector<Line> lines = parsed(csv());
    ASSERT_EQ(lines.size(), values.size() + 1);
    for (std::size_t i = 0; i < values.size(); ++i) {
        ASSERT_EQ(lines[i + 1].size(), 2U);
        EXPECT_TRUE(lines[i + 1][0] == values[i]) << i;
        EXPECT_TRUE(lines[i + 1][1] == small.rows.rows[i][0]) << i;
    }
}

TEST_F(CsvExport, goesToTheFileInLargePieces)
{
    for (int i = 0; i < 50'000; ++i)
        small.add("volume", "a path of some length \xC3\xA6 " + QByteArray::number(i));
    small.add("long", QByteArray(3'000'000, 'l'));
    small.add("after", "it");
    GatheredFile file;
    PieceWriter out(file);
    const std::function<bool(double)> goOn = [](double) { return true; };
    ExportProgress progress(goOn);
    ASSERT_TRUE(writeCsv(small.report, out, progress));
    EXPECT_LE(file.pieces, 14);
    EXPECT_EQ(out.written(), file.content.size());
    EXPECT_EQ(parsed(file.content).size(), 50'003U);
}

TEST_F(CsvExport, endsWhenItIsToldTo)
{
    for (int i = 0; i < 300'000; ++i)
        small.rows.rows.push_back({"v", "p"});
    double last = -1;
    int told = 0;
    const QByteArray all = small.written(writeCsv, [&](double share) {
        EXPECT_GT(share, last);
        EXPECT_LE(share, 1);
        last = share;
        return ++told < 2;
    });
    EXPECT_EQ(all, "ended");
    EXPECT_EQ(told, 2);
    EXPECT_EQ(small.written(writeCsv, [](double) { return false; }), "ended");
}
