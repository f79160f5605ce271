#include "player/skin/outlinepoints.h"

#include "base/runtimeerror.h"

#include <algorithm>
#include <numeric>

namespace {

constexpr std::ptrdiff_t kFewest = 3;

} // namespace

void OutlinePoints::beginOne(int points)
{
    if (points < 0)
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    m_declared = points;
    m_several = false;
    m_points.clear();
}

void OutlinePoints::beginSeveral(int points, std::vector<int> counts)
{
    beginOne(points);
    m_several = true;
    m_counts = std::move(counts);
}

void OutlinePoints::add(QPoint point)
{
    if (read() < m_declared)
        m_points.push_back(point);
}

qint64 OutlinePoints::ofPolygons() const
{
    return m_several ? std::accumulate(m_counts.begin(), m_counts.end(), qint64(0)) : m_declared;
}

SkinOutline OutlinePoints::outline() const
{
    SkinOutline outline;
    if (m_declared == 0 || read() != m_declared)
        return outline;
    auto at = m_points.cbegin();
    for (const int count : m_several ? m_counts : std::vector<int>{m_declared}) {
        const auto end = at + std::clamp<std::ptrdiff_t>(count, 0, m_points.cend() - at);
        if (end - at >= kFewest)
            outline.emplace_back(at, end);
        at = end;
    }
    return outline;
}
