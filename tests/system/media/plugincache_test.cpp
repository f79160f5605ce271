#include "system/media/plugincache.h"

#include "tests/support/messagebus.h"
#include "tests/support/temporary.h"

#include <gtest/gtest.h>

#include <ctime>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <thread>

using namespace std::chrono_literals;

namespace {

struct PluginCache : testing::Test {
    PluginCache()
    {
        place.makeDirectory("plugins");
        age("plugins", 3000);
    }
    void age(const QByteArray& name, time_t seconds)
    {
        const timespec time{.tv_sec = std::time(nullptr) - seconds, .tv_nsec = 0};
        const timespec times[]{time, time};
        ASSERT_EQ(utimensat(AT_FDCWD, place.at(name).constData(), times, 0), 0);
    }
    void written(const QByteArray& name, time_t secondsAgo)
    {
        place.write(name, "x");
        age(name, secondsAgo);
    }

    Temporary place;
    const Variable caches{"XDG_CACHE_HOME", place.path()};
    const Variable own{"XDG_DATA_HOME", place.path()};
    const Variable noFile{"GST_REGISTRY", ""};
    const Variable noNewFile{"GST_REGISTRY_1_0", ""};
    const Variable system{"GST_PLUGIN_SYSTEM_PATH_1_0", place.at("plugins")};
    const Variable more{"GST_PLUGIN_PATH_1_0", place.at("more")};
};

const QByteArray kFile = "gstreamer-1.0/registry.x86_64.bin";

} // namespace

TEST_F(PluginCache, isMissingAtFirst)
{
    EXPECT_FALSE(plugincache::isFresh());
}

TEST_F(PluginCache, isFreshUntilPluginsComeOrGo)
{
    written(kFile, 2000);
    EXPECT_TRUE(plugincache::isFresh());
    age("plugins", 1000);
    EXPECT_FALSE(plugincache::isFresh());
    plugincache::noteLook();
    EXPECT_TRUE(plugincache::isFresh());
}

TEST_F(PluginCache, knowsTheDirectoriesThatAreNamed)
{
    written(kFile, 2000);
    place.makeDirectory("more");
    EXPECT_FALSE(plugincache::isFresh());
    age("more", 2500);
    EXPECT_TRUE(plugincache::isFresh());
}

TEST_F(PluginCache, isTheFileThatIsNamed)
{
    written(kFile, 2000);
    const Variable named("GST_REGISTRY", place.at("mine.bin"));
    EXPECT_FALSE(plugincache::isFresh());
    written("mine.bin", 2000);
    EXPECT_TRUE(plugincache::isFresh());
}

TEST_F(PluginCache, losesWhatAKilledWriterLeft)
{
    written(kFile, 500);
    written(kFile + ".tmpAb12xY", 500);
    written(kFile + ".tmpWrites", 5);
    written("gstreamer-1.0/mine.tmpAb12xY", 500);
    plugincache::removeLeftovers();
    EXPECT_TRUE(place.exists(kFile));
    EXPECT_FALSE(place.exists(kFile + ".tmpAb12xY"));
    EXPECT_TRUE(place.exists(kFile + ".tmpWrites")) << "it may be at work";
    EXPECT_TRUE(place.exists("gstreamer-1.0/mine.tmpAb12xY"));
}

TEST_F(PluginCache, isLookedAtByOneAtATime)
{
    auto first = std::make_unique<Descriptor>(plugincache::turn(0ms));
    ASSERT_TRUE(*first);
    EXPECT_FALSE(plugincache::turn(0ms));
    std::thread ends([&] {
        std::this_thread::sleep_for(100ms);
        first.reset();
    });
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_TRUE(plugincache::turn(60s));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 30s) << "it waits no longer than it must";
    ends.join();
    EXPECT_FALSE(place.exists(kFile));
}
