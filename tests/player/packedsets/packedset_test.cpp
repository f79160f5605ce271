#include "player/packedsets/packedset.h"
#include "tests/support/temporary.h"
#include "tests/support/zipfiles.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <utime.h>

namespace {

using packedset::Fault;

struct PackedSet : testing::Test {
    QByteArray store() const { return directory.at("data/sets"); }
    packedset::Unpacked unpack(const std::vector<std::pair<QByteArray, QByteArray>>& files,
                               const QString& name = u"Gold Deck.wsz"_qs)
    {
        return packedset::unpack(ZipMaker::of(files), name, store());
    }
    // Returns "name content" of all that lies below the temporary directory, from its path on.
    QStringList everything() const
    {
        QStringList found;
        collect(QString::fromUtf8(directory.path()), found);
        return found;
    }

    Temporary directory;

private:
    static void collect(const QString& path, QStringList& found)
    {
        for (const QFileInfo& entry : QDir(path).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot |
                                                               QDir::Hidden | QDir::System)) {
            if (entry.isDir() && !entry.isSymLink())
                collect(entry.filePath(), found);
            else
                found += entry.fileName();
        }
    }
};

} // namespace

TEST(PackedSetNames, areThoseOfArchives)
{
    EXPECT_TRUE(packedset::isName(u"D:\\a.wsz"_qs));
    EXPECT_TRUE(packedset::isName(u"D:\\A.ZIP"_qs));
    EXPECT_FALSE(packedset::isName(u"D:\\zip"_qs));
    EXPECT_FALSE(packedset::isName(u"D:\\a.wsz.skin"_qs));
}

TEST(PackedSetFiles, arePicturesAndTextsByTheirLastPart)
{
    EXPECT_EQ(packedset::fileName(u"Some Set/MAIN.BMP"_qs), u"main.bmp"_qs);
    EXPECT_EQ(packedset::fileName(u"a\\b\\Nums_Ex.png"_qs), u"nums_ex.png"_qs);
    EXPECT_EQ(packedset::fileName(u"../../region.txt"_qs), u"region.txt"_qs);
    for (const char* name :
         {"main.exe", ".bmp", "a/.bmp", "sub.bmp/", "..", "a..bmp", "a:b.bmp", "normal.cur", ""})
        EXPECT_EQ(packedset::fileName(QString::fromLatin1(name)), QString()) << name;
    EXPECT_EQ(packedset::fileName(QString(65, u'a') + u".bmp"_qs), QString());
    EXPECT_EQ(packedset::fileName(u"b\u00f8.bmp"_qs), QString());
}

TEST(PackedSetFiles, lieBesideTheMainPictureThatIsLeastDeep)
{
    const auto names = [](const std::vector<ZipFile>& files) {
        QStringList found;
        for (const ZipFile& file : packedset::filesOfSet(files))
            found += file.name + u' ' + QString::fromUtf8(file.content);
        return found;
    };
    EXPECT_EQ(names({{u"a/b/main.bmp"_qs, "1"},
                     {u"a/text.bmp"_qs, "2"},
                     {u"a/Main.PNG"_qs, "3"},
                     {u"x.bmp"_qs, "4"}}),
              (QStringList{u"text.bmp 2"_qs, u"main.png 3"_qs}));
    EXPECT_EQ(names({{u"main.bmp"_qs, "1"}, {u"MAIN.BMP"_qs, "2"}}), QStringList{u"main.bmp 1"_qs});
    EXPECT_EQ(names({{u"text.bmp"_qs, "1"}}), QStringList());
}

TEST_F(PackedSet, isUnpackedIntoADirectoryOfItsName)
{
    const packedset::Unpacked set =
        unpack({{"Deck/MAIN.BMP", "m"}, {"Deck/Text.bmp", "t"}, {"readme.txt", "r"}});
    EXPECT_EQ(set.fault, Fault::None);
    EXPECT_TRUE(set.directory.startsWith(store() + "/gold deck-")) << set.directory.constData();
    const QString path = QString::fromUtf8(set.directory);
    EXPECT_EQ(QDir(path).entryList(QDir::Files), (QStringList{u"main.bmp"_qs, u"text.bmp"_qs}));
    QFile file(path + u"/main.bmp"_qs);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "m");
}

TEST_F(PackedSet, isTheSameDirectoryTheNextTime)
{
    const QByteArray first = unpack({{"main.bmp", "m"}, {"text.bmp", "t"}}).directory;
    EXPECT_TRUE(QFile::remove(QString::fromUtf8(first) + u"/text.bmp"_qs));
    EXPECT_EQ(unpack({{"main.bmp", "m"}, {"text.bmp", "t"}}).directory, first);
    EXPECT_TRUE(QFile::exists(QString::fromUtf8(first) + u"/text.bmp"_qs)) << "whole again";
    EXPECT_NE(unpack({{"main.bmp", "other"}}).directory, first);
}

// Whatever an archive's names say, nothing lies anywhere but in the set's own directory.
TEST_F(PackedSet, writesNowhereElse)
{
    directory.write("data/keep.txt", "mine");
    const packedset::Unpacked set = unpack({{"main.bmp", "m"},
                                            {"../keep.txt", "x"},
                                            {"/tmp/songbin-outside.txt", "x"},
                                            {"..\\..\\keep.txt", "x"},
                                            {"C:\\a.bmp", "x"},
                                            {"sub/../a.bmp", "x"}},
                                           u"../../evil.wsz"_qs);
    EXPECT_EQ(set.fault, Fault::None);
    EXPECT_EQ(everything(), (QStringList{u"keep.txt"_qs, u"main.bmp"_qs}));
    EXPECT_EQ(directory.read("data/keep.txt"), "mine");
    EXPECT_FALSE(QFile::exists(u"/tmp/songbin-outside.txt"_qs));
    EXPECT_EQ(QFileInfo(QString::fromUtf8(set.directory)).path().toUtf8(), store());
}

// The same of an archive whose main picture itself is said to lie elsewhere, with all that lies beside it.
TEST_F(PackedSet, writesNowhereElseWhereTheSetItselfIsSaidToLie)
{
    for (const QByteArray& place : {QByteArray("../"), QByteArray("..\\"), QByteArray("../../sub/../"),
                                    directory.path() + "/", QByteArray("x/../../")}) {
        const packedset::Unpacked set = unpack({{place + "main.bmp", place}, {place + "outside.txt", "x"}});
        ASSERT_EQ(set.fault, Fault::None) << place.constData();
        QDir made(QString::fromUtf8(set.directory));
        EXPECT_EQ(made.path().section(u'/', 0, -2).toUtf8(), store());
        EXPECT_EQ(made.entryList(QDir::Files), (QStringList{u"main.bmp"_qs, u"outside.txt"_qs}))
            << place.constData();
        EXPECT_TRUE(made.removeRecursively());
        EXPECT_EQ(everything(), QStringList()) << place.constData();
    }
}

TEST_F(PackedSet, tellsWhatIsWrongAndLeavesNothing)
{
    EXPECT_EQ(packedset::unpack("no archive", u"a.zip"_qs, store()).fault, Fault::Damaged);
    EXPECT_EQ(unpack({{"text.bmp", "t"}}).fault, Fault::NoPicture);
    EXPECT_EQ(packedset::unpack(
                  ZipMaker::ofEntries({{.name = "main.bmp", .content = "x", .flags = ZipMaker::kEncrypted}}),
                  u"a.zip"_qs, store())
                  .fault,
              Fault::Protected);
    EXPECT_EQ(packedset::unpack(ZipMaker::of({{"main.bmp", "m"}}), u"a.zip"_qs, {}).fault,
              Fault::CannotWrite);
    EXPECT_EQ(everything(), QStringList());
    directory.write("data", "a file is where the directory would be");
    EXPECT_EQ(unpack({{"main.bmp", "m"}}).fault, Fault::CannotWrite);
}

TEST_F(PackedSet, keepsTheLastFewSetsAndNothingThatWasLeft)
{
    directory.write("data/sets/.new-abcdef/main.bmp", "left by a killed program");
    directory.write("data/sets/notes of mine/main.bmp", "no set");
    const utimbuf old{1'000'000, 1'000'000};
    ASSERT_EQ(utime(directory.at("data/sets/.new-abcdef").constData(), &old), 0);
    std::vector<QByteArray> made;
    for (int i = 0; i < packedset::kMostSets + 2; ++i) {
        made.push_back(unpack({{"main.bmp", QByteArray::number(i)}}).directory);
        const utimbuf when{2'000'000 + i, 2'000'000 + i};
        ASSERT_EQ(utime(made.back().constData(), &when), 0);
    }
    made.push_back(unpack({{"main.bmp", "last"}}).directory);
    EXPECT_FALSE(QFile::exists(QString::fromUtf8(made[2])));
    EXPECT_TRUE(QFile::exists(QString::fromUtf8(made[3])));
    EXPECT_TRUE(QFile::exists(QString::fromUtf8(made.back())));
    EXPECT_FALSE(QFile::exists(QString::fromUtf8(directory.at("data/sets/.new-abcdef"))));
    EXPECT_EQ(directory.read("data/sets/notes of mine/main.bmp"), "no set");
}
