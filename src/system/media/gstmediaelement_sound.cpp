// A medium outlives its sound device: when that goes away it is opened anew where it was, without sound, and
// once more when there is a device again. Both happen in a thread that nobody waits for.
#include "system/media/gstmediaelement.h"

#include "system/media/mediasinks.h"

#include <atomic>

using namespace std::chrono_literals;

namespace {

constexpr auto kBetweenReturns = 2s;

} // namespace

struct GstMediaElement::Return {
    std::shared_ptr<Medium> medium;     // without a pipeline: it came to nothing
    int commands = 0;                   // that the one before had been given
    bool isLost = false;                // that one plays no more
    std::atomic<bool> isCurrent = true; // nothing was told to that one since
    std::atomic<bool> done = false;
};

bool GstMediaElement::isSilent()
{
    return m_medium && (m_medium->pipeline->soundFailed() || m_medium->pipeline->isSilent());
}

void GstMediaElement::followSound()
{
    if (m_return && m_return->done)
        endReturn();
    if (m_return || m_medium->isGivenUp)
        return;
    const bool isLost = m_medium->pipeline->soundFailed();
    const bool hopes = isSilent() && m_medium->isPlaying && std::chrono::steady_clock::now() > m_nextReturn;
    if (isLost || hopes)
        beginReturn(isLost);
}

// What opens it anew begins nothing any more that it was not told.
void GstMediaElement::noteCommand()
{
    ++m_medium->commands;
    if (m_return)
        m_return->isCurrent = false;
}

void GstMediaElement::beginReturn(bool isLost)
{
    m_return = std::make_shared<Return>();
    m_return->medium = std::make_shared<Medium>();
    Medium& next = *m_return->medium;
    next.source = m_medium->source;
    next.isPlaying = m_medium->isPlaying;
    next.fresh = false;
    next.lastPosition = m_medium->lastPosition;
    next.end = m_medium->end;
    next.until = m_medium->until;
    m_return->commands = m_medium->commands;
    m_return->isLost = isLost;
    const auto open = [back = m_return, before = m_medium] {
        Medium& medium = *back->medium;
        if (back->isLost || isSoundThere())
            medium.pipeline = MediaPipeline::open(medium.source, &medium.error);
        if (medium.pipeline) {
            medium.pipeline->measure(medium.source);
            const auto now = back->isLost ? std::nullopt : before->pipeline->position();
            medium.pipeline->seek(now.value_or(medium.lastPosition), medium.until);
            if (medium.isPlaying && back->isCurrent)
                medium.pipeline->play();
        }
        back->done = true;
    };
    BoundedWorker().run(open, 0ms);
}

// What was told to the one before in the meantime is told to this one.
void GstMediaElement::endReturn()
{
    const std::shared_ptr<Return> back = std::exchange(m_return, nullptr);
    m_nextReturn = std::chrono::steady_clock::now() + kBetweenReturns;
    if (!back->medium->pipeline) {
        m_medium->isGivenUp = back->isLost;
        return;
    }
    Medium& next = *back->medium;
    const bool isLate = back->commands != m_medium->commands;
    next.lastPosition = m_medium->lastPosition;
    next.end = m_medium->end;
    next.until = m_medium->until;
    next.isPlaying = m_medium->isPlaying;
    next.commands = m_medium->commands;
    takeOver(back->medium);
    if (isLate)
        drive(
            [from = next.lastPosition, until = next.until, plays = next.isPlaying](MediaPipeline& pipeline) {
                pipeline.pause();
                pipeline.seek(from, until);
                if (plays)
                    pipeline.play();
            });
}

// The one before ends where nobody waits for it.
void GstMediaElement::takeOver(std::shared_ptr<Medium> medium)
{
    std::swap(m_medium, medium);
    BoundedWorker().run([before = std::move(medium)]() mutable { before.reset(); }, 0ms);
    worker(); // what the one before got stuck in is not this one's
}
