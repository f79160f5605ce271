#include "toolkit/pages/hitmarks.h"

#include "database/sql/casefold.h"
#include "toolkit/pages/fontwidths.h"
#include "toolkit/pages/reportrows.h"

#include <QTextLayout>

#include <algorithm>
#include <map>

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

// Returns the place of a part of the item's line.
QRectF placeOf(const PageItem& item, qsizetype from, qsizetype to)
{
    QTextLayout text(item.text, pageFont(item.font.size * kFine, item.font.bold));
    text.beginLayout();
    QTextLine line = text.createLine();
    text.endLayout();
    if (!line.isValid())
        return {};
    const auto x = [&](qsizetype at) {
        return line.cursorToX(static_cast<int>(std::min(at, item.text.size()))) / kFine;
    };
    const double spare = (item.place.width() - line.naturalTextWidth() / kFine) * spareShare(item.align);
    const auto [left, right] = std::minmax({x(from), x(to)});
    return {item.place.left() + spare + left, item.place.top(), right - left, item.place.height()};
}

class LinesOfPage {
public:
    explicit LinesOfPage(const std::vector<PageItem>& items)
    {
        for (const PageItem& item : items)
            m_starts[{item.row, item.field, item.line}] = item.start;
    }
    // Tells where the line behind the item begins in their cell; where there is none the cell ends.
    qsizetype endOf(const PageItem& item, QByteArrayView cell) const
    {
        const auto next = m_starts.find({item.row, item.field, item.line + 1});
        return std::min(next == m_starts.end() ? cell.size() : next->second, cell.size());
    }

private:
    std::map<std::tuple<int, const ReportField*, int>, qsizetype> m_starts;
};

// Is a hit, and a line of the cell that it lies in.
struct HitAndLine {
    const TextFinder::Hit& hit;
    const PageItem& line;
    QByteArrayView cell;
    qsizetype lineEnd;
};

// Of the last line of a page the end is not known: its text tells what stands in it.
void mark(const HitAndLine& both, std::vector<HitMark>& marks)
{
    const qsizetype from = std::max(both.hit.start, both.line.start);
    const qsizetype to = std::min(both.hit.start + both.hit.size, both.lineEnd);
    if (from >= to)
        return;
    const qsizetype first = unitsOf(both.cell.sliced(both.line.start, from - both.line.start));
    const qsizetype last = first + unitsOf(both.cell.sliced(from, to - from));
    if (first < both.line.text.size())
        marks.push_back({placeOf(both.line, first, last), both.hit});
}

} // namespace

std::vector<HitMark> hitMarks(const std::vector<PageItem>& items, const ReportRows& rows,
                              const TextFinder& finder)
{
    const LinesOfPage lines(items);
    std::map<int, std::vector<TextFinder::Hit>> found; // by row
    std::vector<HitMark> marks;
    for (const PageItem& item : items) {
        if (item.isRule || item.row < 0 || !item.field || item.field->column < 0)
            continue;
        const QByteArrayView cell = rows.cell(item.row, item.field->column).value_or(QByteArrayView());
        if (!found.contains(item.row))
            found[item.row] = finder.hitsIn(item.row);
        for (const TextFinder::Hit& hit : found[item.row])
            if (hit.field == item.field)
                mark({hit, item, cell, lines.endOf(item, cell)}, marks);
    }
    return marks;
}
