#include "system/media/defaultsink.h"

#include "system/media/channellevels.h"

#include <pulse/pulseaudio.h>

#include <algorithm>

namespace {

constexpr std::uint64_t kFirstPause = 100'000;
constexpr std::uint64_t kLongestPause = 5'000'000;
constexpr int kRefusals = 3;
// The server itself looks which sink that is, so that no wish goes to the one before.
constexpr const char* kDefaultSink = "@DEFAULT_SINK@";

timeval in(std::uint64_t microseconds)
{
    timeval time{};
    pa_timeval_add(pa_gettimeofday(&time), microseconds);
    return time;
}

// The answer comes to the callback all the same. It is false when the request could not be made.
bool release(pa_operation* operation)
{
    if (operation != nullptr)
        pa_operation_unref(operation);
    return operation != nullptr;
}

} // namespace

DefaultSink::DefaultSink(pa_mainloop_api& loop, PendingVolume& word)
    : m_loop(loop), m_word(word), m_pause(kFirstPause)
{
    pa_channel_map_init(&m_map);
    pa_channel_map_init(&m_sentMap);
    const timeval now = in(0);
    m_retry = m_loop.time_new(
        &m_loop, &now,
        [](pa_mainloop_api*, pa_time_event*, const timeval*, void* self) {
            static_cast<DefaultSink*>(self)->connect();
        },
        this);
}

DefaultSink::~DefaultSink()
{
    dropContext();
    m_loop.time_free(m_retry);
}

void DefaultSink::connect()
{
    dropContext();
    m_tries = true;
    m_context = pa_context_new(&m_loop, "Songbin");
    if (m_context == nullptr)
        return connectLater();
    pa_context_set_state_callback(
        m_context, [](pa_context*, void* self) { static_cast<DefaultSink*>(self)->stateChanged(); }, this);
    // A failure may be told by the state too; being told twice does no harm.
    if (pa_context_connect(m_context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0)
        connectLater();
}

void DefaultSink::connectLater()
{
    m_tries = false;
    const timeval then = in(m_pause);
    m_loop.time_restart(m_retry, &then);
    m_pause = std::min(m_pause * 2, kLongestPause);
}

// A context that has failed is not freed here, in its own callback, but before the next attempt.
void DefaultSink::stateChanged()
{
    const pa_context_state_t state = pa_context_get_state(m_context);
    if (!PA_CONTEXT_IS_GOOD(state))
        return connectLater();
    if (state != PA_CONTEXT_READY)
        return;
    m_pause = kFirstPause;
    pa_context_set_subscribe_callback(
        m_context,
        [](pa_context*, pa_subscription_event_type_t, std::uint32_t, void* self) {
            static_cast<DefaultSink*>(self)->ask();
        },
        this);
    constexpr auto kChanges =
        static_cast<pa_subscription_mask_t>(PA_SUBSCRIPTION_MASK_SINK | PA_SUBSCRIPTION_MASK_SERVER);
    release(pa_context_subscribe(m_context, kChanges, nullptr, nullptr));
    ask();
}

void DefaultSink::dropContext()
{
    m_isSending = m_isChecking = m_isAsking = m_asksAgain = m_answerIsOld = false;
    m_map.channels = 0;
    if (m_context == nullptr)
        return;
    pa_context_set_state_callback(m_context, nullptr, nullptr);
    pa_context_set_subscribe_callback(m_context, nullptr, nullptr);
    pa_context_disconnect(m_context);
    pa_context_unref(m_context);
    m_context = nullptr;
}

bool DefaultSink::isReady() const
{
    return m_context != nullptr && pa_context_get_state(m_context) == PA_CONTEXT_READY;
}

void DefaultSink::ask()
{
    if (m_isAsking) {
        m_asksAgain = true;
        return;
    }
    m_asksAgain = false;
    m_isAsking = release(pa_context_get_sink_info_by_name(
        m_context, kDefaultSink,
        [](pa_context*, const pa_sink_info* sink, int end, void* self) {
            static_cast<DefaultSink*>(self)->answered(sink, end);
        },
        this));
}

void DefaultSink::answered(const pa_sink_info* sink, int end)
{
    if (end == 0)
        return follow(*sink);
    m_isAsking = false;
    if (!m_answerIsOld)
        m_isChecking = false;
    m_answerIsOld = false;
    if (end < 0)
        m_map.channels = 0;
    if (m_asksAgain)
        ask();
    sendWish();
}

// What was asked before a wish was answered may be older than the wish.
void DefaultSink::follow(const pa_sink_info& sink)
{
    m_map = sink.channel_map;
    if (m_answerIsOld)
        return;
    if (m_isChecking)
        check();
    const PendingVolume::Seen seen = m_word.load();
    if (seen.wish == m_fulfilled)
        m_word.follow(seen, wordOfLevels(sink.volume, sink.channel_map));
}

// The default sink may have become another right before the wish, with other channels; a server that refuses
// these tells, but one channel's level it takes for all of them. Then the wish goes out again, now that the
// channels are known. A server that refuses for good has the last word.
void DefaultSink::check()
{
    const bool isMeant = m_isAccepted && pa_channel_map_equal(&m_map, &m_sentMap) == 1;
    if (!isMeant && ++m_refusals < kRefusals)
        return;
    m_refusals = 0;
    m_fulfilled = m_underWay;
}

void DefaultSink::sendWish()
{
    const PendingVolume::Seen seen = m_word.load();
    if (m_isSending || m_isChecking || m_map.channels == 0 || seen.wish == m_fulfilled || !isReady())
        return;
    m_underWay = seen.wish;
    m_sentMap = m_map;
    const pa_cvolume levels = levelsOfWord(seen.word, m_map);
    m_isSending = release(pa_context_set_sink_volume_by_name(
        m_context, kDefaultSink, &levels,
        [](pa_context*, int success, void* self) { static_cast<DefaultSink*>(self)->sent(success != 0); },
        this));
}

void DefaultSink::sent(bool accepted)
{
    m_isSending = false;
    m_isAccepted = accepted;
    m_isChecking = true;
    m_answerIsOld = m_isAsking;
    ask();
}
