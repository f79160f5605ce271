#include "platform/mediapipeline.h"

#include "platform/medialength.h"
#include "platform/mediasinks.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <chrono>
#include <thread>

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto kStep = 5ms;
constexpr auto kLongest = 10s;
constexpr auto kErrorComesLate = 500ms;
constexpr qint64 kBeyondTheEnd = 1000;                    // milliseconds
constexpr int kVideoAudioDeinterlace = 0x1 | 0x2 | 0x200; // GstPlayFlags

GstElement* add(GstElement* pipeline, const char* factory)
{
    GstElement* element = gst_element_factory_make(factory, nullptr);
    if (element)
        gst_bin_add(GST_BIN(pipeline), element);
    return element;
}

GstPointer<GstElement> filePlayer(const QByteArray& path, GstElement* sound)
{
    GstElement* player = gst_element_factory_make("playbin", nullptr);
    if (!player)
        return {};
    const GlibPointer<char> uri(gst_filename_to_uri(path.constData(), nullptr));
    const GstPointer<GstElement> pictures = makeVideoSink();
    g_object_set(player, "uri", uri.get(), "audio-sink", sound, "video-sink", pictures.get(), "flags",
                 kVideoAudioDeinterlace, nullptr);
    return GstPointer<GstElement>(GST_ELEMENT(gst_object_ref_sink(player)));
}

// A chain of elements whose last one is the sound's output.
GstPointer<GstElement> chain(std::initializer_list<const char*> factories, GstElement* sound)
{
    GstPointer<GstElement> pipeline(GST_ELEMENT(gst_object_ref_sink(gst_pipeline_new(nullptr))));
    GstElement* last = nullptr;
    for (const char* factory : factories) {
        GstElement* element = add(pipeline.get(), factory);
        if (!element || (last && !gst_element_link(last, element)))
            return {};
        last = element;
    }
    gst_bin_add(GST_BIN(pipeline.get()), sound);
    return gst_element_link(last, sound) ? std::move(pipeline) : GstPointer<GstElement>();
}

GstPointer<GstElement> sourceOf(GstElement* pipeline)
{
    GstIterator* sources = gst_bin_iterate_sources(GST_BIN(pipeline));
    GValue found = G_VALUE_INIT;
    GstPointer<GstElement> source;
    if (gst_iterator_next(sources, &found) == GST_ITERATOR_OK) {
        source.reset(GST_ELEMENT(g_value_dup_object(&found)));
        g_value_unset(&found);
    }
    gst_iterator_free(sources);
    return source;
}

GstPointer<GstElement> chainedPlayer(const QByteArray& path, const char* reader, GstElement* sound)
{
    auto pipeline = chain({"filesrc", reader, "audioconvert", "audioresample"}, sound);
    if (pipeline)
        g_object_set(sourceOf(pipeline.get()).get(), "location", path.constData(), nullptr);
    return pipeline;
}

bool isAiff(const QByteArray& path)
{
    QFile file(QFile::decodeName(path));
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray begin = file.read(12);
    return begin.startsWith("FORM") && (begin.endsWith("AIFF") || begin.endsWith("AIFC"));
}

GstPointer<GstElement> discPlayer(const QByteArray& device, int track, GstElement* sound)
{
    auto pipeline = chain({"cdiocddasrc", "audioconvert", "audioresample"}, sound);
    if (pipeline)
        g_object_set(sourceOf(pipeline.get()).get(), "device", device.constData(), "track",
                     static_cast<guint>(track), nullptr);
    return pipeline;
}

GstPointer<GstElement> playerOf(const MediaSource& source, GstElement* sound)
{
    switch (source.kind) {
    case MediaSource::Kind::Disc:
        return discPlayer(source.path, source.track, sound);
    case MediaSource::Kind::Module:
        // Short modules that the search for the type does not know.
        return chainedPlayer(source.path, "openmptdec", sound);
    case MediaSource::Kind::File:
        break;
    }
    // The reader of AIFF files begins to send as soon as playbin starts it, which is now and then before
    // playbin has connected it: then nothing ever comes. Here it is connected first.
    return isAiff(source.path) ? chainedPlayer(source.path, "aiffparse", sound)
                               : filePlayer(source.path, sound);
}

qint64 rounded(gint64 nanoseconds)
{
    return (nanoseconds + GST_MSECOND / 2) / GST_MSECOND;
}

std::optional<gint64> queriedLength(GstElement* pipeline)
{
    gint64 length = 0;
    const bool known = gst_element_query_duration(pipeline, GST_FORMAT_TIME, &length) && length >= 0;
    return known ? std::optional(length) : std::nullopt;
}

} // namespace

std::unique_ptr<MediaPipeline> MediaPipeline::open(const MediaSource& source, MediaError* error)
{
    QString reason;
    GstPointer<GstElement> sound = makeAudioSink(&reason);
    if (!sound) {
        *error = {MediaError::kOther, reason};
        return {};
    }
    GstPointer<GstElement> player = playerOf(source, sound.get());
    if (!player) {
        gst_element_set_state(sound.get(), GST_STATE_NULL);
        *error = {MediaError::kNoDriver, QStringLiteral("A plug-in for this type is missing.")};
        return {};
    }
    std::unique_ptr<MediaPipeline> pipeline(new MediaPipeline(std::move(player)));
    const bool begun = pipeline->begin(source, error);
    if (!begun)
        gst_element_set_state(sound.get(), GST_STATE_NULL); // one that the player never came to use
    return begun ? std::move(pipeline) : nullptr;
}

MediaPipeline::MediaPipeline(GstPointer<GstElement> pipeline)
    : m_pipeline(std::move(pipeline)), m_bus(m_pipeline.get())
{
}

MediaPipeline::~MediaPipeline()
{
    gst_element_set_state(m_pipeline.get(), GST_STATE_NULL);
}

bool MediaPipeline::begin(const MediaSource& source, MediaError* error)
{
    if (!reach(GST_STATE_PAUSED)) {
        *error = failed() ? m_bus.error()
                          : MediaError{MediaError::kOther, QStringLiteral("The device does not answer.")};
        return false;
    }
    gint64 first = 0;
    if (gst_element_query_position(m_pipeline.get(), GST_FORMAT_TIME, &first))
        m_offset = first;
    std::optional<gint64> length = queriedLength(m_pipeline.get());
    if (!length && source.kind == MediaSource::Kind::File)
        length = scannedLength(source.path);
    m_length = rounded(length.value_or(0));
    // The reader of AU files takes a seek without an end for one to the end, and any place for one that is
    // earlier by the size of its header.
    m_needsEnd = source.path.toLower().endsWith(".au") || source.path.toLower().endsWith(".snd");
    return true;
}

// The error comes later than the failure that it explains.
bool MediaPipeline::reach(GstState state)
{
    const auto longest = Clock::now() + kLongest;
    GstStateChangeReturn result = gst_element_set_state(m_pipeline.get(), state);
    while (result == GST_STATE_CHANGE_ASYNC && !failed() && Clock::now() < longest)
        result = gst_element_get_state(m_pipeline.get(), nullptr, nullptr,
                                       std::chrono::nanoseconds(kStep).count());
    const auto latest = Clock::now() + kErrorComesLate;
    while (result == GST_STATE_CHANGE_FAILURE && !failed() && Clock::now() < latest)
        std::this_thread::sleep_for(kStep);
    return !failed() && (result == GST_STATE_CHANGE_SUCCESS || result == GST_STATE_CHANGE_NO_PREROLL);
}

bool MediaPipeline::pause()
{
    return reach(GST_STATE_PAUSED);
}

bool MediaPipeline::play()
{
    return reach(GST_STATE_PLAYING);
}

gint64 MediaPipeline::placeOf(qint64 milliseconds) const
{
    return static_cast<gint64>(milliseconds) * GST_MSECOND + m_offset;
}

bool MediaPipeline::seek(qint64 from, qint64 to)
{
    if (to < 0 && m_needsEnd)
        to = m_length + kBeyondTheEnd;
    const auto flags = static_cast<GstSeekFlags>(GST_SEEK_FLAG_FLUSH | GST_SEEK_FLAG_ACCURATE);
    const bool sought = gst_element_seek(m_pipeline.get(), 1.0, GST_FORMAT_TIME, flags, GST_SEEK_TYPE_SET,
                                         placeOf(from), GST_SEEK_TYPE_SET, to < 0 ? -1 : placeOf(to));
    if (!sought && from == 0)
        return rewind();
    const bool reached = reach(GST_STATE_PAUSED);
    if (sought)
        m_bus.forgetEnd();
    return sought && reached;
}

// For media that cannot be sought in, but begun again.
bool MediaPipeline::rewind()
{
    const bool rewound = reach(GST_STATE_READY) && reach(GST_STATE_PAUSED);
    m_bus.forgetEnd();
    return rewound;
}

std::optional<qint64> MediaPipeline::position() const
{
    gint64 position = 0;
    if (!gst_element_query_position(m_pipeline.get(), GST_FORMAT_TIME, &position))
        return {};
    return std::max<gint64>(position - m_offset, 0) / GST_MSECOND;
}
