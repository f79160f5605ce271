#include "system/mpris/mprisinterfaces.h"

#include "platform/desktopcontrols.h"
#include "system/mpris/mprisobject.h"
#include "system/mpris/mprisrequests.h"

// --- the application ------------------------------------------------------------------------------

MprisApplication::MprisApplication(MprisObject& object) : QDBusAbstractAdaptor(&object), m_object(object) {}

// The media devices play these types; playlists are not among them, because they are opened by the player's
// own commands.
QStringList MprisApplication::types() const
{
    return QStringLiteral("audio/mpeg audio/mp4 audio/aac audio/flac audio/ogg audio/x-wav audio/x-aiff "
                          "audio/basic audio/midi audio/x-mod audio/x-s3m audio/x-xm audio/x-it "
                          "audio/x-ms-wma video/mpeg video/x-msvideo video/quicktime video/x-flic")
        .split(u' ');
}

void MprisApplication::Raise()
{
    m_object.later(&ControlledPlayer::bringToFront);
}

void MprisApplication::Quit()
{
    m_object.later(&ControlledPlayer::quit);
}

// --- the player: properties -----------------------------------------------------------------------

MprisPlayer::MprisPlayer(MprisObject& object) : QDBusAbstractAdaptor(&object), m_object(object)
{
    connect(&object, &MprisObject::jumped, this, &MprisPlayer::Seeked);
}

QString MprisPlayer::playbackStatus() const
{
    return m_object.told(QStringLiteral("PlaybackStatus")).toString();
}

QString MprisPlayer::loopStatus() const
{
    return m_object.told(QStringLiteral("LoopStatus")).toString();
}

void MprisPlayer::setLoopStatus(const QString& status)
{
    m_object.laterIfAny(mpris::setLoopStatus(status));
}

void MprisPlayer::setRate(double rate)
{
    m_object.laterIfAny(mpris::setRate(rate));
}

bool MprisPlayer::shuffle() const
{
    return m_object.told(QStringLiteral("Shuffle")).toBool();
}

void MprisPlayer::setShuffle(bool on)
{
    m_object.later([on](ControlledPlayer& player) { player.setShuffle(on); });
}

QVariantMap MprisPlayer::metadata() const
{
    return m_object.told(QStringLiteral("Metadata")).toMap();
}

double MprisPlayer::volume() const
{
    return m_object.told(QStringLiteral("Volume")).toDouble();
}

void MprisPlayer::setVolume(double volume)
{
    m_object.laterIfAny(mpris::setVolume(volume));
}

qlonglong MprisPlayer::position() const
{
    return m_object.position();
}

bool MprisPlayer::canGoNext() const
{
    return m_object.told(QStringLiteral("CanGoNext")).toBool();
}

bool MprisPlayer::canGoPrevious() const
{
    return m_object.told(QStringLiteral("CanGoPrevious")).toBool();
}

bool MprisPlayer::canPlay() const
{
    return m_object.told(QStringLiteral("CanPlay")).toBool();
}

bool MprisPlayer::canPause() const
{
    return m_object.told(QStringLiteral("CanPause")).toBool();
}

bool MprisPlayer::canSeek() const
{
    return m_object.told(QStringLiteral("CanSeek")).toBool();
}

// --- the player: methods --------------------------------------------------------------------------

void MprisPlayer::Next()
{
    m_object.later(&ControlledPlayer::next);
}

void MprisPlayer::Previous()
{
    m_object.later(&ControlledPlayer::previous);
}

void MprisPlayer::Pause()
{
    m_object.later(&ControlledPlayer::pause);
}

void MprisPlayer::PlayPause()
{
    m_object.later(&ControlledPlayer::playPause);
}

void MprisPlayer::Stop()
{
    m_object.later(&ControlledPlayer::stop);
}

void MprisPlayer::Play()
{
    m_object.later(&ControlledPlayer::play);
}

void MprisPlayer::Seek(qlonglong Offset)
{
    m_object.later(mpris::seek(Offset));
}

void MprisPlayer::SetPosition(const QDBusObjectPath& TrackId, qlonglong Position)
{
    m_object.later(mpris::setPosition(TrackId, Position));
}

void MprisPlayer::OpenUri(const QString& Uri)
{
    const std::optional<mpris::Request> request = mpris::openUri(Uri);
    if (request)
        m_object.later(*request);
    else
        m_object.sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("Not a file of this machine"));
}
