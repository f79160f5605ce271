#include "toolkit/pages/bandlayout.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kWidestField = 1 << 27;       // in the units of the characters' widths
constexpr PageLength kRuleHeight = kPagePoint; // the line and the space that it takes

double points(PageLength length)
{
    return static_cast<double>(length) / kPagePoint;
}

double sizeOf(const ReportField& field)
{
    return std::clamp(field.font.size, 1.0, 1000.0);
}

// In the units of the characters' widths.
int widthOf(const ReportField& field, double inside)
{
    const double width = inside * field.width / 1000 * CharacterWidths::kUnits / sizeOf(field);
    return static_cast<int>(std::clamp(width, 0.0, kWidestField));
}

PageLength lineHeightOf(const ReportField& field, const CharacterWidths& widths)
{
    const double height = sizeOf(field) * widths.lineHeight() * kPagePoint / CharacterWidths::kUnits;
    return std::max<PageLength>(1, static_cast<PageLength>(std::ceil(height)));
}

} // namespace

BandLayout::BandLayout(const ReportBand& band, const BandSetting& setting) : m_setting(setting)
{
    for (const ReportStrip& strip : band) {
        m_strips.push_back(stripOf(strip));
        m_least += m_strips.back().least;
        m_isSteady = m_isSteady && m_strips.back().columns.empty();
    }
}

BandLayout::Field BandLayout::fieldOf(const ReportField& field) const
{
    const CharacterTable& table = field.font.bold ? m_setting.bold : m_setting.plain;
    const LineBreaker breaker(table, widthOf(field, m_setting.inside.width()));
    const QByteArray text =
        field.column < 0 ? fieldText(field.text, m_setting.longest).toUtf8() : QByteArray();
    return {&field, breaker, lineHeightOf(field, m_setting.widths), breaker.count(text)};
}

BandLayout::Strip BandLayout::stripOf(const ReportStrip& strip) const
{
    Strip out{.above = static_cast<PageLength>(std::max(strip.above, 0.0) * kPagePoint),
              .pitch = strip.isRule ? kRuleHeight : 0,
              .least = strip.isRule ? kRuleHeight : 0,
              .isRule = strip.isRule};
    if (!strip.isRule)
        for (const ReportField& field : strip.fields) {
            const Field& made = out.fields.emplace_back(fieldOf(field));
            if (field.column >= 0)
                out.columns.push_back(made);
            out.pitch = std::max(out.pitch, made.lineHeight);
            out.least = std::max(out.least, made.lines * made.lineHeight);
            out.leastLines = std::max(out.leastLines, made.lines);
        }
    out.least += out.above;
    return out;
}

// A row's band shows its columns; one that belongs to no row leaves them empty.
qsizetype BandLayout::linesOf(const Field& field, int row) const
{
    const ReportRows::Cell cell =
        row < 0 ? ReportRows::Cell() : m_setting.rows.cell(row, field.field->column);
    return cell ? field.breaker.count(*cell) : 1;
}

PageLength BandLayout::heightOf(const Strip& strip, int row) const
{
    PageLength height = strip.least;
    for (const Field& field : strip.columns)
        height = std::max(height, strip.above + linesOf(field, row) * field.lineHeight);
    return height;
}

PageLength BandLayout::measured(int row) const
{
    PageLength height = 0;
    for (const Strip& strip : m_strips)
        height += heightOf(strip, row);
    return height;
}

int BandLayout::slicesOf(const Strip& strip, int row) const
{
    qsizetype lines = strip.leastLines;
    for (const Field& field : strip.columns)
        lines = std::max(lines, linesOf(field, row));
    return static_cast<int>(std::min<qsizetype>(lines, BandSlices::kAll / 2));
}

int BandLayout::lineOf(const Field& field, int row, qsizetype byte) const
{
    int lines = 0;
    const QByteArrayView cell = m_setting.rows.cell(row, field.field->column).value_or(QByteArrayView());
    field.breaker.visit(cell, [&](const LineBreaker::Line& line) { lines += line.start <= byte ? 1 : 0; });
    return std::max(lines - 1, 0);
}

std::optional<int> BandLayout::sliceOf(int row, const ReportField& field, qsizetype byte) const
{
    int above = 0;
    for (const Strip& strip : m_strips) {
        for (const Field& one : strip.columns)
            if (one.field == &field)
                return above + lineOf(one, row, byte);
        above += slicesOf(strip, row);
    }
    return std::nullopt;
}

void BandLayout::place(int row, const BandSlices& slices, Placing& placing) const
{
    BandSlices left = slices;
    for (const Strip& strip : m_strips) {
        placeStrip(strip, row, left, placing);
        if (!slices.isCut)
            continue;
        const int count = slicesOf(strip, row);
        left.first = std::max(0, left.first - count);
        left.end = std::max(0, left.end - count);
    }
}

void BandLayout::placeStrip(const Strip& strip, int row, const BandSlices& slices, Placing& placing) const
{
    const int end = slices.isCut ? std::min(slices.end, slicesOf(strip, row)) : BandSlices::kAll;
    if (slices.first >= end)
        return;
    const PageLength above = slices.first == 0 ? strip.above : 0;
    Placing below{placing.top + above, placing.values, placing.items};
    if (strip.isRule)
        placeRule(below);
    for (const Field& field : strip.fields)
        placeField(field, row, slices, slices.isCut ? strip.pitch : field.lineHeight, below);
    placing.top += slices.isCut ? above + (end - slices.first) * strip.pitch : heightOf(strip, row);
}

void BandLayout::placeRule(const Placing& placing) const
{
    const QRectF& inside = m_setting.inside;
    placing.items.push_back(
        {.place = QRectF(inside.left(), points(placing.top), inside.width(), points(kRuleHeight)),
         .isRule = true});
}

PageItem BandLayout::itemOf(const Field& field) const
{
    const QRectF& inside = m_setting.inside;
    const ReportField& design = *field.field;
    return {.place = QRectF(inside.left() + inside.width() * design.left / 1000, 0,
                            inside.width() * design.width / 1000, points(field.lineHeight)),
            .font = {sizeOf(design), design.font.bold},
            .align = design.align,
            .field = &design};
}

QByteArrayView BandLayout::bytesOf(const Field& field, int row, const FieldValues& values,
                                   QByteArray& made) const
{
    if (field.field->column >= 0)
        return row < 0 ? QByteArrayView()
                       : m_setting.rows.cell(row, field.field->column).value_or(QByteArrayView());
    made = fieldText(field.field->text, values).toUtf8();
    return made;
}

void BandLayout::placeField(const Field& field, int row, const BandSlices& slices, PageLength pitch,
                            const Placing& placing) const
{
    PageItem item = itemOf(field);
    if (field.field->column >= 0)
        item.row = row;
    QByteArray made;
    field.breaker.visit(bytesOf(field, row, placing.values, made), [&](const LineBreaker::Line& line) {
        if (item.line >= slices.first && item.line < slices.end && !line.bytes.isEmpty()) {
            item.place.moveTop(points(placing.top + (item.line - slices.first) * pitch));
            item.text = LineBreaker::shown(line.bytes);
            item.start = line.start;
            item.size = line.bytes.size();
            placing.items.push_back(item);
        }
        ++item.line;
    });
}
