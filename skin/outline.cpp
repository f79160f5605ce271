#include "skin/outline.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace {

// A bit for each pixel: set where the parity changes from the pixel on its left.
class ParityRows {
public:
    explicit ParityRows(QSize size)
        : m_width(size.width()),
          m_bits(static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height()))
    {
    }

    void flip(int row, int column)
    {
        if (column >= m_width)
            return;
        const std::size_t at = index(row, std::max(column, 0));
        m_bits[at] = !m_bits[at];
    }

    std::vector<OutlineRun> runs(int height) const
    {
        std::vector<OutlineRun> result;
        for (int row = 0; row < height; ++row) {
            bool inside = false;
            for (int column = 0; column < m_width; ++column) {
                if (!m_bits[index(row, column)])
                    continue;
                if (inside)
                    result.back().right = column;
                else
                    result.push_back({row, column, m_width});
                inside = !inside;
            }
        }
        return result;
    }

private:
    std::size_t index(int row, int column) const
    {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(m_width) +
               static_cast<std::size_t>(column);
    }

    int m_width;
    std::vector<bool> m_bits;
};

// The first row or column whose middle is not before the coordinate.
int firstFrom(double coordinate, int most)
{
    return static_cast<int>(std::clamp(std::ceil(coordinate - 0.5), 0.0, static_cast<double>(most)));
}

void flipAlong(ParityRows& rows, QPoint from, QPoint to, QSize window)
{
    if (from.y() > to.y())
        std::swap(from, to);
    const double rise = static_cast<double>(to.y()) - from.y();
    const double run = static_cast<double>(to.x()) - from.x();
    const int end = firstFrom(to.y(), window.height());
    for (int row = firstFrom(from.y(), window.height()); row < end; ++row)
        rows.flip(row, firstFrom(from.x() + run * (row + 0.5 - from.y()) / rise, window.width()));
}

// The runs of one row, from `begin` on; gives where the next row's begin.
std::size_t endOfRow(const std::vector<OutlineRun>& runs, std::size_t begin)
{
    std::size_t end = begin;
    while (end < runs.size() && runs[end].row == runs[begin].row)
        ++end;
    return end;
}

// Do the rectangles from `first` on reach down to this row with just these runs?
bool goesOn(const std::vector<QRect>& rectangles, std::size_t first, std::span<const OutlineRun> row)
{
    return std::ranges::equal(
        std::span(rectangles).subspan(first), row, [](const QRect& r, const OutlineRun& run) {
            return r.left() == run.left && r.width() == run.right - run.left && r.y() + r.height() == run.row;
        });
}

} // namespace

std::vector<QRect> outlineRectangles(const SkinOutline& outline, QSize window)
{
    const std::vector<OutlineRun> runs = outlineRuns(outline, window);
    std::vector<QRect> rectangles;
    std::size_t above = 0; // where the row above begins
    for (std::size_t begin = 0; begin < runs.size();) {
        const std::size_t end = endOfRow(runs, begin);
        const std::span row = std::span(runs).subspan(begin, end - begin);
        begin = end;
        if (goesOn(rectangles, above, row)) {
            for (std::size_t i = above; i < rectangles.size(); ++i)
                rectangles[i].setHeight(rectangles[i].height() + 1);
            continue;
        }
        above = rectangles.size();
        for (const OutlineRun& run : row)
            rectangles.emplace_back(run.left, run.row, run.right - run.left, 1);
        if (rectangles.size() > kMostOutlineRectangles)
            return {};
    }
    return rectangles;
}

std::vector<OutlineRun> outlineRuns(const SkinOutline& outline, QSize window)
{
    if (window.isEmpty())
        return {};
    ParityRows rows(window);
    for (const std::vector<QPoint>& polygon : outline)
        for (std::size_t i = 0; i < polygon.size(); ++i)
            flipAlong(rows, polygon[i], polygon[(i + 1) % polygon.size()], window);
    return rows.runs(window.height());
}
