// Is one opened medium. Every function but `position`, `ended` and `failed` may hang when a disk or the sound
// server does, so they belong into a thread that nobody has to wait for (system/media/boundedworker.h).
#pragma once

#include "system/media/gstpointer.h"
#include "system/media/mediabus.h"
#include "system/media/mediasinks.h"
#include "system/media/mediasource.h"

#include <chrono>
#include <memory>
#include <optional>

class MediaPipeline {
public:
    ~MediaPipeline();

    // Opens a medium ready to play from the beginning; it gives nothing with an error. What does not settle
    // within two seconds is an error, too.
    static std::unique_ptr<MediaPipeline> open(const MediaSource& source, MediaError* error);
    // Finds the length, for which some files have to be read from end to end.
    void measure(const MediaSource& source);

    qint64 length() const { return m_length; } // milliseconds
    // Is false when that failed; then failed() is true or the device does not do it.
    bool pause();
    bool play();
    // Is called while paused. A `to` below 0 means up to the end.
    bool seek(qint64 from, qint64 to);

    std::optional<qint64> position() const; // milliseconds from the beginning
    bool ended() const { return m_bus.ended(); }
    bool failed() const { return m_bus.failed(); }
    MediaError error() const { return m_bus.error(); }
    bool soundFailed() const { return m_bus.soundFailed(); } // the device went away
    bool isSilent() const { return m_isSilent; }             // there was none when it was opened

private:
    MediaPipeline(GstPointer<GstElement> pipeline, const AudioSink& sound);

    bool reach(GstState state, std::chrono::milliseconds most = std::chrono::seconds(10));
    bool begin(const MediaSource& source, MediaError* error);
    bool endAt(qint64 milliseconds);
    bool rewind();
    gint64 placeOf(qint64 milliseconds) const;

    GstPointer<GstElement> m_pipeline;
    MediaBus m_bus;
    bool m_isSilent;
    qint64 m_length = 0;
    qint64 m_end = -1;   // where a seek without an end plays up to, in milliseconds; -1: to the very end
    qint64 m_offset = 0; // what the stream calls its beginning, in nanoseconds
};
