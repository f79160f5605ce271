// The player commands one media device so: properties are set, then a command is carried out, which is
// complete when send() returns. Times are milliseconds.
#pragma once

#include <QString>

#include <functional>

class MediaElement {
public:
    virtual ~MediaElement() = default;

    // Takes "ActiveMovie" (sound and film), "M4W_MCI" (music modules), "Animation", "Animation1", "MMMovie",
    // "cdaudio" (a track of an audio disc). "Delay" is no device: no command on it but "close" does anything.
    virtual void setDeviceType(const QString& type) = 0;
    virtual void setFileName(const QString& path) = 0;     // a path of the program; unused by "cdaudio"
    virtual void setTimeFormat(const QString& format) = 0; // "milliseconds", which is the only one
    virtual void setWait(bool wait) = 0;                   // commands are complete in either case
    // Counts for the next "play" or "seek" alone. A place before the beginning counts as the beginning; an
    // end that is not behind the place where it begins counts for none.
    virtual void setFrom(qint32 milliseconds) = 0;
    virtual void setTo(qint32 milliseconds) = 0;
    // Chooses a track of "cdaudio" after "open", which chooses the first, by a number as the disc has it. One
    // that cannot be played closes the device; error() tells it at once and again after the next "play".
    virtual void setTrack(int track) = 0;

    // Takes "open", "play", "stop", "seek" and "close", without regard to case. "stop" keeps the place, so
    // that "play" goes on there. None takes much more than a second when the sound server does not answer,
    // "close" and "open" less than half of one; "open" waits up to ten for a slow disk, and two for a file
    // that can be read and comes to nothing. On a closed device all but "open" do nothing.
    virtual void send(const QString& command) = 0;

    // Is called now and then, in the caller's thread, while a command is not complete yet: windows may be
    // painted then, and nothing else may happen.
    virtual void setMeanwhile(const std::function<void()>&) {}

    // Tells of the last command, in numbers of MediaError: kNone when it was carried out, kNoDriver when
    // nothing here can play the type, kDamaged when the file is damaged or of no known format, kNoFile when
    // there is no such file, kOther for anything else.
    virtual int error() const = 0;
    virtual QString errorMessage() const = 0;

    // These are those of the open medium, for "cdaudio" of the track, and 0 when none is open. The position
    // is the length when, and not before, everything was heard, and also after an error while playing.
    virtual qint32 length() = 0;
    virtual qint32 position() = 0;

    // Tells that what is open plays to nobody: there is no sound device, or it went away. The position goes
    // on all the same, and the sound comes back by itself when there is one.
    virtual bool isSilent() { return false; }

    // Tells for "cdaudio" where the track begins, on the scale of `position`, which is 0, and its length.
    virtual qint32 trackPosition() = 0;
    virtual qint32 trackLength() = 0;
};
