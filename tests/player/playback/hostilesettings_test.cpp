// Settings files that no program has written.
#include "player/playback/playersettings.h"

#include "tests/support/world.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <random>

namespace {

constexpr qint64 kPatience = 20000; // milliseconds, for a slow machine with sanitizers

struct Loaded {
    PlayerSettings settings;
    qint64 milliseconds;
};

Loaded loadFrom(World& world, const QByteArray& content)
{
    world.directory.write("home/.config/Songbin/settings.conf", content);
    Loaded loaded{};
    QElapsedTimer time;
    time.start();
    FileUserSettings store(world.user.config + "/settings.conf");
    loadSettings(store, loaded.settings);
    loadPosition(store, loaded.settings);
    loadLast(store, loaded.settings);
    loaded.milliseconds = time.elapsed();
    return loaded;
}

} // namespace

TEST(hostileSettings, randomBytesGiveTheDefaults)
{
    World world;
    std::mt19937 random(20261121);
    for (int round = 0; round < 50; ++round) {
        QByteArray bytes(20000, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random());
        const Loaded loaded = loadFrom(world, bytes);
        ASSERT_EQ(loaded.settings.SnoozeTime, u"23:59"_qs);
        ASSERT_EQ(loaded.settings.FriendlyNames, 1);
    }
}

TEST(hostileSettings, damagedLinesAreValuesAndNoCrash)
{
    World world;
    std::mt19937 random(7);
    const QByteArray good =
        "[tonedeckpro/config]\nWinSnap=1\nSkin=a%00b\nX=12\nPBOverlap=-5\nValidExt=%u00e5\n";
    for (int round = 0; round < 500; ++round) {
        QByteArray bytes = good;
        for (int i = 0; i < 4; ++i)
            bytes[static_cast<qsizetype>(random() % static_cast<unsigned>(bytes.size()))] =
                static_cast<char>(random());
        const Loaded loaded = loadFrom(world, bytes);
        ASSERT_EQ(loaded.settings.FriendlyNames, 1);
        ASSERT_LE(std::abs(loaded.settings.X), 491505.0F);
    }
}

TEST(hostileSettings, longLinesAreReadWhole)
{
    World world;
    const QByteArray million(1000000, '9');
    const Loaded loaded = loadFrom(world, "[tonedeckpro/config]\nSkin=" + million + "\nWinSnap=" + million +
                                              "\n" + million + "=1\nX=" + million + "\nPBOverlap= 7" + '\n' +
                                              "StartFile=" + QByteArray(1000000, '%') + '\n' + million);
    EXPECT_EQ(loaded.settings.Skin.size(), million.size());
    EXPECT_EQ(loaded.settings.StartFile, QString(1000000, u'%'));
    EXPECT_EQ(loaded.settings.WinSnap, 0);
    EXPECT_EQ(loaded.settings.X, 0.0F);
    EXPECT_EQ(loaded.settings.OverlapMs, 7);
    EXPECT_LT(loaded.milliseconds, kPatience);
    RecordProperty("milliseconds", static_cast<int>(loaded.milliseconds));
}

TEST(hostileSettings, theRightOneIsFoundAmongAHundredThousandKeys)
{
    World world;
    QByteArray content = "[tonedeckpro/config]\nWinSnap=4\n";
    for (int i = 0; i < 100000; ++i)
        content += "Key" + QByteArray::number(i) + "=x\n";
    const Loaded loaded = loadFrom(world, content + "SNOOZETIME=01:02\n");
    EXPECT_EQ(loaded.settings.WinSnap, 4);
    EXPECT_EQ(loaded.settings.SnoozeTime, u"01:02"_qs);
    EXPECT_EQ(loaded.settings.FriendlyNames, 1);
    EXPECT_LT(loaded.milliseconds, kPatience);
    RecordProperty("milliseconds", static_cast<int>(loaded.milliseconds));
}
