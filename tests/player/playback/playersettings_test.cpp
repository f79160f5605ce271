#include "player/playback/playersettings.h"

#include "tests/player/playback/playersettingstest.h"
#include "tests/support/world.h"

#include <gtest/gtest.h>

namespace {

const QString kSaved =
    u"Skin SkinPath SkinImport WinOnTop WinSnap WinSavePos Auto Snooze SnoozeMode SnoozeTime "
    "SnoozeHide ExitMode StartMd StartMin StartMute StartFile TimeFmt VisPLPath ClearPlFirst "
    "AutoPlay ValidExt PBOverlap ScrollName UseTagCover FriendlyNames"_qs;
const QString kRead =
    u"Path WinOnTop WinSnap WinSavePos Auto Snooze SnoozeMode SnoozeTime SnoozeHide ExitMode "
    "StartMd StartMin StartMute StartFile Skin SkinPath SkinImport TimeFmt VisPLPath "
    "ClearPLFirst AutoPlay ValidExt PBOverlap ScrollName UseTagCover FriendlyNames"_qs;

std::string joined(const QStringList& texts, QChar bar)
{
    return texts.join(bar).toStdString();
}

QStringList lineOf(const PlayerSettings& s)
{
    QStringList values{s.Path,       s.SnoozeTime, s.StartFile, s.Skin,     s.SkinPath,
                       s.SkinImport, s.VisPLPath,  s.ValidExt,  s.LastCover};
    for (const qint16 number :
         {s.WinOnTop, s.WinSnap, s.WinSavePos, s.Auto, s.Snooze, s.SnoozeMode, s.SnoozeHide, s.ExitMode,
          s.StartMd, s.StartMin, s.StartMute, s.TimeFmt, s.ClearPLFirst, s.AutoPlay, s.OverlapMs,
          s.ScrollName, s.UseTagCover, s.FriendlyNames, s.LastTrack})
        values += QString::number(number);
    values += QString::number(s.X);
    values += QString::number(s.Y);
    return values;
}

// No two members are alike.
PlayerSettings full()
{
    return {.Path = u"D:\\a\\"_qs,
            .WinOnTop = 2,
            .WinSnap = 3,
            .WinSavePos = 4,
            .Auto = 5,
            .Snooze = 6,
            .SnoozeMode = 7,
            .SnoozeTime = u"07:30"_qs,
            .SnoozeHide = 8,
            .ExitMode = 9,
            .StartMd = 10,
            .StartMin = 11,
            .StartMute = 12,
            .StartFile = u"D:\\b"_qs,
            .Skin = u" c "_qs,
            .SkinPath = u"\"d\""_qs,
            .SkinImport = u"e\r\nf=[g]"_qs,
            .TimeFmt = 13,
            .VisPLPath = u"\u00C5%41"_qs,
            .ClearPLFirst = 14,
            .AutoPlay = 15,
            .ValidExt = u"mp3;#"_qs + QChar(u'\0') + u"x"_qs,
            .OverlapMs = -32768,
            .ScrollName = 32767,
            .UseTagCover = -1,
            .FriendlyNames = 16,
            .X = -105.5F,
            .Y = 1234.567F,
            .LastTrack = 17,
            .LastCover = u"'h'"_qs};
}

void loadAll(UserSettings& store, PlayerSettings& settings)
{
    loadSettings(store, settings);
    loadPosition(store, settings);
    loadLast(store, settings);
}

int winSnapOf(const QString& text)
{
    RecordingSettings store;
    store.values[u"WinSnap"_qs] = text;
    PlayerSettings settings{.WinSnap = 77};
    loadSettings(store, settings);
    return settings.WinSnap;
}

float leftOf(const QString& text)
{
    RecordingSettings store;
    store.values[u"X"_qs] = text;
    PlayerSettings settings{.X = 300};
    loadPosition(store, settings);
    return settings.X;
}

} // namespace

TEST(playerSettings, anEmptyStoreGivesTheDefaults)
{
    World world;
    PlayerSettings settings = full();
    loadAll(world.settings, settings);
    PlayerSettings expected;
    expected.SnoozeTime = u"23:59"_qs;
    expected.FriendlyNames = 1;
    expected.OverlapMs = -32768; // held before
    expected.X = -105.5F;        // where the window is
    expected.Y = 1234.567F;
    EXPECT_EQ(joined(lineOf(settings), u'|'), joined(lineOf(expected), u'|'));
    EXPECT_FALSE(world.directory.exists("home/.config/Songbin/settings.conf"));
}

TEST(playerSettings, everyKeyComesBackAsItWasSaved)
{
    World world;
    const PlayerSettings saved = full();
    saveSettings(world.settings, saved);
    savePosition(world.settings, saved);
    saveLast(world.settings, saved);
    savePath(world.settings, saved);
    PlayerSettings settings;
    FileUserSettings again(world.user.config + "/settings.conf");
    loadAll(again, settings);
    EXPECT_EQ(joined(lineOf(settings), u'|'), joined(lineOf(saved), u'|'));
}

TEST(playerSettings, loadsInTheOrderOfItsTable)
{
    RecordingSettings store;
    PlayerSettings settings{.OverlapMs = 250, .X = 15.5F, .Y = -30};
    loadAll(store, settings);
    EXPECT_EQ(joined(store.names, u' '), (kRead + u" X Y LastTrack LastCover"_qs).toStdString());
    EXPECT_EQ(joined(store.defaults, u'|'), "|0|0|0|0|0|0|23:59|0|0|0|0|0||||||||||250|0|0|1|15.5|-30|0|");
}

TEST(playerSettings, savesTheSkinFirstAndThePathAlone)
{
    RecordingSettings store;
    saveSettings(store, full());
    EXPECT_EQ(joined(store.names, u' '), kSaved.toStdString());
    store.names.clear();
    savePosition(store, full());
    saveLast(store, full());
    savePath(store, full());
    EXPECT_EQ(joined(store.names, u' '), "X Y LastCover LastTrack Path");
    EXPECT_EQ(store.values.value(u"PBOverlap"_qs), u"-32768"_qs);
    EXPECT_EQ(store.values.value(u"X"_qs), u"-105.5"_qs);
    EXPECT_EQ(store.values.value(u"Y"_qs), u"1234.567"_qs);
    EXPECT_EQ(store.values.value(u"Path"_qs), u"D:\\a\\"_qs);
}

TEST(playerSettings, aNumberIsTheNumericValueOfItsText)
{
    EXPECT_EQ(winSnapOf(u"no"_qs), 0);
    EXPECT_EQ(winSnapOf(QString()), 0);
    EXPECT_EQ(winSnapOf(u"True"_qs), 0);
    EXPECT_EQ(winSnapOf(u" 12 "_qs), 12);
    EXPECT_EQ(winSnapOf(u"-1"_qs), -1);
    EXPECT_EQ(winSnapOf(u"3 apples"_qs), 3);
    EXPECT_EQ(winSnapOf(u"1"_qs + QChar(u'\0') + u"2"_qs), 1);
}

TEST(playerSettings, aNumberIsRoundedHalfToEven)
{
    EXPECT_EQ(winSnapOf(u"0.5"_qs), 0);
    EXPECT_EQ(winSnapOf(u"1.5"_qs), 2);
    EXPECT_EQ(winSnapOf(u"2.5"_qs), 2);
    EXPECT_EQ(winSnapOf(u"-1.5"_qs), -2);
    EXPECT_EQ(winSnapOf(u"32767.4"_qs), 32767);
    EXPECT_EQ(winSnapOf(u"-32768.5"_qs), -32768);
}

TEST(playerSettings, aNumberThatDoesNotFitLeavesTheOneHeld)
{
    for (const QString& text :
         {u"1e9"_qs, u"32767.5"_qs, u"-32769"_qs, u"1e999"_qs, u"-1e999"_qs, QString(100000, u'9')})
        EXPECT_EQ(winSnapOf(text), 77) << text.left(20).toStdString();
}

TEST(playerSettings, aPositionIsOneThatAWindowCanHave)
{
    EXPECT_EQ(leftOf(u"12.25"_qs), 12.25F);
    EXPECT_EQ(leftOf(u"no"_qs), 0.0F);
    EXPECT_EQ(leftOf(u"-491505"_qs), -491505.0F);
    EXPECT_EQ(leftOf(u"491506"_qs), 300.0F);
    EXPECT_EQ(leftOf(u"1e38"_qs), 300.0F);
    EXPECT_EQ(leftOf(u"-1e999"_qs), 300.0F);
}

TEST(playerSettings, bothSpellingsAreOneKeyOfTheFile)
{
    World world;
    world.directory.write("home/.config/Songbin/settings.conf",
                          "[TONEDECKPRO/Config]\nCLEARPLfirst=1\nwinSNAP=5\nx=45\n");
    PlayerSettings settings;
    loadAll(world.settings, settings);
    EXPECT_EQ(settings.ClearPLFirst, 1);
    EXPECT_EQ(settings.WinSnap, 5);
    EXPECT_EQ(settings.X, 45.0F);
    settings.ClearPLFirst = 0;
    saveSettings(world.settings, settings);
    const QByteArray file = world.directory.read("home/.config/Songbin/settings.conf");
    EXPECT_TRUE(file.contains("CLEARPLfirst=0\n")) << file.constData();
    EXPECT_EQ(file.toLower().count("clearplfirst"), 1);
}

TEST(playerSettings, tellsWhatCouldNotBeReadOrSaved)
{
    RecordingSettings store;
    PlayerSettings settings;
    EXPECT_TRUE(loadSettings(store, settings));
    EXPECT_TRUE(loadLast(store, settings));
    store.unread = {u"StartMd"_qs, u"LastCover"_qs, u"Y"_qs};
    EXPECT_FALSE(loadSettings(store, settings));
    EXPECT_FALSE(loadLast(store, settings));
    EXPECT_FALSE(loadPosition(store, settings));
    EXPECT_EQ(settings.FriendlyNames, 1) << "the others are read all the same";
    World world;
    world.directory.makeDirectory("home/.config/Songbin/settings.conf"); // in the way
    EXPECT_FALSE(saveSettings(world.settings, settings));
    EXPECT_FALSE(saveLast(world.settings, settings));
    EXPECT_FALSE(savePosition(world.settings, settings));
    EXPECT_FALSE(savePath(world.settings, settings));
}
