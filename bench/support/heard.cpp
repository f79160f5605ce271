#include "bench/support/heard.h"

#include "bench/support/measure.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <optional>

namespace {

constexpr int kMoment = 20; // milliseconds

bool waitFor(const Descriptor& file, int atMost)
{
    pollfd waiting{file.get(), POLLIN, 0};
    return poll(&waiting, 1, atMost) == 1;
}

} // namespace

Heard::Heard()
{
    int ends[2] = {};
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        endWith("there is no pipe");
    m_out = Descriptor(ends[0]);
    m_in = Descriptor(ends[1]);
}

std::string Heard::sink() const
{
    return "audioconvert ! audioresample ! audio/x-raw,format=S16LE,rate=44100,channels=2 ! fdsink fd=" +
           std::to_string(m_in.get()) + " sync=true";
}

void Heard::awaitFirst() const
{
    if (!waitFor(m_out, 10'000))
        endWith("nothing was heard");
}

long Heard::take() const
{
    std::array<char, 65536> bytes{};
    const ssize_t count = waitFor(m_out, kMoment) ? read(m_out.get(), bytes.data(), bytes.size()) : 0;
    return count > 0 ? count : 0;
}

void Heard::forget() const
{
    std::array<char, 65536> bytes{};
    while (read(m_out.get(), bytes.data(), bytes.size()) > 0)
        ;
}

BarePlayer::BarePlayer(const std::string& file, const Heard& heard)
    : m_player(GST_ELEMENT(gst_object_ref_sink(gst_element_factory_make("playbin", nullptr))))
{
    const GlibPointer<char> uri(gst_filename_to_uri(file.c_str(), nullptr));
    GstElement* sink = gst_parse_bin_from_description(heard.sink().c_str(), TRUE, nullptr);
    g_object_set(m_player.get(), "uri", uri.get(), "audio-sink", sink, nullptr);
    gst_element_set_state(m_player.get(), GST_STATE_PAUSED);
    gst_element_get_state(m_player.get(), nullptr, nullptr, GST_CLOCK_TIME_NONE);
    gst_element_set_state(m_player.get(), GST_STATE_PLAYING);
}

BarePlayer::~BarePlayer()
{
    gst_element_set_state(m_player.get(), GST_STATE_NULL);
}

void BarePlayer::awaitEnd() const
{
    const GstPointer<GstBus> bus(gst_element_get_bus(m_player.get()));
    GstMessage* last = gst_bus_timed_pop_filtered(
        bus.get(), 60 * GST_SECOND, static_cast<GstMessageType>(GST_MESSAGE_EOS | GST_MESSAGE_ERROR));
    const bool ended = last && GST_MESSAGE_TYPE(last) == GST_MESSAGE_EOS;
    if (last)
        gst_message_unref(last);
    if (!ended)
        endWith("the bare player did not come to the end");
}

QString programPath(const std::string& file)
{
    return QStringLiteral("Z:") + QString::fromStdString(file).replace(u'/', u'\\');
}

double bareFirstSound(const std::string& file, const Heard& heard)
{
    std::optional<BarePlayer> player;
    const double time = milliseconds([&] {
        player.emplace(file, heard);
        heard.awaitFirst();
    });
    player.reset();
    heard.forget();
    return time;
}
