// Links to the sound server's default sink: its volume is followed, wishes are sent to it. Everything runs on
// the thread of the main loop that it is given; only `tries` and `fulfilled` may be asked from elsewhere.
#pragma once

#include "system/media/pendingvolume.h"

#include <pulse/channelmap.h>
#include <pulse/mainloop-api.h>

#include <atomic>
#include <cstdint>

struct pa_context;
struct pa_sink_info;

class DefaultSink {
public:
    // Connects as soon as the loop runs. Both must outlive it.
    DefaultSink(pa_mainloop_api& loop, PendingVolume& word);
    ~DefaultSink(); // while the loop does not run
    DefaultSink(const DefaultSink&) = delete;
    DefaultSink& operator=(const DefaultSink&) = delete;

    // One wish is under way at a time and the newest follows it, however many there were in between. A wish
    // that finds no server or sink is kept and goes to the one that comes.
    void sendWish();

    bool tries() const { return m_tries; }                  // false between two attempts to connect
    std::uint32_t fulfilled() const { return m_fulfilled; } // the number of the last wish that was answered

private:
    void connect();
    void connectLater();
    void stateChanged();
    void ask();
    void answered(const pa_sink_info* sink, int end);
    void follow(const pa_sink_info& sink);
    void sent(bool accepted);
    void check();
    void dropContext();
    bool isReady() const;

    pa_mainloop_api& m_loop;
    PendingVolume& m_word;
    pa_time_event* m_retry = nullptr;
    pa_context* m_context = nullptr;
    std::uint64_t m_pause;    // microseconds
    pa_channel_map m_map;     // without channels: no sink is known
    pa_channel_map m_sentMap; // as the wish under way took it to be
    std::atomic<bool> m_tries{true};
    std::atomic<std::uint32_t> m_fulfilled{0};
    std::uint32_t m_underWay = 0;
    int m_refusals = 0;
    bool m_isSending = false;
    bool m_isChecking = false; // the sink is asked for what became of the wish
    bool m_isAccepted = false;
    bool m_isAsking = false;
    bool m_asksAgain = false;
    bool m_answerIsOld = false;
};
