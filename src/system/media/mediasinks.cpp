#include "system/media/mediasinks.h"

#include "system/media/boundedworker.h"

#include <atomic>
#include <chrono>
#include <mutex>
#include <string>
#include <utility>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kServerPatience(300);
constexpr std::chrono::seconds kServerPause(5);

GstPointer<GstElement> owned(GstElement* element)
{
    return GstPointer<GstElement>(element ? GST_ELEMENT(gst_object_ref_sink(element)) : nullptr);
}

GstPointer<GstElement> made(const char* factory)
{
    return owned(gst_element_factory_make(factory, nullptr));
}

bool connects(GstElement* sink)
{
    if (gst_element_set_state(sink, GST_STATE_READY) != GST_STATE_CHANGE_FAILURE)
        return true;
    gst_element_set_state(sink, GST_STATE_NULL);
    return false;
}

// Tells when the server that did not answer may be asked again; another one may be at any time.
struct Silence {
    std::mutex mutex;
    Clock::time_point end = Clock::time_point::min();
    std::string server;
};
Silence g_silence;

std::string server()
{
    const char* address = g_getenv("PULSE_SERVER");
    return address ? address : "";
}

bool isSilent()
{
    const std::lock_guard lock(g_silence.mutex);
    return Clock::now() < g_silence.end && server() == g_silence.server;
}

void noteSilence()
{
    const std::lock_guard lock(g_silence.mutex);
    g_silence.end = Clock::now() + kServerPause;
    g_silence.server = server();
}

// Connecting to a frozen server hangs, so that is tried where nobody has to wait for its end.
class Attempt {
public:
    explicit Attempt(GstPointer<GstElement> sink) : m_sink(std::move(sink)) {}

    void run()
    {
        const bool connected = connects(m_sink.get());
        if (connected)
            ask();
        Outcome running = Outcome::Running;
        if (!m_outcome.compare_exchange_strong(running, connected ? Outcome::Connected : Outcome::Refused))
            gst_element_set_state(m_sink.get(), GST_STATE_NULL);
    }
    // Is false when it ended in the meantime.
    bool abandon()
    {
        Outcome running = Outcome::Running;
        return m_outcome.compare_exchange_strong(running, Outcome::Abandoned);
    }
    GstPointer<GstElement> connectedSink()
    {
        const bool connected = m_outcome == Outcome::Connected;
        return connected ? GstPointer<GstElement>(GST_ELEMENT(gst_object_ref(m_sink.get())))
                         : GstPointer<GstElement>();
    }

private:
    // Connections are shared in a process, so only a question shows that the server still answers.
    void ask()
    {
        const GstPointer<GstPad> entry(gst_element_get_static_pad(m_sink.get(), "sink"));
        gst_caps_unref(gst_pad_query_caps(entry.get(), nullptr));
    }

    enum class Outcome { Running, Connected, Refused, Abandoned };

    GstPointer<GstElement> m_sink;
    std::atomic<Outcome> m_outcome = Outcome::Running;
};

GstPointer<GstElement> connectedSink(const char* factory)
{
    GstPointer<GstElement> sink = made(factory);
    if (!sink || isSilent())
        return {};
    const auto attempt = std::make_shared<Attempt>(std::move(sink));
    BoundedWorker worker;
    if (!worker.run([attempt] { attempt->run(); }, kServerPatience) && attempt->abandon())
        noteSilence();
    return attempt->connectedSink();
}

GstPointer<GstElement> silentSink()
{
    GstPointer<GstElement> sink = made("fakesink");
    g_object_set(sink.get(), "sync", TRUE, nullptr);
    connects(sink.get());
    return sink;
}

GstPointer<GstElement> describedSink(const char* description, QString* reason)
{
    GError* raw = nullptr;
    GstPointer<GstElement> sink = owned(gst_parse_bin_from_description(description, TRUE, &raw));
    const GlibError error(raw);
    if (error || !sink || !connects(sink.get())) {
        *reason =
            error ? QString::fromUtf8(error->message) : QStringLiteral("The audio sink cannot be opened.");
        return {};
    }
    return sink;
}

} // namespace

namespace {

GstPointer<GstElement> heardSink()
{
    GstPointer<GstElement> sink = connectedSink("pulsesink");
    return sink ? std::move(sink) : connectedSink("alsasink"); // which often leads to the same server
}

} // namespace

AudioSink makeAudioSink(QString* reason)
{
    const char* description = g_getenv("SONGBIN_AUDIO_SINK");
    if (description && *description != '\0')
        return {describedSink(description, reason), AudioSink::Kind::Described};
    if (GstPointer<GstElement> sink = heardSink())
        return {std::move(sink), AudioSink::Kind::Device};
    return {silentSink(), AudioSink::Kind::Nowhere};
}

bool isSoundThere()
{
    const GstPointer<GstElement> sink = heardSink();
    if (sink)
        gst_element_set_state(sink.get(), GST_STATE_NULL);
    return sink != nullptr;
}

GstPointer<GstElement> makeVideoSink()
{
    const char* display = g_getenv("DISPLAY");
    GstPointer<GstElement> sink = display && *display != '\0' ? made("ximagesink") : GstPointer<GstElement>();
    return sink ? std::move(sink) : silentSink();
}
