#include "system/media/defaultsink.h"
#include "tests/support/soundserver.h"

#include <gtest/gtest.h>

#include <pulse/mainloop.h>

namespace {

// A sink whose thread is the test itself, so that nothing is heard of the server until it wants to.
class SteppedSink {
public:
    ~SteppedSink()
    {
        m_sink.reset();
        pa_mainloop_free(m_loop);
    }

    void wish(std::uint32_t word)
    {
        m_word.wish(word);
        m_sink->sendWish();
    }
    template <typename Condition>
    bool runsUntil(Condition&& holds)
    {
        return eventually([&] {
            while (pa_mainloop_iterate(m_loop, 0, nullptr) > 0)
                continue;
            return holds();
        });
    }
    bool settles()
    {
        return runsUntil([&] { return m_sink->fulfilled() == m_word.load().wish; });
    }
    std::uint32_t word() const { return m_word.load().word; }

private:
    pa_mainloop* m_loop = pa_mainloop_new();
    PendingVolume m_word;
    std::unique_ptr<DefaultSink> m_sink = std::make_unique<DefaultSink>(*pa_mainloop_get_api(m_loop), m_word);
};

void expectRightAfterChange(const char* before, const char* after, const std::list<int>& levels)
{
    SoundServer server;
    server.pactl("load-module module-null-sink sink_name=mono channels=1 norewinds=1");
    server.pactl("load-module module-null-sink sink_name=six channels=6 norewinds=1 "
                 "channel_map=front-left,front-right,rear-left,rear-right,front-center,lfe");
    server.pactl((std::string("set-default-sink ") + before).c_str());
    SteppedSink sink;
    sink.wish(0x00010001);
    ASSERT_TRUE(sink.settles());
    server.pactl((std::string("set-default-sink ") + after).c_str());
    sink.wish(0x40008000);
    EXPECT_TRUE(sink.settles());
    EXPECT_EQ(server.levels(after), levels) << before << " to " << after;
    EXPECT_EQ(sink.word(), levels.size() == 1 ? 0x80008000U : 0x40008000U);
}

} // namespace

TEST(DefaultSink, aWishThatMeetsAnotherSinkThanItTookItForIsSentAgain)
{
    expectRightAfterChange("mono", "six", {32769, 16384, 32769, 16384, 32769, 32769});
    expectRightAfterChange("six", "mono", {32769});
    expectRightAfterChange("six", "null", {32769, 16384});
    expectRightAfterChange("mono", "null", {32769, 16384});
}

TEST(DefaultSink, aWishWithoutASinkGoesToTheOneThatComes)
{
    SoundServer server;
    server.pactl("unload-module module-null-sink");
    SteppedSink sink;
    sink.wish(0x40008000);
    server.pactl("load-module module-null-sink sink_name=late channels=2 norewinds=1");
    EXPECT_TRUE(sink.settles());
    EXPECT_EQ(server.levels(), (std::list<int>{32769, 16384}));
}
