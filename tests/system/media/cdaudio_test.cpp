#include "system/drives/systemdrives.h"
#include "system/media/gstmediaelement.h"
#include "tests/support/discs.h"
#include "tests/support/machine.h"
#include "tests/system/media/recording.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <thread>

namespace fs = std::filesystem;

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr int kSecond = 44100; // samples; tracks 1, 2, 3 take one, two and one

class CdAudio : public testing::Test {
protected:
    CdAudio() { m_tree.write("disc.bin", discs::image(discs::kThreeTracksFrames)); }

    static DriveSetup setup(const Machine& machine)
    {
        machine.temporary.write("disc.cue", discs::threeTracks("disc.bin"));
        DriveSetup setup = machine.setup();
        setup.declared += ";E=" + machine.temporary.at("disc.cue") + ",DISC";
        return setup;
    }
    void send(const char16_t* command) { m_device.send(QString::fromUtf16(command)); }
    // As the player does it.
    void open(int track)
    {
        m_device.setDeviceType(QStringLiteral("cdaudio"));
        m_device.setFileName({});
        send(u"open");
        m_device.setTrack(track);
    }
    void playTrack()
    {
        m_device.setFrom(m_device.trackPosition());
        m_device.setTo(m_device.trackPosition() + m_device.trackLength() - 1);
        send(u"play");
    }
    // Returns the positions until it is the length, asked every 5 ms, and none when that takes too long.
    std::vector<qint32> positionsToTheEnd()
    {
        std::vector<qint32> positions;
        for (const auto latest = Clock::now() + milliseconds(6000); Clock::now() < latest;) {
            positions.push_back(m_device.position());
            if (positions.back() >= m_device.length())
                return positions;
            std::this_thread::sleep_for(milliseconds(5));
        }
        return {};
    }
    void waitFor(qint32 position)
    {
        for (const auto latest = Clock::now() + milliseconds(6000);
             m_device.position() < position && Clock::now() < latest;)
            std::this_thread::sleep_for(milliseconds(2));
    }
    static int firstSample(const QByteArray& sound)
    {
        return sound.size() < 4
                   ? -1
                   : static_cast<int>(static_cast<uchar>(sound[0]) | static_cast<uchar>(sound[1]) << 8 |
                                      static_cast<uchar>(sound[2]) << 16);
    }
    void expectSound(int first, int count)
    {
        const QByteArray sound = m_recording.sound();
        EXPECT_EQ(firstSample(sound), first);
        EXPECT_EQ(sound.size() / 4, count);
        EXPECT_TRUE(sound == discs::samples(first, count));
    }

    Recording m_recording;
    Machine m_machine;
    Temporary& m_tree = m_machine.temporary;
    SystemDrives m_drives{setup(m_machine)};
    GstMediaElement m_device{m_drives};
};

} // namespace

TEST_F(CdAudio, eachTrackHasItsLengthAndBeginsAtZero)
{
    const qint32 lengths[] = {1000, 2000, 1000};
    for (int track = 1; track <= 3; ++track) {
        open(track);
        ASSERT_EQ(m_device.error(), 0) << m_device.errorMessage().toStdString();
        EXPECT_EQ(m_device.trackPosition(), 0);
        EXPECT_NEAR(m_device.trackLength(), lengths[track - 1], 13) << track;
        EXPECT_EQ(m_device.length(), m_device.trackLength());
        EXPECT_EQ(m_device.position(), 0);
    }
}

TEST_F(CdAudio, aTrackIsPlayedWholeAndNoOther)
{
    open(2);
    const auto begin = Clock::now();
    playTrack();
    EXPECT_EQ(m_device.error(), 0);
    const std::vector<qint32> positions = positionsToTheEnd();
    const auto time = std::chrono::duration_cast<milliseconds>(Clock::now() - begin).count();
    ASSERT_FALSE(positions.empty());
    EXPECT_LT(positions.front(), 100);
    EXPECT_TRUE(std::is_sorted(positions.begin(), positions.end()));
    EXPECT_NEAR(static_cast<double>(time), 2000, 150); // the length is not told before
    expectSound(1 * kSecond, 2 * kSecond);
}

TEST_F(CdAudio, theLastTrackIsPlayedToTheEndOfTheImage)
{
    open(3);
    playTrack();
    ASSERT_FALSE(positionsToTheEnd().empty());
    expectSound(3 * kSecond, kSecond);
}

TEST_F(CdAudio, aSeekGoesToAPlaceInTheTrackAndPlaysToItsEnd)
{
    open(2);
    playTrack();
    std::this_thread::sleep_for(milliseconds(100));
    send(u"stop");
    const qsizetype before = m_recording.sound().size();
    m_device.setFrom(1500);
    send(u"Play");
    EXPECT_NEAR(m_device.position(), 1500, 50);
    ASSERT_FALSE(positionsToTheEnd().empty());
    const QByteArray after = m_recording.sound().mid(before);
    const int first = firstSample(after);
    EXPECT_NEAR(first, kSecond + kSecond * 3 / 2, discs::kFrameSamples);
    EXPECT_TRUE(after == discs::samples(first, 3 * kSecond - first)) << first << ' ' << after.size() / 4;
}

TEST_F(CdAudio, playingUpToAPlaceEndsThereAndCanBeCarriedToTheEnd)
{
    open(1);
    m_device.setFrom(0);
    m_device.setTo(300);
    send(u"play");
    waitFor(300);
    EXPECT_EQ(m_device.position(), 300);
    EXPECT_NEAR(static_cast<double>(m_recording.sound().size()) / 4, kSecond * 0.3, discs::kFrameSamples);
    m_device.setTo(m_device.length() - 1);
    send(u"play");
    EXPECT_FALSE(positionsToTheEnd().empty());
}

TEST_F(CdAudio, theSecondHalfAloneIsPlayedWhenItWasJustOpened)
{
    open(1);
    m_device.setFrom(500);
    send(u"play");
    ASSERT_FALSE(positionsToTheEnd().empty());
    const QByteArray sound = m_recording.sound();
    EXPECT_NEAR(firstSample(sound), kSecond / 2, discs::kFrameSamples);
    EXPECT_TRUE(sound == discs::samples(firstSample(sound), kSecond - firstSample(sound)));
}

TEST_F(CdAudio, stopAndPlayGoOnWithoutLossOrRepetition)
{
    open(1);
    playTrack();
    for (const qint32 place : {200, 500, 700}) {
        waitFor(place);
        send(u"stop");
        const qint32 position = m_device.position();
        std::this_thread::sleep_for(milliseconds(60));
        EXPECT_EQ(m_device.position(), position);
        send(u"play");
    }
    ASSERT_FALSE(positionsToTheEnd().empty());
    expectSound(0, kSecond);
}

TEST_F(CdAudio, aTrackThatIsNotThereIsAnError)
{
    const auto begin = Clock::now();
    for (const int track : {4, 99, 100, 0, -1}) {
        open(track);
        EXPECT_NE(m_device.error(), 0) << track;
        EXPECT_FALSE(m_device.errorMessage().isEmpty());
        playTrack(); // where the player asks for errors next
        EXPECT_NE(m_device.error(), 0) << track;
        EXPECT_EQ(m_device.length(), 0);
    }
    EXPECT_LT(Clock::now() - begin, std::chrono::seconds(10));
    open(1);
    EXPECT_EQ(m_device.error(), 0) << m_device.errorMessage().toStdString();
    EXPECT_EQ(m_device.length(), 1000);
}

TEST_F(CdAudio, theTrackOfAnEarlierDiscDoesNotKeepTheNextFromBeingOpened)
{
    open(3);
    m_tree.write("disc.cue", "FILE disc.bin BINARY\nTRACK 1 MODE1/2352\nINDEX 01 00:00:00\n"
                             "TRACK 2 AUDIO\nINDEX 01 00:03:00\n");
    send(u"open");
    EXPECT_EQ(m_device.error(), 0) << m_device.errorMessage().toStdString();
    m_device.setTrack(2);
    EXPECT_EQ(m_device.length(), 1000);
}

TEST_F(CdAudio, withoutADiscOpenIsAnErrorWithAMessage)
{
    fs::remove(m_tree.at("disc.cue").toStdString());
    open(1);
    EXPECT_EQ(m_device.error(), MediaError::kOther);
    EXPECT_FALSE(m_device.errorMessage().isEmpty());
    fs::remove(m_tree.at("disc.bin").toStdString());
    m_tree.write("disc.cue", discs::threeTracks("disc.bin"));
    open(1);
    EXPECT_EQ(m_device.error(), MediaError::kOther);
}

TEST_F(CdAudio, aTrackOfDataIsAnErrorAndThoseAroundItPlay)
{
    m_tree.write("disc.cue", discs::threeTracks("disc.bin").replace("02 AUDIO", "02 MODE1/2352"));
    open(2);
    EXPECT_NE(m_device.error(), 0);
    open(3);
    ASSERT_EQ(m_device.error(), 0) << m_device.errorMessage().toStdString();
    playTrack();
    ASSERT_FALSE(positionsToTheEnd().empty());
    expectSound(3 * kSecond, kSecond);
}

TEST_F(CdAudio, sheetsThatOtherReadersRefuseArePlayed)
{
    fs::rename(m_tree.at("disc.bin").toStdString(), m_tree.at("it's \xF8  one.bin").toStdString());
    m_tree.write("disc.cue",
                 "\xEF\xBB\xBFgenre rock\r\nfile \"C:\\x\\it's \xF8  one.bin\" binary\r\n"
                 "track 1 mode2/2352\r\nindex 01 00:00:00\r\ntrack 2 mode2/2352\r\nindex 01 00:01:00\r\n"
                 "track 3 audio\r\nindex 01 00:02:00\r\ntrack 4 audio\r\nindex 01 00:03:00\r\n");
    open(3);
    ASSERT_EQ(m_device.error(), 0) << m_device.errorMessage().toStdString();
    playTrack();
    ASSERT_FALSE(positionsToTheEnd().empty());
    expectSound(2 * kSecond, kSecond);
}

TEST_F(CdAudio, anImageThatIsCutWhileItPlaysEndsTheTrack)
{
    open(2);
    playTrack();
    std::this_thread::sleep_for(milliseconds(100));
    fs::resize_file(m_tree.at("disc.bin").toStdString(), 0);
    const auto begin = Clock::now();
    EXPECT_FALSE(positionsToTheEnd().empty());
    EXPECT_LT(Clock::now() - begin, std::chrono::seconds(3));
    EXPECT_EQ(m_device.position(), m_device.length());
    send(u"close");
    EXPECT_EQ(m_device.length(), 0);
}

TEST_F(CdAudio, anImageThatIsTakenAwayWhileItPlaysEndsTheTrackToo)
{
    open(1);
    playTrack();
    std::this_thread::sleep_for(milliseconds(100));
    fs::remove(m_tree.at("disc.bin").toStdString());
    EXPECT_FALSE(positionsToTheEnd().empty());
    EXPECT_EQ(m_device.position(), m_device.length());
    open(1);
    EXPECT_EQ(m_device.error(), MediaError::kOther);
}
