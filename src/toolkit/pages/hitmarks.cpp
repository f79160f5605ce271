#include "toolkit/pages/hitmarks.h"

#include "database/sql/casefold.h"
#include "toolkit/pages/fontwidths.h"
#include "toolkit/pages/reportrows.h"

#include <QTextLayout>

#include <algorithm>
#include <map>
#include <span>

namespace {

constexpr double kFine = 16; // fonts have whole sizes

// Tells how many units of a QString the bytes are.
qsizetype unitsOf(QByteArrayView bytes)
{
    qsizetype units = 0;
    for (qsizetype at = 0; at < bytes.size();) {
        const casefold::Character character = casefold::characterAt(bytes, at);
        units += character.code > 0xFFFF && character.code < casefold::kByte ? 2 : 1;
        at += character.size;
    }
    return units;
}

double spareShare(FieldAlign align)
{
    return align == FieldAlign::Left ? 0 : align == FieldAlign::Center ? 0.5 : 1;
}

// Is a line of a cell as a page shows it.
class ShownLine {
public:
    ShownLine(const PageItem& item, QByteArrayView cell)
        : m_item(item), m_bytes(cell.sliced(item.start, item.size)),
          m_text(item.text, pageFont(item.font.size * kFine, item.font.bold))
    {
        m_text.beginLayout();
        m_line = m_text.createLine();
        m_text.endLayout();
    }

    // Returns the place of some bytes of the cell, all of which are in the line.
    QRectF placeOf(qsizetype from, qsizetype to) const
    {
        if (!m_line.isValid())
            return {};
        const PageItem& item = m_item;
        const double spare =
            (item.place.width() - m_line.naturalTextWidth() / kFine) * spareShare(item.align);
        const auto [left, right] = std::minmax({x(from), x(to)});
        return {item.place.left() + spare + left, item.place.top(), right - left, item.place.height()};
    }

private:
    double x(qsizetype byte) const
    {
        const qsizetype unit = unitsOf(m_bytes.first(byte - m_item.start));
        return m_line.cursorToX(static_cast<int>(std::min(unit, m_item.text.size()))) / kFine;
    }

    const PageItem& m_item;
    QByteArrayView m_bytes;
    QTextLayout m_text;
    QTextLine m_line;
};

// Is the hits of the rows that stand on a page, by row and field.
class HitsOfPage {
public:
    explicit HitsOfPage(const TextFinder& finder) : m_finder(finder) {}

    // Returns those that some bytes of a line have a part of: the hits of a cell stand in their order in it,
    // and there may be far more of them than the page shows.
    std::span<const TextFinder::Hit> in(const PageItem& line)
    {
        const auto [row, isNew] = m_found.try_emplace(line.row);
        if (isNew)
            for (const TextFinder::Hit& hit : m_finder.hitsIn(line.row))
                row->second[hit.field].push_back(hit);
        const std::vector<TextFinder::Hit>& hits = row->second[line.field];
        const auto endOf = [](const TextFinder::Hit& hit) { return hit.start + hit.size; };
        const auto first = std::ranges::upper_bound(hits, line.start, {}, endOf);
        const auto last =
            std::ranges::lower_bound(first, hits.end(), line.start + line.size, {}, &TextFinder::Hit::start);
        return {first, last};
    }

private:
    const TextFinder& m_finder;
    std::map<int, std::map<const ReportField*, std::vector<TextFinder::Hit>>> m_found;
};

} // namespace

std::vector<HitMark> hitMarks(const std::vector<PageItem>& items, const ReportRows& rows,
                              const TextFinder& finder)
{
    HitsOfPage found(finder);
    std::vector<HitMark> marks;
    for (const PageItem& item : items) {
        if (item.isRule || item.row < 0 || !item.field || item.field->column < 0)
            continue;
        const std::span<const TextFinder::Hit> hits = found.in(item);
        if (hits.empty())
            continue;
        const ShownLine line(item, rows.cell(item.row, item.field->column).value_or(QByteArrayView()));
        for (const TextFinder::Hit& hit : hits)
            marks.push_back({line.placeOf(std::max(hit.start, item.start),
                                          std::min(hit.start + hit.size, item.start + item.size)),
                             hit});
    }
    return marks;
}
