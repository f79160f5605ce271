#include "system/media/gstpointer.h"
#include "tests/support/mediafiles.h"
#include "tests/support/temporary.h"

namespace {

constexpr GstClockTime kLongest = 60 * GST_SECOND;

[[noreturn]] void fail(const GError* error)
{
    const bool missing =
        error && error->domain == GST_PARSE_ERROR &&
        (error->code == GST_PARSE_ERROR_NO_SUCH_ELEMENT || error->code == GST_PARSE_ERROR_NO_SUCH_PROPERTY);
    if (missing)
        throw EncoderMissing(error->message);
    throw std::runtime_error(error ? error->message : "the encoder does not come to an end");
}

GstPointer<GstElement> parsed(const QByteArray& description)
{
    gst_init_check(nullptr, nullptr, nullptr);
    GError* raw = nullptr;
    GstElement* pipeline = gst_parse_launch(description.constData(), &raw);
    const GlibError error(raw);
    GstPointer<GstElement> owner(pipeline ? GST_ELEMENT(gst_object_ref_sink(pipeline)) : nullptr);
    if (error || !owner)
        fail(error.get());
    return owner;
}

void setLocation(GstElement* pipeline, const char* name, const QByteArray& path)
{
    const GstPointer<GstElement> element(gst_bin_get_by_name(GST_BIN(pipeline), name));
    if (element)
        g_object_set(element.get(), "location", path.constData(), nullptr);
}

void runToItsEnd(GstElement* pipeline)
{
    const GstPointer<GstBus> bus(gst_element_get_bus(pipeline));
    gst_element_set_state(pipeline, GST_STATE_PLAYING);
    GstMessage* message = gst_bus_timed_pop_filtered(
        bus.get(), kLongest, static_cast<GstMessageType>(GST_MESSAGE_EOS | GST_MESSAGE_ERROR));
    gst_element_set_state(pipeline, GST_STATE_NULL);
    GError* raw = nullptr;
    const bool ended = message && GST_MESSAGE_TYPE(message) == GST_MESSAGE_EOS;
    if (message && !ended)
        gst_message_parse_error(message, &raw, nullptr);
    if (message)
        gst_message_unref(message);
    const GlibError error(raw);
    if (!ended)
        fail(error.get());
}

void encode(const QByteArray& target, const Frames& frames, const QByteArray& description)
{
    const Temporary directory;
    directory.write("sound.wav", waveFile(frames));
    const GstPointer<GstElement> pipeline = parsed(description);
    setLocation(pipeline.get(), "from", directory.at("sound.wav"));
    setLocation(pipeline.get(), "to", target);
    runToItsEnd(pipeline.get());
}

} // namespace

void encodeSound(const QByteArray& target, const Frames& frames, const QByteArray& encoder)
{
    encode(target, frames,
           "filesrc name=from ! wavparse ! audioconvert ! audioresample ! " + encoder +
               " ! filesink name=to");
}

void encodeFilm(const QByteArray& target, const Frames& frames, const QByteArray& pictures,
                const QByteArray& sound, const QByteArray& muxer)
{
    const auto count = static_cast<int>(frames.size() * 25 / kFramesPerSecond);
    QByteArray description = muxer + " name=muxer ! filesink name=to";
    if (!pictures.isEmpty())
        description += " videotestsrc num-buffers=" + QByteArray::number(count) +
                       " ! video/x-raw,width=64,height=48,framerate=25/1 ! videoconvert ! " + pictures +
                       " ! queue ! muxer.";
    if (!sound.isEmpty())
        description +=
            " filesrc name=from ! wavparse ! audioconvert ! audioresample ! " + sound + " ! queue ! muxer.";
    encode(target, frames, description);
}
