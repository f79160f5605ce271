#include "player/playlist/walkdirectory.h"

#include "tests/support/world.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

struct WalkDirectoryTest : testing::Test {
    QStringList walk(const QString& directory)
    {
        QStringList found;
        WalkDirectory(world.files, world.program, directory, options, counters, [&](const QString& path) {
            found += path;
            return found.size() < most;
        });
        return found;
    }

    World world;
    WalkOptions options{.extensions = {u"MP3"_qs, u"wav"_qs}};
    WalkCounters counters;
    int most = 1000;
};

} // namespace

TEST(validExtensions, partsTheSetting)
{
    EXPECT_EQ(validExtensions(u"MP3 wav,OGG;*.MOD|.xm"_qs),
              (QStringList{u"MP3"_qs, u"wav"_qs, u"OGG"_qs, u"MOD"_qs, u"xm"_qs}));
}

TEST(validExtensions, standForTheUsualOnesWhenTheSettingNamesNone)
{
    const QStringList usual{u"MP2"_qs, u"MP3"_qs, u"MID"_qs, u"WAV"_qs,
                            u"MOD"_qs, u"XM"_qs,  u"AVI"_qs, u"MOV"_qs};
    EXPECT_EQ(validExtensions(QString()), usual);
    EXPECT_EQ(validExtensions(u" , *."_qs), usual);
}

TEST_F(WalkDirectoryTest, visitsFilesThenSubdirectoriesInTheOrderOfTheirNames)
{
    for (const char* name :
         {"m/b.mp3", "m/A.MP3", "m/c.txt", "m/mp3", "m/z/1.wav", "m/K/2.Mp3", "m/K/x/3.mp3"})
        world.directory.write(QByteArray("disk/") + name);
    const QStringList expected{u"D:\\m\\A.MP3"_qs, u"D:\\m\\b.mp3"_qs, u"D:\\m\\K\\2.Mp3"_qs,
                               u"D:\\m\\K\\x\\3.mp3"_qs, u"D:\\m\\z\\1.wav"_qs};
    EXPECT_EQ(walk(u"D:\\m"_qs), expected);
    EXPECT_EQ(counters.files, 5);
    EXPECT_EQ(counters.directories, 4);
    EXPECT_EQ(walk(u"D:\\m\\"_qs), expected);
}

TEST_F(WalkDirectoryTest, staysInItsDirectoryWhenTold)
{
    world.directory.write("disk/m/a.mp3");
    world.directory.write("disk/m/sub/b.mp3");
    options.subdirectories = false;
    EXPECT_EQ(walk(u"D:\\m"_qs), QStringList(u"D:\\m\\a.mp3"_qs));
}

TEST_F(WalkDirectoryTest, takesEveryFileWithoutExtensions)
{
    world.directory.write("disk/m/readme");
    options.extensions.clear();
    EXPECT_EQ(walk(u"D:\\m"_qs), QStringList(u"D:\\m\\readme"_qs));
}

TEST_F(WalkDirectoryTest, ends)
{
    world.directory.write("disk/m/sub/a.mp3");
    std::filesystem::create_directory_symlink("..", world.directory.at("disk/m/sub/up").toStdString());
    std::filesystem::create_directory_symlink(".", world.directory.at("disk/m/here").toStdString());
    EXPECT_EQ(walk(u"D:\\m"_qs), QStringList(u"D:\\m\\sub\\a.mp3"_qs));
}

TEST_F(WalkDirectoryTest, visitsADirectoryOnceHoweverManyLinksLeadToIt)
{
    for (int i = 0; i < 7; ++i)
        world.directory.write("disk/m/" + QByteArray::number(i) + "/a.mp3");
    for (int from = 0; from < 7; ++from)
        for (int to = 0; to < 7; ++to)
            std::filesystem::create_directory_symlink(
                "../" + std::to_string(to),
                world.directory.at("disk/m/" + QByteArray::number(from) + "/to" + QByteArray::number(to))
                    .toStdString());
    most = 100'000;
    EXPECT_EQ(walk(u"D:\\m"_qs).size(), 7);
    EXPECT_EQ(counters.files, 7);
    EXPECT_EQ(counters.directories, 8);
}

TEST_F(WalkDirectoryTest, findsNothingWhereNothingCanBeRead)
{
    EXPECT_EQ(walk(u"D:\\away"_qs), QStringList());
    EXPECT_EQ(walk(u"Q:\\"_qs), QStringList());
    EXPECT_EQ(walk(QString()), QStringList());
}

TEST_F(WalkDirectoryTest, stopsWhenTheVisitorHasEnough)
{
    for (const char* name : {"m/a.mp3", "m/b.mp3", "m/c/d.mp3", "m/e/f.mp3"})
        world.directory.write(QByteArray("disk/") + name);
    most = 3;
    EXPECT_EQ(walk(u"D:\\m"_qs).size(), 3);
    EXPECT_EQ(counters.directories, 2);
}

TEST_F(WalkDirectoryTest, stopsWhenTheProgramEnds)
{
    world.directory.write("disk/m/a.mp3");
    world.directory.write("disk/m/b.mp3");
    world.directory.write("disk/m/c/d.mp3");
    world.program.onYield = [this] { world.program.end(0); };
    EXPECT_EQ(walk(u"D:\\m"_qs), QStringList(u"D:\\m\\a.mp3"_qs));
}
