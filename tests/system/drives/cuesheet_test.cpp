#include "system/drives/cuesheet.h"

#include <gtest/gtest.h>

#include <random>

using namespace audiodisc;

namespace {

// Returns "image|number@start|number@start data", or "none".
QByteArray shown(const QByteArray& text)
{
    const std::optional<CueSheet> sheet = readCueSheet(text);
    if (!sheet)
        return "none";
    QByteArray shown = sheet->image;
    for (const TocEntry& entry : sheet->entries)
        shown += '|' + QByteArray::number(entry.number) + '@' + QByteArray::number(entry.start) +
                 (entry.audio ? "" : " data");
    return shown;
}

QByteArray track(const QByteArray& number, const QByteArray& place, const QByteArray& mode = "AUDIO")
{
    return "TRACK " + number + ' ' + mode + "\nINDEX 01 " + place + '\n';
}

const QByteArray kFile = "FILE \"a.bin\" BINARY\n";
const QByteArray kOne = kFile + track("01", "00:00:00");

} // namespace

TEST(CueSheet, tellsImageTracksAndPlaces)
{
    EXPECT_EQ(shown(kFile + track("01", "00:00:00") + track("02", "00:01:00") + track("03", "12:34:56")),
              "a.bin|1@0|2@75|3@56606");
}

TEST(CueSheet, whatSaysNothingOfPlacesIsPassedOver)
{
    EXPECT_EQ(
        shown("REM GENRE Rock\nCATALOG 1\nTITLE \"FILE x\"\n\n" + kFile +
              "  TRACK 01 AUDIO\n    TITLE \"INDEX 01\"\n    FLAGS DCP\n    PREGAP 00:02:00\n"
              "    INDEX 00 00:00:10\n    INDEX 01 00:00:33\n    INDEX 02 00:01:00\n  POSTGAP 00:02:00\n"),
        "a.bin|1@33");
}

TEST(CueSheet, lineEndsTabsCaseAndAMarkAtTheBeginningDoNotMatter)
{
    const QByteArray sheet = kFile + track("01", "00:00:00") + track("2", "00:01:00");
    const QByteArray expected = "a.bin|1@0|2@75";
    EXPECT_EQ(shown(sheet), expected);
    EXPECT_EQ(shown(QByteArray(sheet).replace("\n", "\r\n")), expected);
    EXPECT_EQ(shown(QByteArray(sheet).replace('\n', '\r')), expected);
    EXPECT_EQ(shown(QByteArray(sheet).replace(' ', " \t ").replace("\n", " \n\t")), expected);
    EXPECT_EQ(shown(sheet.toLower()), expected);
    EXPECT_EQ(shown("\xEF\xBB\xBF" + sheet), expected);
    EXPECT_EQ(shown(sheet.trimmed()), expected); // no end of the last line
}

TEST(CueSheet, namesOfImagesAreTakenAsTheyStand)
{
    const QByteArray one = track("1", "00:00:00");
    EXPECT_EQ(shown("FILE a.bin BINARY\n" + one), "a.bin|1@0");
    EXPECT_EQ(shown("FILE \"My  \tDisc.bin\" binary\n" + one), "My  \tDisc.bin|1@0");
    EXPECT_EQ(shown("FILE \"sj\xF8\" BINARY\n" + one), "sj\xF8|1@0");
    for (const char* file : {"FILE \"\" BINARY", "FILE \"a BINARY", "FILE a.bin", "FILE", "FILE \"a.bin\"",
                             "FILE \"a.wav\" WAVE", "FILE \"a.bin\" MOTOROLA", "FILE \"a.mp3\" MP3"})
        EXPECT_EQ(shown(file + ('\n' + one)), "none") << file;
    EXPECT_EQ(shown(QByteArray("FILE \"a\0b\" BINARY\n", 18) + one), "none");
}

TEST(CueSheet, severalImagesAreNone)
{
    EXPECT_EQ(shown(kOne + "FILE \"b.bin\" BINARY\n" + track("02", "00:00:00")), "none");
    EXPECT_EQ(shown(kFile + kOne), "none");
    EXPECT_EQ(shown(track("01", "00:00:00") + kFile), "none"); // before it
}

TEST(CueSheet, dataAmongAudioIsToldUnlessItsSectorsAreShorter)
{
    EXPECT_EQ(shown(kFile + track("1", "00:00:00", "MODE1/2352") + track("2", "00:01:00")),
              "a.bin|1@0 data|2@75");
    for (const char* mode : {"MODE1/2048", "MODE2/2336", "CDG", ""})
        EXPECT_EQ(shown(kFile + track("1", "00:00:00", mode) + track("2", "00:01:00")), "none") << mode;
}

TEST(CueSheet, aTrackHasOneFirstIndex)
{
    EXPECT_EQ(shown(kFile + "TRACK 01 AUDIO\nINDEX 00 00:00:00\n" + track("2", "00:01:00")), "none");
    EXPECT_EQ(shown(kFile + track("1", "00:00:00") + "TRACK 02 AUDIO\n"), "none");
    EXPECT_EQ(shown(kOne + "INDEX 01 00:01:00\n"), "none");
    EXPECT_EQ(shown(kFile + "INDEX 01 00:01:00\n"), "none");
    EXPECT_EQ(shown(kFile), "none");
    EXPECT_EQ(shown({}), "none");
}

TEST(CueSheet, numbersThatAreNoneAreRefused)
{
    for (const char* place :
         {"00:00:75", "00:60:00", "100:00:00", "00:00", "00:00:00:00", "-1:00:00", "0:0:-1",
          "99999999999999999999:00:00", "a:b:c", "", "::", "+1:00:00", "0x1:00:00"})
        EXPECT_EQ(shown(kFile + track("01", place)), "none") << place;
    for (const char* number : {"0", "00", "100", "-1", "4294967297", "+1", "one", "1.0"})
        EXPECT_EQ(shown(kFile + track(number, "00:00:00")), "none") << number;
    EXPECT_EQ(shown(kFile + track("1", "99:59:74")), "a.bin|1@449999");
}

TEST(CueSheet, tracksCountFromOneWithoutAGap)
{
    const QByteArray one = track("1", "00:00:00");
    const QByteArray two = track("2", "00:01:00");
    const QByteArray three = track("3", "00:02:00");
    EXPECT_EQ(shown(kFile + one + two + three), "a.bin|1@0|2@75|3@150");
    for (const QByteArray& tracks : {two, two + three, one + three, two + one, one + one, one + two + two})
        EXPECT_EQ(shown(kFile + tracks), "none");
    QByteArray many = kFile;
    for (int i = 1; i <= 99; ++i)
        many += track(QByteArray::number(i), "00:00:" + QByteArray::number(i % 75));
    EXPECT_NE(shown(many), "none");
    EXPECT_EQ(shown(many + track("100", "00:00:00")), "none");
}

TEST(CueSheet, hostileOnesEndAtOnce)
{
    QByteArray many = kFile;
    for (int i = 1; i <= 100000; ++i)
        many += track(QByteArray::number(i), "00:00:00");
    EXPECT_EQ(shown(many), "none");
    EXPECT_EQ(shown(kOne + QByteArray(1 << 20, 'x')), "a.bin|1@0");
    EXPECT_EQ(shown(kOne + QByteArray(1 << 20, ' ')), "a.bin|1@0");
    EXPECT_EQ(shown(kOne + QByteArray(1 << 20, '\n')), "a.bin|1@0");
    EXPECT_EQ(shown(kFile + "TRACK 01 AUDIO\nINDEX 01 " + QByteArray(1 << 20, '1')), "none");
    EXPECT_EQ(shown("FILE \"" + QByteArray(1 << 20, 'a')), "none");
}

TEST(CueSheet, anyBytesAreSurvived)
{
    std::mt19937 random(4711);
    const QByteArray whole = kFile + track("01", "00:00:00") + track("02", "00:01:00");
    int sheets = 0;
    for (int round = 0; round < 20000; ++round) {
        QByteArray text = whole;
        for (unsigned changes = random() % 4; changes > 0; --changes)
            text[static_cast<qsizetype>(random() % static_cast<unsigned>(text.size()))] =
                static_cast<char>(random());
        const std::optional<CueSheet> sheet = readCueSheet(text.left(static_cast<qsizetype>(random() % 120)));
        sheets += sheet.has_value();
        for (const TocEntry& entry : sheet.value_or(CueSheet{}).entries)
            EXPECT_TRUE(entry.number >= 1 && entry.number <= 99 && entry.start >= 0 && entry.start < 450000);
    }
    EXPECT_GT(sheets, 100);
}

TEST(CueSheet, ofOurOwnCountsFromOneWithoutAGap)
{
    const QByteArray text = cueSheetOf({{2, 75, 75}, {5, 4600, 100}}, 9000, "a.bin");
    EXPECT_EQ(text.left(text.indexOf('\n')), "FILE \"a.bin\" BINARY");
    EXPECT_EQ(shown(text), "a.bin|1@0 data|2@75|3@150 data|4@151 data|5@4600|6@4700 data");
    EXPECT_TRUE(text.contains("  TRACK 05 AUDIO\n    INDEX 01 01:01:25\n")) << text.toStdString();
    EXPECT_EQ(shown(cueSheetOf({{1, 0, 75}}, 75, "a.bin")), "a.bin|1@0");
}
