// Listens to a pipeline in whatever thread it speaks, and only takes notes.
#pragma once

#include "platform/gstpointer.h"
#include "platform/mediaerror.h"

#include <atomic>
#include <mutex>

class MediaBus {
public:
    // Listens as long as it lives; the pipeline has to be in state NULL before that ends.
    explicit MediaBus(GstElement* pipeline);
    ~MediaBus();
    MediaBus(const MediaBus&) = delete;
    MediaBus& operator=(const MediaBus&) = delete;

    bool ended() const { return m_ended; } // the last sample was heard
    void forgetEnd() { m_ended = false; }
    bool failed() const { return m_failed; }
    MediaError error() const; // the first one

private:
    static GstBusSyncReply listen(GstBus* bus, GstMessage* message, gpointer self);
    void note(GstMessage* message);
    void noteError(GstMessage* message);

    GstPointer<GstBus> m_bus;
    std::atomic<bool> m_ended = false;
    std::atomic<bool> m_failed = false;
    std::atomic<bool> m_pluginMissing = false;
    mutable std::mutex m_mutex;
    MediaError m_error;
};
