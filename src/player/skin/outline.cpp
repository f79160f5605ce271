#include "player/skin/outline.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <span>
#include <tuple>

namespace {

// Holds a bit for each pixel, set where the parity changes from the pixel on its left.
class ParityRows {
public:
    explicit ParityRows(QSize size)
        : m_width(size.width()), m_words((static_cast<std::size_t>(size.width()) + 63) / 64),
          m_bits(m_words * static_cast<std::size_t>(size.height()))
    {
    }

    // The column is one of the window.
    void flip(int row, int column)
    {
        const auto at = static_cast<std::size_t>(column);
        m_bits[static_cast<std::size_t>(row) * m_words + at / 64] ^= std::uint64_t(1) << (at % 64);
    }

    std::vector<OutlineRun> runs(int height) const
    {
        std::vector<OutlineRun> result;
        for (int row = 0; row < height; ++row)
            addRuns(row, result);
        return result;
    }

private:
    void addRuns(int row, std::vector<OutlineRun>& result) const
    {
        bool inside = false;
        for (std::size_t word = 0; word < m_words; ++word)
            for (std::uint64_t bits = m_bits[static_cast<std::size_t>(row) * m_words + word]; bits != 0;
                 bits &= bits - 1) {
                const int column = static_cast<int>(word * 64) + std::countr_zero(bits);
                if (inside)
                    result.back().right = column;
                else
                    result.push_back({row, column, m_width});
                inside = !inside;
            }
    }

    int m_width;
    std::size_t m_words; // of a row
    std::vector<std::uint64_t> m_bits;
};

// The edge goes from its upper end to its lower one.
struct Edge {
    QPoint from;
    QPoint to;
    bool operator==(const Edge&) const = default;
};

bool isBefore(const Edge& a, const Edge& b)
{
    const auto key = [](const Edge& e) { return std::tuple(e.from.y(), e.from.x(), e.to.y(), e.to.x()); };
    return key(a) < key(b);
}

// Returns the first row whose middle is not above the coordinate.
int firstRow(int y, int height)
{
    return std::clamp(y, 0, height);
}

int rowsOf(const Edge& edge, int height)
{
    return firstRow(edge.to.y(), height) - firstRow(edge.from.y(), height);
}

std::vector<Edge> edgesOf(const SkinOutline& outline, int height)
{
    std::vector<Edge> edges;
    for (const std::vector<QPoint>& polygon : outline)
        for (std::size_t i = 0; i < polygon.size(); ++i) {
            Edge edge{polygon[i], polygon[(i + 1) % polygon.size()]};
            if (edge.from.y() > edge.to.y())
                std::swap(edge.from, edge.to);
            if (rowsOf(edge, height) > 0)
                edges.push_back(edge);
        }
    return edges;
}

// An edge that is there twice is as good as none: what goes to and fro costs nothing further.
void cancelPairs(std::vector<Edge>& edges)
{
    std::ranges::sort(edges, isBefore);
    std::size_t kept = 0;
    for (const Edge& edge : edges)
        if (kept > 0 && edges[kept - 1] == edge)
            --kept;
        else
            edges[kept++] = edge;
    edges.resize(kept);
}

// Tells row by row, in whole numbers, the column from which on the pixels of a row lie right of an edge: the
// middle of pixel c of row r lies right of it when c >= x(r + 1/2) - 1/2.
class EdgeColumns {
public:
    EdgeColumns(const Edge& edge, int row)
    {
        __extension__ using Wide = __int128;
        const Wide rise = Wide(edge.to.y()) - edge.from.y();
        const Wide run = Wide(edge.to.x()) - edge.from.x();
        m_whole = static_cast<std::int64_t>(2 * rise);
        const Wide first = 2 * rise * edge.from.x() + run * (2 * (Wide(row) - edge.from.y()) + 1) - rise;
        m_column = divided(first + m_whole - 1, m_part);
        m_step = divided(2 * run, m_partStep);
    }

    std::int64_t column() const { return m_column; }

    void goDown()
    {
        m_column += m_step;
        m_part += m_partStep;
        if (m_part >= m_whole) {
            m_part -= m_whole;
            ++m_column;
        }
    }

private:
    template <typename Wide>
    std::int64_t divided(Wide number, std::int64_t& rest) const
    {
        Wide quotient = number / m_whole;
        if (quotient * m_whole > number)
            --quotient;
        rest = static_cast<std::int64_t>(number - quotient * m_whole);
        return static_cast<std::int64_t>(quotient);
    }

    std::int64_t m_whole = 1;
    std::int64_t m_column = 0;
    std::int64_t m_part = 0; // of m_whole
    std::int64_t m_step = 0; // from row to row
    std::int64_t m_partStep = 0;
};

void flipAlong(ParityRows& rows, const Edge& edge, QSize window)
{
    const int end = firstRow(edge.to.y(), window.height());
    int row = firstRow(edge.from.y(), window.height());
    for (EdgeColumns columns(edge, row); row < end; ++row, columns.goDown())
        if (columns.column() < window.width())
            rows.flip(row, static_cast<int>(std::max<std::int64_t>(columns.column(), 0)));
}

// Skips the runs of one row, from `begin` on, and gives where the next row's begin.
std::size_t endOfRow(const std::vector<OutlineRun>& runs, std::size_t begin)
{
    std::size_t end = begin;
    while (end < runs.size() && runs[end].row == runs[begin].row)
        ++end;
    return end;
}

// Tells whether the rectangles from `first` on reach down to this row with just these runs.
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
    return outlineRectangles(outlineRuns(outline, window));
}

std::vector<QRect> outlineRectangles(const std::vector<OutlineRun>& runs)
{
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
    std::vector<Edge> edges = edgesOf(outline, window.height());
    cancelPairs(edges);
    std::int64_t crossings = 0;
    for (const Edge& edge : edges)
        crossings += rowsOf(edge, window.height());
    if (crossings > kMostOutlineCrossings)
        return {};
    ParityRows rows(window);
    for (const Edge& edge : edges)
        flipAlong(rows, edge, window);
    return rows.runs(window.height());
}
