// Plays a list while files, sound and servers fail.
#include "tests/player/playback/playbacktest.h"

#include "tests/support/bytes.h"
#include "tests/support/mediafiles.h"
#include "tests/support/soundserver.h"

#include <QFile>

namespace {

constexpr double kHandOver = 500; // milliseconds, as all times here
constexpr double kOpening = 250;
constexpr double kOpenLimit = 12'000;
constexpr double kCommandLimit = 1000; // of a device that does not answer

QByteArray noise(int size)
{
    return arbitraryBytes(size, 4711);
}

struct FailuresTest : PlaybackTest {
    QByteArray pathOf(const char* name) { return world.directory.at(QByteArray("disk/") + name); }
    void remove(const char* name) { ASSERT_TRUE(QFile::remove(QString::fromUtf8(pathOf(name)))); }
    // It stands on the current entry, in silence, until another one is chosen.
    void expectHalt(int entry)
    {
        EXPECT_TRUE(isSilent());
        EXPECT_EQ(list.CurTrack(), entry);
        EXPECT_TRUE(engine.halted());
        EXPECT_FALSE(face.timer);
    }
    QString reported() { return face.errors.join(u'#'); }
};

} // namespace

TEST_F(FailuresTest, aFileThatVanishesWhileItPlaysIsHeardToItsEnd)
{
    addCounters(2, 500);
    engine.PlayIt();
    ASSERT_TRUE(hears(1));
    remove("1.wav");
    ASSERT_TRUE(stops(3000));
    EXPECT_TRUE(isWhole(tape.runs(1), 500));
    EXPECT_TRUE(isWhole(tape.runs(2), 500));
}

TEST_F(FailuresTest, aFileThatIsCutOffWhileItPlaysEndsThere)
{
    addCounters(1, 20'000);
    addCounters(1, 300);
    engine.PlayIt();
    ASSERT_TRUE(hears(1));
    ASSERT_TRUE(QFile::resize(QString::fromUtf8(pathOf("1.wav")), 44 + 4 * kRate));
    ASSERT_TRUE(hears(2, 3000));
    EXPECT_EQ(tape.runs(1).size(), 1U);
    EXPECT_TRUE(stops(2000));
    EXPECT_TRUE(isWhole(tape.runs(2), 300));
}

TEST_F(FailuresTest, haltsOnAFileThatVanishedFromTheList)
{
    addCounters(3, 300);
    engine.PlayIt();
    remove("2.wav");
    ASSERT_TRUE(goesOnUntil([&] { return engine.halted(); }, 2000));
    EXPECT_TRUE(isWhole(tape.runs(1), 300));
    expectHalt(2);
    EXPECT_EQ(list.entries()[1], (PlaylistEntry{u"2.wav [FILE NOT FOUND]"_qs, QString()}));
    EXPECT_EQ(engine.DeviceType(), QString());
    EXPECT_TRUE(face.errors.isEmpty());
    engine.NextTrack();
    EXPECT_FALSE(engine.halted());
    EXPECT_TRUE(hears(3));
}

TEST_F(FailuresTest, haltsOnARepeatedFileThatVanishes)
{
    addCounters(1, 300);
    engine.RepeatMode = true;
    engine.PlayIt();
    ASSERT_TRUE(hears(1));
    remove("1.wav");
    ASSERT_TRUE(goesOnUntil([&] { return engine.halted(); }, 2000));
    expectHalt(1);
    EXPECT_EQ(list.entries()[0].name, u"1.wav [FILE NOT FOUND]"_qs);
}

TEST_F(FailuresTest, theTailIsHeardWhileTheNextIsMissing)
{
    settings.OverlapMs = 1000;
    addCounters(2, 1500);
    remove("2.wav");
    engine.PlayIt();
    ASSERT_TRUE(goesOnUntil([&] { return engine.halted(); }, 1500));
    ASSERT_TRUE(goesOnUntil([&] { return tape.runs(1).back().end == 3U * kRate / 2; }, 2000));
    expectHalt(2);
}

TEST_F(FailuresTest, reportsADamagedFileAndHalts)
{
    addCounters(1, 300);
    add(u"2.mp3"_qs, noise(30'000));
    add(u"3.mid"_qs, noise(3000));
    addCounters(1, 300);
    engine.PlayIt();
    ASSERT_TRUE(goesOnUntil([&] { return engine.halted(); }, 2000));
    EXPECT_TRUE(isWhole(tape.runs(1), 300));
    expectHalt(2);
    EXPECT_TRUE(reported().startsWith(u"MCI Device: ActiveMovie\r\r"_qs)) << reported().toStdString();
    EXPECT_TRUE(reported().endsWith(
        u"\r\rUnknown file format, corrupt file, or un-supported variation of known format."_qs));
    engine.NextTrack();
    EXPECT_EQ(face.errors.size(), 2);
    expectHalt(3);
    engine.NextTrack();
    ASSERT_TRUE(stops(2000));
    EXPECT_TRUE(isWhole(tape.runs(4), 300));
    EXPECT_EQ(face.errors.size(), 2);
}

TEST_F(FailuresTest, mediaThatAreDamagedInTheMiddleHoldUpNothing)
{
    const std::pair<const char*, const char*> kinds[] = {
        {"1.mp3", "lamemp3enc"}, {"2.ogg", "vorbisenc ! oggmux"}, {"3.flac", "flacenc"}};
    for (const auto& [name, encoder] : kinds) {
        encodeSound(pathOf(name), noiseFrames(1000), encoder);
        QByteArray content = world.directory.read(QByteArray("disk/") + name);
        const qsizetype part = content.size() / 4;
        content.replace(2 * part, part, noise(static_cast<int>(part)));
        add(QString::fromLatin1(name), content);
    }
    addCounters(1, 300);
    engine.PlayIt();
    for (int entry = 1; entry <= 3; ++entry) {
        const double took = timeOf([&] { goesOnUntil([&] { return list.CurTrack() > entry; }, 4000); });
        EXPECT_GE(took, 300) << entry << " is heard up to the damage"; // which is a whole page
        EXPECT_LE(took, 1000 + kLatest + kOpening) << entry;
    }
    ASSERT_TRUE(stops(2000)) << reported().toStdString();
    EXPECT_EQ(list.CurTrack(), 1);
    const std::vector<Stretch> all = tape.runs(4); // noise may look like it
    EXPECT_TRUE(
        std::any_of(all.begin(), all.end(), [](const Stretch& run) { return bool(isWhole({run}, 300)); }));
}

TEST_F(FailuresTest, haltsOnWhatIsNotPlayed)
{
    addCounters(1, 300);
    add(u"2.txt"_qs, "Words.");
    addCounters(1, 300);
    engine.PlayIt();
    ASSERT_TRUE(goesOnUntil([&] { return engine.halted(); }, 2000));
    expectHalt(2);
    EXPECT_TRUE(face.errors.isEmpty());
    EXPECT_EQ(list.entries()[1].name, u"2.txt"_qs);
    engine.NextTrack();
    EXPECT_TRUE(hears(3));
}

TEST_F(FailuresTest, aModuleIsHandedOverSoon)
{
    add(u"1.mod"_qs, modFile());
    EXPECT_LT(timeOf([&] { engine.PlayIt(); }), kHandOver);
    EXPECT_EQ(face.handedOver, 1);
    EXPECT_TRUE(face.errors.isEmpty()) << reported().toStdString();
    EXPECT_NEAR(engine.TrackLength(), kModuleLength, 50);
    EXPECT_TRUE(comesTo(300, 1000));
}

// The sound's way out takes one buffer and then sleeps.
TEST_F(FailuresTest, aDeviceThatNeverAnswersIsReported)
{
    addCounters(2, 300);
    const QByteArray sink = qgetenv("SONGBIN_AUDIO_SINK");
    qputenv("SONGBIN_AUDIO_SINK", "identity sleep-time=15000000 ! fakesink sync=true");
    const double took = timeOf([&] { engine.PlayIt(); });
    qputenv("SONGBIN_AUDIO_SINK", sink);
    EXPECT_LT(took, kOpenLimit);
    EXPECT_EQ(
        reported(),
        u"MCI Device: ActiveMovie\r\r1.wav: The device does not answer.\r\rUnhandled Tonedeck error"_qs);
    EXPECT_FALSE(engine.IsPlaying());
    EXPECT_FALSE(face.timer);
    EXPECT_LT(timeOf([&] { engine.NextTrack(); }), kCommandLimit);
    ASSERT_TRUE(stops(2000));
    EXPECT_TRUE(isWhole(tape.runs(2), 300));
}

TEST_F(FailuresTest, withoutASoundServerTheListGoesOnAtItsPace)
{
    addCounters(2, 700);
    const QByteArray sink = qgetenv("SONGBIN_AUDIO_SINK");
    qunsetenv("SONGBIN_AUDIO_SINK");
    qputenv("PULSE_SERVER", "unix:/nonexistent/socket");
    const double took = timeOf([&] {
        engine.PlayIt();
        EXPECT_TRUE(stops(4000));
    });
    qputenv("SONGBIN_AUDIO_SINK", sink);
    qunsetenv("PULSE_SERVER");
    EXPECT_GE(took, 1400);
    EXPECT_LE(took, 1400 + 2 * (kLatest + kOpening));
    EXPECT_TRUE(face.errors.isEmpty());
}
