// One media device, as the player commands it: properties are set, then a command is carried out, which is
// complete when send() returns. Times are milliseconds.
#pragma once

#include <QString>

#include <functional>

class MediaElement {
public:
    virtual ~MediaElement() = default;

    // "ActiveMovie" (sound and film), "M4W_MCI" (music modules), "Animation", "Animation1", "MMMovie",
    // "cdaudio" (a track of an audio disc). "Delay" is no device: no command on it but "close" does anything.
    virtual void setDeviceType(const QString& type) = 0;
    virtual void setFileName(const QString& path) = 0;     // a path of the program; unused by "cdaudio"
    virtual void setTimeFormat(const QString& format) = 0; // "milliseconds", which is the only one
    virtual void setWait(bool wait) = 0;                   // commands are complete in either case
    // For the next "play" or "seek" alone. Before the beginning counts as the beginning; an end that is not
    // behind the place where it begins counts for none.
    virtual void setFrom(qint32 milliseconds) = 0;
    virtual void setTo(qint32 milliseconds) = 0;
    // "cdaudio", after "open", which chooses the first: a number as the disc has it. One that cannot be
    // played closes the device; error() tells it at once and again after the next "play".
    virtual void setTrack(int track) = 0;

    // "open", "play", "stop", "seek", "close", without regard to case. "stop" keeps the place, so that "play"
    // goes on there. None takes much more than a second when the sound server does not answer, "close" and
    // "open" less than half of one; "open" waits up to ten for a slow disk, and two for a file that can be
    // read and comes to nothing. On a closed device all but "open" do nothing.
    virtual void send(const QString& command) = 0;

    // Called now and then, in the caller's thread, while a command is not complete yet: windows may be
    // painted then, and nothing else may happen.
    virtual void setMeanwhile(std::function<void()>) {}

    // Of the last command; 0 when it was carried out. 263: nothing here can play the type; 277: the file is
    // damaged or of no known format; 275: there is no such file; 256: anything else.
    virtual int error() const = 0;
    virtual QString errorMessage() const = 0;

    // Of the open medium, for "cdaudio" of the track; 0 when none is open. The position is the length when,
    // and not before, everything was heard, and also after an error while playing.
    virtual qint32 length() = 0;
    virtual qint32 position() = 0;

    // What is open plays to nobody: there is no sound device, or it went away. The position goes on all the
    // same, and the sound comes back by itself when there is one.
    virtual bool isSilent() { return false; }

    // "cdaudio": where the track begins, on the scale of `position`, which is 0; and its length.
    virtual qint32 trackPosition() = 0;
    virtual qint32 trackLength() = 0;
};
