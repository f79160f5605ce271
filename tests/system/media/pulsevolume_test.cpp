#include "system/media/pulsevolume.h"
#include "tests/support/soundserver.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include <linux/sockios.h>
#include <sys/ioctl.h>

namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using Levels = std::list<int>;

// Nobody waits at all; whoever waits for a server that is stopped waits without end.
constexpr milliseconds kAtOnce{2000};

template <typename Work>
milliseconds timeOf(Work&& work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() - begin);
}

int levelOfHalf(int half)
{
    return static_cast<int>((qint64{half} * 65536 + 32767) / 65535);
}

bool becomes(PulseVolume& volume, std::uint32_t word, milliseconds atMost = seconds(10))
{
    return eventually([&] { return volume.get() == word; }, atMost);
}

bool becomes(SoundServer& server, const Levels& levels, const char* sink = "@DEFAULT_SINK@")
{
    return eventually([&] { return server.levels(sink) == levels; });
}

// What this process has sent through all its sockets and nobody has read.
int unreadBytes()
{
    int sum = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        int bytes = 0;
        if (ioctl(std::stoi(entry.path().filename()), SIOCOUTQ, &bytes) == 0)
            sum += bytes;
    }
    return sum;
}

} // namespace

TEST(WaveVolume, isFullBeforeAServerAnswers)
{
    SoundServer none(SoundServer::Begin::Stopped);
    PulseVolume volume;
    EXPECT_EQ(volume.get(), 0xFFFFFFFFU);
}

TEST(WaveVolume, readsTheSinksOwnVolumeAndLeavesIt)
{
    SoundServer server;
    server.pactl("set-sink-volume null 16384 49152");
    {
        PulseVolume volume;
        EXPECT_TRUE(becomes(volume, 0xBFFF4000)) << std::hex << volume.get();
    }
    EXPECT_EQ(server.levels(), (Levels{16384, 49152}));
}

TEST(WaveVolume, aWordThatIsSetIsReadBackAndReachesTheServer)
{
    SoundServer server;
    PulseVolume volume;
    volume.set(0x80004000);
    EXPECT_EQ(volume.get(), 0x80004000U);
    EXPECT_TRUE(becomes(server, {16384, 32769}));
    EXPECT_EQ(volume.get(), 0x80004000U);
}

TEST(WaveVolume, seesTheServersOwnChangeWithinASecond)
{
    SoundServer server;
    PulseVolume volume;
    volume.set(0x80004000);
    ASSERT_TRUE(becomes(server, {16384, 32769}));
    server.pactl("set-sink-volume null 0 65536");
    EXPECT_TRUE(becomes(volume, 0xFFFF0000, seconds(1))) << std::hex << volume.get();
}

TEST(WaveVolume, aMutedSinksVolumeIsItsVolume)
{
    SoundServer server;
    server.pactl("set-sink-volume null 16384 49152");
    server.pactl("set-sink-mute null 1");
    PulseVolume volume;
    EXPECT_TRUE(becomes(volume, 0xBFFF4000)) << std::hex << volume.get();
}

// There are two at once: what the one sets the other must read from the server.
TEST(WaveVolume, everyWordSurvivesTheServer)
{
    SoundServer server;
    PulseVolume setter;
    PulseVolume reader;
    std::mt19937 random(5);
    for (int i = 0; i < 2000; ++i) {
        const auto word = static_cast<std::uint32_t>(random());
        setter.set(word);
        ASSERT_TRUE(becomes(reader, word)) << std::hex << word << " came as " << reader.get();
        ASSERT_EQ(setter.get(), word);
    }
}

TEST(WaveVolume, ofManyQuickWordsTheLastOneStays)
{
    SoundServer server;
    PulseVolume volume;
    ASSERT_LT(timeOf([&] {
                  for (std::uint32_t i = 1; i <= 10000; ++i) {
                      volume.set(i);
                      ASSERT_EQ(volume.get(), i);
                  }
              }),
              seconds(1));
    EXPECT_TRUE(becomes(server, {10000, 0}));
    EXPECT_EQ(volume.get(), 10000U);
}

TEST(WaveVolume, whileOneWordIsUnderWayNoneIsQueued)
{
    SoundServer server;
    PulseVolume volume;
    volume.set(9);
    ASSERT_TRUE(becomes(server, {9, 0}));
    server.freeze();
    volume.set(0xFFFF);
    ASSERT_TRUE(eventually([] { return unreadBytes() > 0; }));
    const int ofOne = unreadBytes();
    for (std::uint32_t i = 1; i <= 200; ++i) {
        volume.set(i);
        std::this_thread::sleep_for(milliseconds(1));
    }
    EXPECT_LE(unreadBytes(), 2 * ofOne);
    server.thaw();
    EXPECT_TRUE(becomes(server, {200, 0}));
}

TEST(WaveVolume, aWordSetRightBeforeTheEndIsNotLost)
{
    SoundServer server;
    for (int level : {100, 200, 300}) {
        {
            PulseVolume volume;
            volume.set(0x12345678);
            ASSERT_TRUE(becomes(server, {levelOfHalf(0x5678), levelOfHalf(0x1234)}));
            volume.set(static_cast<std::uint32_t>(level));
        }
        ASSERT_EQ(server.levels(), (Levels{level, 0}));
    }
}

TEST(WaveVolume, followsTheDefaultSink)
{
    SoundServer server;
    server.pactl("load-module module-null-sink sink_name=other channels=2 norewinds=1");
    server.pactl("set-sink-volume other 0 65536");
    server.pactl("set-default-sink null");
    PulseVolume volume;
    volume.set(0x80004000);
    ASSERT_TRUE(becomes(server, {16384, 32769}, "null"));
    server.pactl("set-default-sink other");
    ASSERT_TRUE(becomes(volume, 0xFFFF0000)) << std::hex << volume.get();
    volume.set(0);
    EXPECT_TRUE(becomes(server, {0, 0}, "other"));
    EXPECT_EQ(server.levels("null"), (Levels{16384, 32769}));
}

TEST(WaveVolume, sinksOfOneAndOfSixChannelsWork)
{
    SoundServer server;
    server.pactl("load-module module-null-sink sink_name=mono channels=1 norewinds=1");
    server.pactl("load-module module-null-sink sink_name=six channels=6 norewinds=1 "
                 "channel_map=front-left,front-right,rear-left,rear-right,front-center,lfe");
    PulseVolume volume;
    server.pactl("set-default-sink mono");
    volume.set(0x40008000);
    EXPECT_TRUE(becomes(server, {32769}));
    EXPECT_TRUE(becomes(volume, 0x80008000)) << std::hex << volume.get();
    server.pactl("set-default-sink six");
    volume.set(0x40008000);
    EXPECT_TRUE(becomes(server, {32769, 16384, 32769, 16384, 32769, 32769}));
    EXPECT_EQ(volume.get(), 0x40008000U);
}

TEST(WaveVolume, withoutAServerTheLastWordStaysAndNothingWaits)
{
    SoundServer none(SoundServer::Begin::Stopped);
    EXPECT_LT(timeOf([] {
                  PulseVolume volume;
                  volume.set(0x12345678);
                  std::this_thread::sleep_for(milliseconds(100));
                  EXPECT_EQ(volume.get(), 0x12345678U);
              }),
              milliseconds(100) + kAtOnce);
}

TEST(WaveVolume, aKilledServersLastWordStaysAndTheNextServersVolumeIsTaken)
{
    SoundServer server;
    PulseVolume volume;
    volume.set(0x80004000);
    ASSERT_TRUE(becomes(server, {16384, 32769}));
    // Once the server is followed again no wish is open, which would go to the next one.
    server.pactl("set-sink-volume null 16384 49152");
    ASSERT_TRUE(becomes(volume, 0xBFFF4000));
    server.kill();
    std::this_thread::sleep_for(milliseconds(300));
    EXPECT_EQ(volume.get(), 0xBFFF4000U);
    server.start();
    server.pactl("set-sink-volume null 0 65536");
    EXPECT_TRUE(becomes(volume, 0xFFFF0000)) << std::hex << volume.get();
}

TEST(WaveVolume, aWordSetWithoutAServerGoesToTheOneThatComes)
{
    SoundServer server(SoundServer::Begin::Stopped);
    PulseVolume volume;
    volume.set(0x80004000);
    std::this_thread::sleep_for(milliseconds(100));
    server.start();
    EXPECT_TRUE(becomes(server, {16384, 32769}));
    EXPECT_EQ(volume.get(), 0x80004000U);
}

TEST(WaveVolume, aFrozenServerHoldsNobodyUp)
{
    SoundServer server;
    auto volume = std::make_unique<PulseVolume>();
    volume->set(0x80004000);
    ASSERT_TRUE(becomes(server, {16384, 32769}));
    server.freeze();
    for (std::uint32_t word = 1; word <= 1000; ++word) {
        ASSERT_LT(timeOf([&] { volume->set(word); }), kAtOnce);
        ASSERT_LT(timeOf([&] { ASSERT_EQ(volume->get(), word); }), kAtOnce);
    }
    server.thaw();
    EXPECT_TRUE(becomes(server, {1000, 0}));
    server.freeze();
    volume->set(5);
    EXPECT_LT(timeOf([&] { volume.reset(); }), kAtOnce);
    EXPECT_LT(timeOf([&] { volume = std::make_unique<PulseVolume>(); }), kAtOnce);
    volume->set(7);
    EXPECT_EQ(volume->get(), 7U);
    EXPECT_LT(timeOf([&] { volume.reset(); }), kAtOnce);
}
