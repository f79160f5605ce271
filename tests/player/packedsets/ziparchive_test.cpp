#include "player/packedsets/ziparchive.h"
#include "tests/support/zipfiles.h"

#include <QElapsedTimer>
#include <QStringList>

#include <gtest/gtest.h>

namespace {

using Fault = ZipFiles::Fault;

ZipFiles readAll(const QByteArray& archive)
{
    return readZip(archive, [](const QString&) { return true; });
}

QStringList names(const ZipFiles& files)
{
    QStringList all;
    for (const ZipFile& file : files.files)
        all += file.name;
    return all;
}

} // namespace

TEST(ReadZip, givesTheFilesThatAreWantedInTheirOrder)
{
    const QByteArray text = QByteArray("many words ").repeated(9000);
    const QByteArray archive =
        ZipMaker::of({{"b.txt", text}, {"skip.exe", "x"}, {"Sub/a.bmp", "BM"}, {"c", ""}});
    QStringList asked;
    const ZipFiles files = readZip(archive, [&](const QString& name) {
        asked += name;
        return name != u"skip.exe";
    });
    EXPECT_EQ(asked, (QStringList{u"b.txt"_qs, u"skip.exe"_qs, u"Sub/a.bmp"_qs, u"c"_qs}));
    EXPECT_EQ(names(files), (QStringList{u"b.txt"_qs, u"Sub/a.bmp"_qs, u"c"_qs}));
    EXPECT_EQ(files.files.front().content, text);
    EXPECT_EQ(files.files.back().content, QByteArray());
    EXPECT_EQ(files.fault, Fault::None);
}

TEST(ReadZip, readsWhatIsStoredToo)
{
    const ZipFiles files = readAll(
        ZipMaker::ofEntries({{.name = "a", .content = "plain", .packing = ZipMaker::Packing::Stored}}));
    ASSERT_EQ(files.files.size(), 1U);
    EXPECT_EQ(files.files.front().content, "plain");
}

TEST(ReadZip, givesRegularFilesAlone)
{
    EXPECT_EQ(names(readAll(
                  ZipMaker::ofEntries({{.name = "link", .content = "/etc/passwd", .mode = 0120777},
                                       {.name = "dir/", .packing = ZipMaker::Packing::Stored, .mode = 040755},
                                       {.name = "file", .content = "x"}}))),
              QStringList{u"file"_qs});
}

TEST(ReadZip, tellsOfAPassword)
{
    EXPECT_EQ(
        readAll(ZipMaker::ofEntries({{.name = "a", .content = "x", .flags = ZipMaker::kEncrypted}})).fault,
        Fault::Protected);
}

TEST(ReadZip, tellsOfWhatIsNoArchive)
{
    EXPECT_EQ(readAll({}).fault, Fault::Damaged);
    EXPECT_EQ(readAll("PK").fault, Fault::Damaged);
    EXPECT_EQ(readAll(QByteArray(100'000, 'x')).fault, Fault::Damaged);
}

TEST(ReadZip, tellsOfAChecksumThatIsWrong)
{
    QByteArray archive =
        ZipMaker::ofEntries({{.name = "a", .content = "plain", .packing = ZipMaker::Packing::Stored}});
    archive.replace("plain", "plaim");
    const ZipFiles files = readAll(archive);
    EXPECT_EQ(files.fault, Fault::Damaged);
    EXPECT_TRUE(files.files.empty());
}

// What is cut off, or changed in one place, comes out whole or is told; never in part.
TEST(ReadZip, givesNothingOfADamagedArchive)
{
    const QByteArray archive = ZipMaker::of({{"a", QByteArray("some text").repeated(50)}, {"b", "more"}});
    const ZipFiles sound = readAll(archive);
    ASSERT_EQ(sound.files.size(), 2U);
    for (qsizetype at = 0; at < archive.size(); ++at) {
        EXPECT_TRUE(readAll(archive.first(at)).files.empty()) << at;
        QByteArray changed = archive;
        changed[at] = static_cast<char>(changed[at] ^ 0x10);
        for (const ZipFile& file : readAll(changed).files)
            EXPECT_TRUE(file.content == sound.files[0].content || file.content == sound.files[1].content)
                << at;
    }
}

TEST(ReadZip, unpacksNoMoreThanItsLimits)
{
    const QByteArray bomb(kMostZipFileBytes + 1, '\0');
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(readAll(ZipMaker::of({{"a", bomb}})).fault, Fault::TooLarge);
    const QByteArray half = bomb.first(kMostZipFileBytes / 2);
    EXPECT_EQ(readAll(ZipMaker::of({{"a", half}, {"b", half}})).fault, Fault::None);
    EXPECT_EQ(
        readAll(
            ZipMaker::of(
                {{"1", half}, {"2", half}, {"3", half}, {"4", half}, {"5", half}, {"6", half}, {"7", half}}))
            .fault,
        Fault::TooLarge);
    EXPECT_LT(timer.elapsed(), 20'000);
}

TEST(ReadZip, takesNoMoreFilesThanItsLimits)
{
    std::vector<ZipMaker::Entry> many(kMostZipFiles, {.name = "a", .content = "x"});
    EXPECT_EQ(readAll(ZipMaker::ofEntries(many)).files.size(), static_cast<std::size_t>(kMostZipFiles));
    many.push_back({.name = "b", .content = "x"});
    EXPECT_EQ(readAll(ZipMaker::ofEntries(many)).fault, Fault::TooLarge);
    many.assign(kMostZipEntries + 1, {.name = "a", .content = "x"});
    EXPECT_EQ(readZip(ZipMaker::ofEntries(many), [](const QString&) { return false; }).fault,
              Fault::TooLarge);
}

// Streams of other kinds say themselves how much memory they take. This one is sound, and holds "text".
TEST(ReadZip, refusesOtherWaysOfPacking)
{
    const QByteArray lzma = QByteArray::fromHex("504b03043f0002000e0000002150c7a78b3b170000000400000001000000"
                                                "61090405005d00008000003a194b781968b2bffffb39"
                                                "c000504b01023f033f0002000e0000002150c7a78b3b1700000004000000"
                                                "01000000000000000000000080010000000061504b05"
                                                "0600000000010001002f000000360000000000");
    EXPECT_EQ(readAll(lzma).fault, Fault::Damaged);
    EXPECT_EQ(readZip(lzma, [](const QString&) { return false; }).fault, Fault::None);
}

TEST(ReadZip, readsNamesInUtf8AndOthers)
{
    EXPECT_EQ(names(readAll(ZipMaker::of({{"J\xC3\xB8/a", "x"}, {"J\xF8/b", "x"}}))),
              (QStringList{u"Jø/a"_qs, u"Jø/b"_qs}));
}
