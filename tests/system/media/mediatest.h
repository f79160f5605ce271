// What the tests of media devices share: sound whose every sample is known, and a recording of what is
// played.
#pragma once

#include "system/media/gstmediaelement.h"
#include "tests/support/variable.h"
#include "tests/support/world.h"

#include <QTemporaryFile>

#include <gtest/gtest.h>

#include <fcntl.h>

#include <chrono>
#include <cstring>
#include <thread>
#include <vector>

namespace mediatest {

constexpr int kRate = 44100;

template <typename Number>
QByteArray littleEndian(Number value)
{
    return QByteArray(reinterpret_cast<const char*>(&value), sizeof value);
}

// Stereo of 16 bits: the left sample is the frame's number, its low 16 bits, the right one the high bits.
inline QByteArray counterFrames(quint32 first, quint32 count)
{
    QByteArray frames;
    frames.reserve(static_cast<qsizetype>(count) * 4);
    for (quint32 frame = first; frame < first + count; ++frame)
        frames += littleEndian(frame);
    return frames;
}

inline QByteArray wav(const QByteArray& frames)
{
    const auto size = static_cast<quint32>(frames.size());
    return "RIFF" + littleEndian<quint32>(size + 36) + "WAVEfmt " + littleEndian<quint32>(16) +
           littleEndian<quint16>(1) + littleEndian<quint16>(2) + littleEndian<quint32>(kRate) +
           littleEndian<quint32>(kRate * 4) + littleEndian<quint16>(4) + littleEndian<quint16>(16) + "data" +
           littleEndian<quint32>(size) + frames;
}

// Takes down what media devices play, as long as it lives.
class Recording {
public:
    Recording() : m_opened(m_file.open()), m_variable("SONGBIN_AUDIO_SINK", sink(m_file.handle()))
    {
        // Each sink goes back to the file's beginning when it starts.
        fcntl(m_file.handle(), F_SETFL, fcntl(m_file.handle(), F_GETFL) | O_APPEND);
    }

    // Returns the frames' numbers.
    std::vector<quint32> frames()
    {
        QFile file(m_file.fileName());
        file.open(QFile::ReadOnly);
        const QByteArray bytes = file.readAll();
        std::vector<quint32> numbers(static_cast<std::size_t>(bytes.size() / 4));
        if (!numbers.empty())
            std::memcpy(numbers.data(), bytes.constData(), numbers.size() * 4);
        return numbers;
    }

private:
    static QByteArray sink(int handle)
    {
        return "audioconvert ! audioresample ! audio/x-raw,format=S16LE,rate=44100,channels=2 ! fdsink fd=" +
               QByteArray::number(handle) + " sync=true";
    }

    QTemporaryFile m_file;
    bool m_opened;
    Variable m_variable;
};

using Clock = std::chrono::steady_clock;

inline double millisecondsSince(Clock::time_point begin)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

inline void wait(int milliseconds)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

struct MediaTest : testing::Test {
    // Writes it onto drive D:.
    void write(const char* name, const QByteArray& content)
    {
        world.directory.write(QByteArray("disk/") + name, content);
    }
    void open(const QString& name, const QString& type = u"ActiveMovie"_qs)
    {
        device.setDeviceType(type);
        device.setFileName(u"D:\\"_qs + name);
        device.setTimeFormat(u"milliseconds"_qs);
        device.setWait(true);
        device.send(u"open"_qs);
    }
    void play(std::optional<int> from = {}, std::optional<int> to = {})
    {
        if (from)
            device.setFrom(*from);
        if (to)
            device.setTo(*to);
        device.send(u"play"_qs);
    }
    // Returns false when it takes longer.
    bool reaches(qint32 position, int atMost)
    {
        const auto begin = Clock::now();
        while (device.position() < position && millisecondsSince(begin) < atMost)
            wait(1);
        return device.position() >= position;
    }

    World world;
    GstMediaElement device{world.drives};
};

// Tells whether they come one after the other from first up to and without end.
inline testing::AssertionResult isRun(const std::vector<quint32>& frames, quint32 first, quint32 end)
{
    if (frames.size() != end - first)
        return testing::AssertionFailure()
               << frames.size() << " frames in place of " << end - first
               << (frames.empty() ? "" : ", the first is ") << (frames.empty() ? 0 : frames.front());
    for (quint32 i = 0; i < frames.size(); ++i)
        if (frames[i] != first + i)
            return testing::AssertionFailure()
                   << "frame " << i << " is " << frames[i] << ", not " << first + i;
    return testing::AssertionSuccess();
}

} // namespace mediatest
