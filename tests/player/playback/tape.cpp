#include "tests/player/playback/tape.h"

#include "tests/support/mediafiles.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr const char* kVariable = "SONGBIN_AUDIO_SINK";
constexpr int kNumberBits = 22;
constexpr quint32 kNumbers = 1U << kNumberBits;
constexpr std::size_t kLargestPiece = 1U << 16; // frames

int entryOf(quint32 frame)
{
    return static_cast<int>(frame >> kNumberBits);
}

} // namespace

// Two devices write at the same time; packets keep what each of them wrote together. They are short, because
// what is written counts as heard.
Tape::Tape() : m_before(qgetenv(kVariable))
{
    int ends[2] = {};
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0)
        throw std::runtime_error("no pair of sockets");
    m_out = Descriptor(ends[0]);
    m_in = Descriptor(ends[1]);
    qputenv(kVariable, "audioconvert ! audioresample ! audio/x-raw,format=S16LE,rate=44100,channels=2 ! "
                       "audiobuffersplit output-buffer-duration=5/1000 ! fdsink sync=true fd=" +
                           QByteArray::number(m_in.get()));
    m_recorder = std::thread([this] { record(); });
}

Tape::~Tape()
{
    shutdown(m_in.get(), SHUT_RDWR);
    m_recorder.join();
    m_before.isEmpty() ? qunsetenv(kVariable) : qputenv(kVariable, m_before);
}

void Tape::record()
{
    std::vector<quint32> frames(kLargestPiece);
    for (;;) {
        const ssize_t bytes = recv(m_out.get(), frames.data(), frames.size() * sizeof(quint32), 0);
        if (bytes <= 0)
            return;
        const std::span piece(frames.data(), static_cast<std::size_t>(bytes) / sizeof(quint32));
        const std::lock_guard lock(m_mutex);
        m_frames += static_cast<qint64>(piece.size());
        take(piece, now());
    }
}

void Tape::take(std::span<const quint32> piece, double at)
{
    for (const quint32 frame : piece) {
        const int entry = entryOf(frame);
        const quint32 number = frame % kNumbers;
        auto last = std::find_if(m_runs.rbegin(), m_runs.rend(),
                                 [entry](const Stretch& run) { return run.entry == entry; });
        if (last == m_runs.rend() || last->end != number) {
            m_runs.push_back({entry, number, number, at, at});
            last = m_runs.rbegin();
        }
        at += inMilliseconds(1);
        last->end = number + 1;
        last->finish = at;
    }
}

qint64 Tape::frames() const
{
    const std::lock_guard lock(m_mutex);
    return m_frames;
}

std::vector<Stretch> Tape::runs(int entry) const
{
    const std::lock_guard lock(m_mutex);
    std::vector<Stretch> runs;
    std::copy_if(m_runs.begin(), m_runs.end(), std::back_inserter(runs),
                 [entry](const Stretch& run) { return entry == 0 || run.entry == entry; });
    return runs;
}

QByteArray counter(int entry, int milliseconds)
{
    const auto begin = static_cast<quint32>(entry) << kNumberBits;
    const auto count = static_cast<quint32>(qint64{milliseconds} * kRate / 1000);
    Frames frames;
    for (quint32 frame = begin; frame < begin + count; ++frame)
        frames.push_back({static_cast<qint16>(frame & 0xffff), static_cast<qint16>(frame >> 16)});
    return waveFile(frames);
}
