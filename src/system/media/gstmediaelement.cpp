#include "system/media/gstmediaelement.h"

#include "platform/drives.h"
#include "posix/descriptor.h"
#include "system/media/plugincache.h"

#include <QStringList>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace {

using namespace std::chrono_literals;

constexpr auto kLibraryPatience = 60s; // it may have to look at all its plug-ins first
constexpr auto kTurnPatience = 5s;
constexpr auto kDiskPatience = 11000ms; // one that has to start turning takes its time
constexpr auto kFilePatience = 2300ms;
constexpr auto kPatience = 900ms;
constexpr auto kClosePatience = 100ms;

// The process that looks at the plug-ins in the background is waited for: twice takes longer than once.
void startGStreamer()
{
    static const bool started = [] {
        const Descriptor turn = plugincache::turn(kTurnPatience);
        return gst_init_check(nullptr, nullptr, nullptr) != FALSE;
    }();
    Q_UNUSED(started);
}

qint32 fitting(qint64 milliseconds)
{
    return static_cast<qint32>(std::clamp<qint64>(milliseconds, 0, std::numeric_limits<qint32>::max()));
}

// Pipes would be waited for without end.
MediaError fileError(const QByteArray& path)
{
    struct stat status {};
    if (stat(path.constData(), &status) != 0)
        return {MediaError::kNoFile, QStringLiteral("The file is not there.")};
    return S_ISREG(status.st_mode) ? MediaError()
                                   : MediaError{MediaError::kOther, QStringLiteral("This is no file.")};
}

// Waits for the disk that a file lies on, not for what it holds.
void touch(const QByteArray& path)
{
    const Descriptor file(path.isEmpty() ? -1 : ::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    char first = 0;
    if (file && pread(file.get(), &first, 1, 0) < 0)
        return; // which the media library will tell
}

} // namespace

GstMediaElement::GstMediaElement(Drives& drives) : m_drives(drives) {}

GstMediaElement::~GstMediaElement()
{
    close();
}

void GstMediaElement::send(const QString& command)
{
    m_error = {};
    const QString name = command.toLower();
    if (m_deviceType == u"Delay" && name != u"close")
        return;
    // Errors are asked for after commands, not after the choice of a track.
    const MediaError trackError = std::exchange(m_trackError, {});
    if (name == u"open")
        open();
    else if (!m_medium)
        m_error = name == u"play" ? trackError : MediaError{};
    else if (name == u"play")
        play();
    else if (name == u"stop")
        stop();
    else if (name == u"seek")
        seek();
    else if (name == u"close")
        close();
    else
        m_error = {MediaError::kOther, QStringLiteral("The device does not know this command.")};
}

std::optional<MediaSource> GstMediaElement::source()
{
    if (m_deviceType == u"cdaudio") {
        const std::vector<QByteArray> discs = m_drives.audioDiscs();
        if (discs.empty())
            m_error = {MediaError::kOther, QStringLiteral("There is no audio disc in the drive.")};
        return discs.empty() ? std::nullopt
                             : std::optional(MediaSource{MediaSource::Kind::Disc, discs.front()});
    }
    static const QStringList known{QStringLiteral("ActiveMovie"), QStringLiteral("M4W_MCI"),
                                   QStringLiteral("Animation"), QStringLiteral("Animation1"),
                                   QStringLiteral("MMMovie")};
    if (!known.contains(m_deviceType)) {
        m_error = {MediaError::kNoDriver, QStringLiteral("There is no device of this type.")};
        return {};
    }
    const std::optional<QByteArray> path = m_drives.machinePath(m_fileName);
    m_error =
        path ? fileError(*path) : MediaError{MediaError::kNoFile, QStringLiteral("The drive is not ready.")};
    return m_error.number == MediaError::kNone ? std::optional(MediaSource{MediaSource::Kind::File, *path})
                                               : std::nullopt;
}

void GstMediaElement::open()
{
    close();
    m_from.reset();
    m_to.reset();
    const std::optional<MediaSource> wanted = source();
    if (!wanted || !isReachable(*wanted))
        return;
    openMedium(*wanted);
    if (m_error.number == MediaError::kDamaged && m_deviceType == u"M4W_MCI")
        openMedium({MediaSource::Kind::Module, wanted->path});
    // Nothing here plays them, and then every file of theirs looks damaged.
    if (m_error.number == MediaError::kDamaged &&
        (m_deviceType == u"Animation1" || m_deviceType == u"MMMovie"))
        m_error.number = MediaError::kNoDriver;
}

BoundedWorker& GstMediaElement::worker()
{
    if (!m_worker || m_worker->isStuck())
        m_worker = std::make_unique<BoundedWorker>();
    return *m_worker;
}

// The media library starts here too.
bool GstMediaElement::isReachable(const MediaSource& wanted)
{
    const auto reach = [path = wanted.kind == MediaSource::Kind::Disc ? QByteArray() : wanted.path] {
        touch(path);
    };
    if (!worker().run(startGStreamer, kLibraryPatience, m_meanwhile) ||
        !worker().run(reach, kDiskPatience, m_meanwhile))
        m_error = {MediaError::kOther, QStringLiteral("The device does not answer.")};
    return m_error.number == MediaError::kNone;
}

void GstMediaElement::openMedium(const MediaSource& wanted)
{
    m_error = {};
    m_medium = std::make_shared<Medium>();
    m_medium->source = wanted;
    const auto open = [medium = m_medium] {
        medium->pipeline = MediaPipeline::open(medium->source, &medium->error);
    };
    const bool isDisc = wanted.kind == MediaSource::Kind::Disc;
    const auto measure = [medium = m_medium] {
        if (medium->pipeline)
            medium->pipeline->measure(medium->source);
    };
    if (!worker().run(open, isDisc ? kDiskPatience : kFilePatience, m_meanwhile) ||
        !worker().run(measure, kDiskPatience, m_meanwhile))
        m_error = {MediaError::kOther, QStringLiteral("The device does not answer.")};
    else if (!m_medium->pipeline)
        m_error = m_medium->error;
    if (m_error.number == MediaError::kNone)
        m_medium->end = m_medium->pipeline->length();
    else
        drop();
}

// Says which file it is about, because whoever reads it may have a list of thousands.
QString GstMediaElement::errorMessage() const
{
    const QString name = m_fileName.mid(m_fileName.lastIndexOf(u'\\') + 1);
    return m_error.number == MediaError::kNone || name.isEmpty()
               ? m_error.message
               : name + QStringLiteral(": ") + m_error.message;
}

void GstMediaElement::setTrack(int track)
{
    if (!m_medium || m_medium->source.kind != MediaSource::Kind::Disc || m_medium->source.track == track)
        return;
    MediaSource wanted = m_medium->source;
    wanted.track = track;
    close();
    openMedium(wanted);
    m_trackError = m_error;
}

void GstMediaElement::play()
{
    std::optional<qint32> from = std::exchange(m_from, std::nullopt);
    std::optional<qint32> to = std::exchange(m_to, std::nullopt);
    if (from)
        from = std::max(*from, 0);
    if (to && *to <= from.value_or(0))
        to.reset();
    // The last millisecond counts as the end, so that the position becomes the length.
    const bool toEnd = !to || *to >= length() - 1;
    Medium& medium = *m_medium;
    const bool seeks = (from || to) && !(medium.fresh && from.value_or(0) == 0 && toEnd);
    if (isLost() || (medium.pipeline->ended() && !seeks))
        return;
    const qint64 start = from.value_or(position());
    if (seeks) {
        medium.end = toEnd ? length() : *to;
        medium.until = toEnd ? -1 : *to;
        medium.lastPosition = start;
    }
    medium.fresh = false;
    medium.isPlaying = true;
    noteCommand();
    drive([seeks, start, end = toEnd ? qint64{-1} : *to](MediaPipeline& pipeline) {
        if (seeks) {
            pipeline.pause();
            pipeline.seek(start, end); // what cannot be sought in goes on where it is
        }
        pipeline.play();
    });
}

void GstMediaElement::stop()
{
    if (isLost())
        return;
    m_medium->isPlaying = false;
    noteCommand();
    drive([](MediaPipeline& pipeline) { pipeline.pause(); });
    position();
}

void GstMediaElement::seek()
{
    const qint64 start = std::max(std::exchange(m_from, std::nullopt).value_or(0), 0);
    m_to.reset();
    if (isLost())
        return;
    m_medium->fresh = false;
    m_medium->isPlaying = false;
    noteCommand();
    m_medium->lastPosition = start;
    m_medium->end = length();
    m_medium->until = -1;
    drive([start](MediaPipeline& pipeline) {
        pipeline.pause();
        pipeline.seek(start, -1);
    });
}

void GstMediaElement::close()
{
    if (!m_medium)
        return;
    noteCommand();
    // A pipeline ends with its last owner: in the driving thread, or in one of its own when that is stuck.
    // One that does not end soon, because the sound server does not answer, is left to itself.
    auto end = [medium = std::exchange(m_medium, nullptr),
                back = std::exchange(m_return, nullptr)]() mutable {
        medium.reset();
        back.reset();
    };
    worker().run(std::move(end), kClosePatience);
}

bool GstMediaElement::isLost() const
{
    const MediaPipeline& pipeline = *m_medium->pipeline;
    return m_worker->isStuck() || m_medium->isGivenUp || (pipeline.failed() && !pipeline.soundFailed());
}

// A device that does not answer, or failed, is at its end from then on.
void GstMediaElement::drive(const std::function<void(MediaPipeline&)>& action)
{
    if (m_medium->pipeline->soundFailed())
        return; // the one that takes its place is told
    if (!m_worker->run([medium = m_medium, action] { action(*medium->pipeline); }, kPatience, m_meanwhile))
        m_error = {MediaError::kOther, QStringLiteral("The device does not answer.")};
    else if (isLost())
        m_error = m_medium->pipeline->error();
}

void GstMediaElement::drop()
{
    const MediaError error = m_error;
    close();
    m_error = error;
}

qint32 GstMediaElement::length()
{
    return m_medium ? fitting(m_medium->pipeline->length()) : 0;
}

qint32 GstMediaElement::position()
{
    if (!m_medium)
        return 0;
    followSound();
    Medium& medium = *m_medium;
    if (isLost())
        return length();
    if (medium.pipeline->ended())
        return fitting(medium.end);
    if (medium.pipeline->soundFailed())
        return fitting(medium.lastPosition);
    if (const std::optional<qint64> now = medium.pipeline->position())
        medium.lastPosition = *now;
    // Before the end it is never the whole length: what follows would cut the last sounds.
    return std::max(std::min(fitting(medium.lastPosition), length() - 1), 0);
}
