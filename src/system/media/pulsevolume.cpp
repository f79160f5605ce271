#include "system/media/pulsevolume.h"

#include "system/media/defaultsink.h"

#include <pulse/thread-mainloop.h>

#include <chrono>
#include <thread>

#include <sys/eventfd.h>

namespace {

// A program that ends right after its last change gives a living server so many milliseconds; it needs about
// one.
constexpr std::chrono::milliseconds kLinger{25};

void drain(int descriptor)
{
    eventfd_t count = 0;
    static_cast<void>(eventfd_read(descriptor, &count));
}

} // namespace

// Without a thread (the machine has none left) the word is only kept.
PulseVolume::PulseVolume()
{
    m_wake.reset(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    if (m_wake)
        m_thread = pa_threaded_mainloop_new();
    if (m_thread == nullptr)
        return;
    pa_mainloop_api& loop = *pa_threaded_mainloop_get_api(m_thread);
    m_sink = std::make_unique<DefaultSink>(loop, m_word);
    m_wakeEvent = loop.io_new(
        &loop, m_wake.get(), PA_IO_EVENT_INPUT,
        [](pa_mainloop_api*, pa_io_event*, int descriptor, pa_io_event_flags_t, void* sink) {
            drain(descriptor);
            static_cast<DefaultSink*>(sink)->sendWish();
        },
        m_sink.get());
    pa_threaded_mainloop_start(m_thread);
}

// The thread never waits for the server, so that its end need not be waited for either.
PulseVolume::~PulseVolume()
{
    if (m_thread == nullptr)
        return;
    lingerForLastWish();
    pa_threaded_mainloop_stop(m_thread);
    pa_mainloop_api& loop = *pa_threaded_mainloop_get_api(m_thread);
    loop.io_free(m_wakeEvent);
    m_sink.reset();
    pa_threaded_mainloop_free(m_thread);
}

void PulseVolume::lingerForLastWish()
{
    using Clock = std::chrono::steady_clock;
    const Clock::time_point end = Clock::now() + kLinger;
    while (m_sink->tries() && m_sink->fulfilled() != m_word.load().wish && Clock::now() < end)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

std::uint32_t PulseVolume::get()
{
    return m_word.load().word;
}

void PulseVolume::set(std::uint32_t word)
{
    m_word.wish(word);
    if (m_wake)
        eventfd_write(m_wake.get(), 1);
}
