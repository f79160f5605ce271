#include "archive/core/playentry.h"

#include "archive/core/registryaccess.h"
#include "archive/core/settings.h"
#include "platform/registry.h"
#include "tests/support/world.h"

#include <gtest/gtest.h>

namespace {

const QString kFile = QStringLiteral("D:\\a.mp3");
const QString kWrongDisk =
    QStringLiteral("IMPORTANT|Disk Name does not match, Make sure you are using the right disk.");

struct PlayEntry : testing::Test {
    World world;

    void play(const QString& path, const QString& diskName)
    {
        world.shared.PlayPath = kFile;
        playEntry(world.context, path, diskName);
    }
    void choosePlayer(const QString& player)
    {
        SaveRegValue(world.registry, RootKey::LocalMachine, settings::kKeyForWriting, settings::kMP3player,
                     kRegSz, player);
    }
};

} // namespace

TEST_F(PlayEntry, theRightDiskPlaysWithoutAWord)
{
    play(kFile, u"ROCK_01"_qs);
    EXPECT_TRUE(world.dialogs.messages.empty());
    EXPECT_EQ(world.launcher.opened, QStringList(kFile));
    EXPECT_EQ(world.shared.CurrentVolume, u"ROCK_01");
}

TEST_F(PlayEntry, aWrongDiskIsWarnedOfAndPlaysAllTheSame)
{
    for (const QString& name : {u"ROCK_02"_qs, u"rock_01"_qs, u"ROCK_01 "_qs, QString()}) {
        world.dialogs.messages.clear();
        play(kFile, name);
        ASSERT_EQ(world.dialogs.messages.size(), 1U);
        EXPECT_EQ(world.dialogs.said(0), kWrongDisk);
        EXPECT_EQ(world.dialogs.messages[0].icon, MessageIcon::Information);
    }
    EXPECT_EQ(world.launcher.opened.size(), 4);
}

// The drive of the editor's path counts, not that of the file that is played.
TEST_F(PlayEntry, theDiskOfTheEditorsRecordIsChecked)
{
    play(u"P:\\other.mp3"_qs, u"ROCK_01"_qs);
    EXPECT_EQ(world.dialogs.said(0), kWrongDisk);
    EXPECT_EQ(world.shared.CurrentVolume, u"");
    EXPECT_EQ(world.launcher.opened, QStringList(kFile));
}

TEST_F(PlayEntry, aDriveWithoutLabelFitsOnlyAnEmptyDiskName)
{
    play(u"P:\\a.mp3"_qs, QString());
    EXPECT_TRUE(world.dialogs.messages.empty());
    play(u"P:\\a.mp3"_qs, u" "_qs);
    EXPECT_EQ(world.dialogs.said(0), kWrongDisk);
}

TEST_F(PlayEntry, aDriveThatIsNotThereIsAWrongDisk)
{
    play(u"X:\\a.mp3"_qs, u"ROCK_01"_qs);
    EXPECT_EQ(world.dialogs.said(0), kWrongDisk);
    EXPECT_EQ(world.launcher.opened, QStringList(kFile));
}

TEST_F(PlayEntry, pathsThatNameNoDriveDoNoHarm)
{
    for (const QString& path : {QString(), u"D"_qs, u"\\\\server\\share\\a.mp3"_qs, u"åß"_qs})
        play(path, QString());
    EXPECT_EQ(world.launcher.opened.size(), 4);
}

TEST_F(PlayEntry, theBuiltInPlayerIsNoMore)
{
    choosePlayer(u"0"_qs);
    play(kFile, u"ROCK_01"_qs);
    ASSERT_EQ(world.dialogs.messages.size(), 1U);
    EXPECT_EQ(world.dialogs.messages[0].title, u"Missing Player");
    EXPECT_EQ(world.dialogs.messages[0].icon, MessageIcon::None);
    const QStringList lines = world.dialogs.messages[0].text.split(u'\r');
    ASSERT_EQ(lines.size(), 4);
    EXPECT_EQ(lines[0], u"This player is no more....");
    EXPECT_EQ(lines[1], u"You should install an MP3 player.");
    EXPECT_TRUE(lines[2].contains(u"https://"));
    EXPECT_EQ(lines[3], u"And then select to Use your installed MP3 player in the Options menu.");
    EXPECT_TRUE(world.launcher.opened.isEmpty());
}

TEST_F(PlayEntry, theWarningComesBeforeTheMissingPlayer)
{
    choosePlayer(u"0"_qs);
    play(kFile, u"OTHER"_qs);
    ASSERT_EQ(world.dialogs.messages.size(), 2U);
    EXPECT_EQ(world.dialogs.said(0), kWrongDisk);
}

TEST_F(PlayEntry, anyOtherSettingOpensTheFile)
{
    for (const QString& player : {u"1"_qs, u"2"_qs, u"00"_qs, u"yes"_qs}) {
        choosePlayer(player);
        play(kFile, u"ROCK_01"_qs);
    }
    EXPECT_EQ(world.launcher.opened.size(), 4);
    EXPECT_TRUE(world.dialogs.messages.empty());
}

TEST_F(PlayEntry, anErrorEndsItWithoutAWord)
{
    world.launcher.fails = true;
    play(kFile, u"ROCK_01"_qs);
    EXPECT_TRUE(world.dialogs.messages.empty());
    EXPECT_TRUE(world.dialogs.errors.empty());
}
