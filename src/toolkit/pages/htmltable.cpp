#include "toolkit/pages/htmltable.h"

#include "toolkit/pages/htmltext.h"

#include <algorithm>
#include <iterator>

namespace {

std::vector<ReportField> fromLeftToRight(std::vector<ReportField> fields)
{
    std::stable_sort(fields.begin(), fields.end(),
                     [](const ReportField& a, const ReportField& b) { return a.left < b.left; });
    return fields;
}

QByteArray sizeName(double points)
{
    return "s" + QByteArray::number(qRound(points * 10));
}

QByteArray spaceName(double points)
{
    return "a" + QByteArray::number(qRound(points * 10));
}

QByteArray classAttribute(const QByteArray& names)
{
    return names.isEmpty() ? QByteArray() : " class=\"" + names.trimmed() + '"';
}

QByteArray spanning(int columns)
{
    return columns > 1 ? " colspan=\"" + QByteArray::number(columns) + '"' : QByteArray();
}

QByteArray emptyCell(int columns)
{
    return columns > 0 ? "<td" + spanning(columns) + "></td>" : QByteArray();
}

} // namespace

HtmlTable::HtmlTable(const ReportDesign& design, FieldValues values) : m_values(std::move(values))
{
    if (!design.detail.empty())
        m_usual = design.detail.front();
    for (const ReportBand* band :
         {&design.pageHeader, &design.groupHeader, &design.detail, &design.groupFooter})
        addEdges(*band);
}

void HtmlTable::addEdges(const ReportBand& band)
{
    for (const ReportStrip& strip : band) {
        m_spaces.insert(strip.above);
        for (const ReportField& field : strip.fields) {
            m_edges.insert(std::clamp(field.left, 0, 1000));
            m_sizes.insert(field.font.size);
        }
    }
}

QByteArray HtmlTable::columns() const
{
    QByteArray out = "<colgroup>";
    for (auto edge = m_edges.begin(); std::next(edge) != m_edges.end(); ++edge)
        out += "<col style=\"width:" + QByteArray::number((*std::next(edge) - *edge) / 10.0) + "%\">";
    return out + "</colgroup>\n";
}

QByteArray HtmlTable::style() const
{
    QByteArray out = "table{font-size:" + QByteArray::number(usualSize()) +
                     "pt}\nth,td{padding-top:" + QByteArray::number(m_usual.above) + "pt}\n";
    for (const double points : m_sizes)
        out += '.' + sizeName(points) + "{font-size:" + QByteArray::number(points) + "pt}\n";
    for (const double points : m_spaces)
        out += '.' + spaceName(points) + ">*{padding-top:" + QByteArray::number(points) + "pt}\n";
    return out;
}

double HtmlTable::usualSize() const
{
    return m_usual.fields.empty() ? ReportFont().size : m_usual.fields.front().font.size;
}

// Tells how a field's letters look, where they do not look as usual.
QByteArray HtmlTable::classOf(const ReportField& field) const
{
    QByteArray out;
    if (field.font.size != usualSize())
        out += sizeName(field.font.size);
    if (field.font.bold)
        out += " b";
    if (field.align != FieldAlign::Left)
        out += field.align == FieldAlign::Right ? " r" : " c";
    return classAttribute(out);
}

int HtmlTable::columnsBetween(int left, int right) const
{
    return static_cast<int>(std::distance(m_edges.lower_bound(left), m_edges.lower_bound(right)));
}

HtmlBand HtmlTable::rows(const ReportBand& band, bool isHeading) const
{
    HtmlBand out;
    for (const ReportStrip& strip : band)
        if (strip.isRule)
            out.end += "<tr class=\"rule " + spaceName(strip.above) + "\"><td" +
                       spanning(columnsBetween(0, 1000)) + "></td></tr>\n";
        else
            addStrip(out, strip, isHeading);
    return out;
}

void HtmlTable::addStrip(HtmlBand& out, const ReportStrip& strip, bool isHeading) const
{
    const bool isUsual = strip.above == m_usual.above;
    out.end += "<tr" + classAttribute(isUsual ? QByteArray() : spaceName(strip.above)) + '>';
    const std::vector<ReportField> fields = fromLeftToRight(strip.fields);
    out.end += emptyCell(fields.empty() ? columnsBetween(0, 1000) : columnsBetween(0, fields.front().left));
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const ReportField& field = fields[i];
        const bool isTitle = isHeading && field.column < 0;
        const int right = i + 1 < fields.size() ? fields[i + 1].left : 1000;
        out.end += (isTitle ? "<th scope=\"col\"" : "<td") + classOf(field) +
                   spanning(columnsBetween(field.left, right));
        if (field.column < 0)
            out.end += '>' + htmltext::escaped(fieldText(field.text, m_values).toUtf8());
        else
            out.cells.emplace_back(std::exchange(out.end, {}), field.column);
        out.end += isTitle ? "</th>" : "</td>";
    }
    out.end += "</tr>\n";
}
