#include "system/media/mediabus.h"

namespace {

int numberOf(const GError& error)
{
    if (error.domain == GST_CORE_ERROR && error.code == GST_CORE_ERROR_MISSING_PLUGIN)
        return MediaError::kNoDriver;
    if (error.domain == GST_STREAM_ERROR)
        return error.code == GST_STREAM_ERROR_CODEC_NOT_FOUND ? MediaError::kNoDriver : MediaError::kDamaged;
    if (error.domain == GST_RESOURCE_ERROR && error.code == GST_RESOURCE_ERROR_NOT_FOUND)
        return MediaError::kNoFile;
    return MediaError::kOther;
}

} // namespace

MediaBus::MediaBus(GstElement* pipeline, GstElement* sound)
    : m_bus(gst_element_get_bus(pipeline)), m_sound(sound ? GST_ELEMENT(gst_object_ref(sound)) : nullptr)
{
    gst_bus_set_sync_handler(m_bus.get(), listen, this, nullptr);
}

MediaBus::~MediaBus()
{
    gst_bus_set_sync_handler(m_bus.get(), nullptr, nullptr, nullptr);
}

MediaError MediaBus::error() const
{
    const std::lock_guard lock(m_mutex);
    return m_error;
}

GstBusSyncReply MediaBus::listen(GstBus*, GstMessage* message, gpointer self)
{
    static_cast<MediaBus*>(self)->note(message);
    gst_message_unref(message);
    return GST_BUS_DROP;
}

void MediaBus::note(GstMessage* message)
{
    switch (GST_MESSAGE_TYPE(message)) {
    case GST_MESSAGE_EOS:
        m_ended = true;
        break;
    case GST_MESSAGE_ERROR:
        noteError(message);
        break;
    case GST_MESSAGE_ELEMENT:
        if (gst_message_has_name(message, "missing-plugin"))
            m_pluginMissing = true;
        break;
    default:
        break;
    }
}

void MediaBus::noteError(GstMessage* message)
{
    GError* raw = nullptr;
    gst_message_parse_error(message, &raw, nullptr);
    const GlibError error(raw);
    const std::lock_guard lock(m_mutex);
    if (m_failed)
        return;
    m_error.number = numberOf(*error);
    // A missing decoder is often told as a damaged stream.
    if (m_pluginMissing && m_error.number == MediaError::kDamaged)
        m_error.number = MediaError::kNoDriver;
    m_error.message = QString::fromUtf8(error->message);
    m_soundFailed = m_sound && GST_MESSAGE_SRC(message) == GST_OBJECT(m_sound.get());
    m_failed = true;
}
