#include "system/media/mediapipeline.h"

#include "system/drives/audiodisc.h"
#include "system/media/medialength.h"
#include "system/media/mediasinks.h"
#include "system/media/pipelinefactory.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto kStep = 5ms;
constexpr auto kSettles = 2000ms;
constexpr auto kErrorComesLate = 500ms;
constexpr qint64 kBeyondTheEnd = 1000; // milliseconds

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
    const bool disc = source.kind == MediaSource::Kind::Disc;
    const std::optional<pipelinefactory::DiscTrack> track =
        disc ? pipelinefactory::trackOf(source) : std::nullopt;
    if (disc && !track) {
        *error = {MediaError::kOther, QStringLiteral("There is no such audio track on the disc.")};
        return {};
    }
    QString reason;
    const AudioSink sound = makeAudioSink(&reason);
    if (!sound.element) {
        *error = {MediaError::kOther, reason};
        return {};
    }
    GstPointer<GstElement> player =
        pipelinefactory::of(source, track ? track->ordinal : 0, sound.element.get());
    if (!player) {
        gst_element_set_state(sound.element.get(), GST_STATE_NULL);
        *error = {MediaError::kNoDriver, QStringLiteral("A plug-in for this type is missing.")};
        return {};
    }
    std::unique_ptr<MediaPipeline> pipeline(new MediaPipeline(std::move(player), sound));
    const bool begun = pipeline->begin(source, error) && (!track || pipeline->endAt(track->length));
    if (!begun)
        gst_element_set_state(sound.element.get(), GST_STATE_NULL); // one that the player never came to use
    return begun ? std::move(pipeline) : nullptr;
}

// A sink that somebody has described is that one and no other, whatever becomes of it.
MediaPipeline::MediaPipeline(GstPointer<GstElement> pipeline, const AudioSink& sound)
    : m_pipeline(std::move(pipeline)),
      m_bus(m_pipeline.get(), sound.kind == AudioSink::Kind::Device ? sound.element.get() : nullptr),
      m_isSilent(sound.kind == AudioSink::Kind::Nowhere)
{
}

MediaPipeline::~MediaPipeline()
{
    gst_element_set_state(m_pipeline.get(), GST_STATE_NULL);
}

bool MediaPipeline::begin(const MediaSource& source, MediaError* error)
{
    const bool isFile = source.kind != MediaSource::Kind::Disc;
    if (!(isFile ? reach(GST_STATE_PAUSED, kSettles) : reach(GST_STATE_PAUSED))) {
        *error = failed() ? m_bus.error()
                          : MediaError{MediaError::kOther, QStringLiteral("The device does not answer.")};
        return false;
    }
    gint64 first = 0;
    if (gst_element_query_position(m_pipeline.get(), GST_FORMAT_TIME, &first))
        m_offset = first;
    m_length = rounded(queriedLength(m_pipeline.get()).value_or(0));
    return true;
}

void MediaPipeline::measure(const MediaSource& source)
{
    if (m_length == 0 && source.kind == MediaSource::Kind::File)
        m_length = rounded(scannedLength(source.path).value_or(0));
    // The reader of AU files takes a seek without an end for one to the end, and any place for one that is
    // earlier by the size of its header.
    if (source.path.toLower().endsWith(".au") || source.path.toLower().endsWith(".snd"))
        m_end = m_length + kBeyondTheEnd;
}

// The source takes what lies between two sessions for a part of the last song, and it cannot be read.
bool MediaPipeline::endAt(qint64 milliseconds)
{
    constexpr qint64 kFrame = 1000 / audiodisc::kFramesPerSecond + 1;
    if (m_length <= milliseconds + kFrame)
        return true;
    m_length = milliseconds;
    m_end = milliseconds;
    return seek(0, -1);
}

// The error comes later than the failure that it explains.
bool MediaPipeline::reach(GstState state, std::chrono::milliseconds most)
{
    const auto longest = Clock::now() + most;
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
    if (to < 0)
        to = m_end;
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

// Serves media that cannot be sought in, but begun again.
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
