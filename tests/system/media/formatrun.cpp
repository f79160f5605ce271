#include "tests/system/media/formatrun.h"

#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto kStep = std::chrono::milliseconds(2);
constexpr double kLook = 300;
constexpr double kLongestAfterTheEnd = 2000;

double since(Clock::time_point begin)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

class Run {
public:
    Run(World& world, const Format& format, Seen& seen) : m_element(world.drives), m_seen(seen)
    {
        openFile(m_element, format.device, format.file);
        m_recorder.restore();
        m_seen.error = m_element.error();
        m_seen.message = m_element.errorMessage();
        m_seen.length = m_element.length();
    }

    void begin(Way way)
    {
        if (way == Way::FromOneSecond) {
            m_element.setFrom(m_seen.from = 1000);
            m_element.send(QStringLiteral("seek"));
        } else {
            m_element.setFrom(m_seen.from = way == Way::Whole ? 0 : m_seen.length - 800);
        }
        m_begin = Clock::now();
        m_element.send(QStringLiteral("play"));
        m_seen.playTook = since(m_begin);
        m_limit = way == Way::FromOneSecond ? 400 : m_seen.length - m_seen.from + kLongestAfterTheEnd;
    }

    void look()
    {
        const qint32 position = m_element.position();
        const double now = since(m_begin);
        m_seen.wentBack = m_seen.wentBack || position < m_last;
        m_last = position;
        if (m_seen.lookedAfter == 0 && now - m_seen.playTook >= kLook) {
            m_seen.lookedAfter = now - m_seen.playTook;
            m_seen.positionThen = position;
        }
        if (position >= m_seen.length)
            m_seen.endAfter = now;
        m_over = m_seen.endAfter || now > m_limit;
    }
    bool over() const { return m_over; }

    void end()
    {
        m_element.send(QStringLiteral("close"));
        m_seen.recorded = m_recorder.frames();
    }

private:
    SoundRecorder m_recorder; // before the element, which opens into it
    GstMediaElement m_element;
    Seen& m_seen;
    Clock::time_point m_begin;
    double m_limit = 0;
    qint32 m_last = 0;
    bool m_over = false;
};

bool lookAtAll(const std::vector<std::unique_ptr<Run>>& runs)
{
    bool allOver = true;
    for (const auto& run : runs) {
        if (!run->over())
            run->look();
        allOver = allOver && run->over();
    }
    return allOver;
}

} // namespace

void openFile(GstMediaElement& element, const char* device, const char* file)
{
    element.setDeviceType(QString::fromUtf8(device));
    element.setFileName(QStringLiteral("D:\\") + QString::fromUtf8(file));
    element.send(QStringLiteral("open"));
}

void makeAll(World& world, std::vector<Seen>& seen)
{
    for (std::size_t index = 0; index < formats().size(); ++index) {
        const Format& format = formats()[index];
        try {
            format.make(world.directory.at(QByteArray("disk/") + format.file));
        } catch (const EncoderMissing& missing) {
            seen[index].encoderMissing = missing.what();
        } catch (const std::exception& error) {
            seen[index].failure = error.what();
        }
    }
}

std::vector<Seen> playAll(World& world, Way way)
{
    std::vector<Seen> seen(formats().size());
    makeAll(world, seen);
    std::vector<std::unique_ptr<Run>> runs;
    for (std::size_t index = 0; index < formats().size(); ++index)
        if (seen[index].encoderMissing.empty() && seen[index].failure.empty())
            runs.push_back(std::make_unique<Run>(world, formats()[index], seen[index]));
    for (const auto& run : runs)
        run->begin(way);
    while (!lookAtAll(runs))
        std::this_thread::sleep_for(kStep);
    for (const auto& run : runs)
        run->end();
    return seen;
}
