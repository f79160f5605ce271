#include "player/playback/playbackrules.h"

#include <algorithm>
#include <cmath>
#include <limits>

qint32 within32Bits(qint64 value)
{
    using Limits = std::numeric_limits<qint32>;
    return static_cast<qint32>(std::clamp<qint64>(value, Limits::min(), Limits::max()));
}

qint32 jumpTarget(qint32 wanted, qint32 trackLength)
{
    constexpr qint32 kBeforeTheEnd = 1000;
    if (wanted < 0)
        return 0;
    return wanted > trackLength ? trackLength - kBeforeTheEnd : wanted;
}

LoopPoints pressedAB(const LoopPoints& points, qint32 position, bool hasButtonB)
{
    if (hasButtonB || points.start <= 0)
        return {position, 0};
    if (points.end != 0)
        return {};
    return {points.start, position};
}

TickPlan planTick(const TickState& state)
{
    constexpr qint32 kIntro = 10000;
    if (state.introMode && state.position > kIntro)
        return {.over = true};
    return {.jumpsToLoopStart = state.loop.end > 0 && state.position >= state.loop.end,
            .over = qint64(state.position) >= qint64(state.trackLength) - std::max(state.overlap, 0)};
}

int entryAfter(int current, int entries, bool shuffle, double random)
{
    return shuffle ? static_cast<int>(std::nearbyint(random * entries + 1)) : current + 1;
}
