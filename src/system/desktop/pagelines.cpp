#include "system/desktop/pagelines.h"

#include <algorithm>
#include <vector>

namespace pagelines {

namespace {

constexpr qsizetype kGap = 2;
constexpr qsizetype kTabWidth = 8;
constexpr QChar kLastLatin(0x24F);
constexpr QChar kSoftHyphen(0xAD);

using Widths = std::vector<qsizetype>;

bool isControl(QChar c)
{
    return c < u' ' || (c >= u'\x7F' && c < u'\xA0');
}

QString withoutControls(QString text)
{
    for (QChar& c : text)
        if (isControl(c))
            c = u' ';
    return text;
}

Widths cellWidths(const QStringList& lines, qsizetype first, qsizetype last)
{
    Widths widths;
    for (qsizetype i = first; i < last; ++i) {
        std::size_t column = 0;
        for (const QStringView cell : QStringView(lines[i]).tokenize(u'\t')) {
            widths.resize(std::max(widths.size(), column + 1), 0);
            widths[column] = std::max(widths[column], cell.size());
            ++column;
        }
    }
    return widths;
}

qsizetype total(const Widths& widths, qsizetype limit)
{
    qsizetype sum = -kGap; // none behind the last
    for (const qsizetype width : widths)
        sum += std::min(width, limit) + kGap;
    return sum;
}

// The widest columns give way first, all to the same width.
Widths fitting(Widths widths, qsizetype pageWidth)
{
    for (std::size_t i = 0; i + 1 < widths.size(); ++i)
        widths[i] = std::max(widths[i], kTabWidth - kGap);
    qsizetype limit = pageWidth;
    while (limit > 1 && total(widths, limit) > pageWidth)
        --limit;
    for (qsizetype& width : widths)
        width = std::min(width, limit);
    return widths;
}

QString tableLine(const QString& line, const Widths& widths)
{
    QString out;
    qsizetype stop = 0;
    std::size_t column = 0;
    for (const QStringView cell : QStringView(line).tokenize(u'\t')) {
        if (column > 0)
            out.append(QString(std::max(stop - out.size(), kGap), u' '));
        out += cell;
        stop += widths[column++] + kGap;
    }
    return out;
}

QString lineWithStops(const QString& line)
{
    QString out;
    for (const QChar c : line)
        out.append(c == u'\t' ? QString(kTabWidth - out.size() % kTabWidth, u' ') : QString(c));
    return out;
}

// Tells how much of the rest goes on this line, which is up to a blank, but not only the blanks that it
// begins with.
qsizetype lengthOfPiece(QStringView rest, qsizetype pageWidth)
{
    if (rest.size() <= pageWidth)
        return rest.size();
    const qsizetype blank = rest.first(pageWidth + 1).lastIndexOf(u' ');
    return blank > 0 && !rest.first(blank).trimmed().isEmpty() ? blank : pageWidth;
}

} // namespace

QStringList withoutTabs(const QStringList& lines, int pageWidth)
{
    QStringList out;
    out.reserve(lines.size());
    for (qsizetype first = 0; first < lines.size();) {
        const qsizetype tabs = lines[first].count(u'\t');
        qsizetype last = first + 1;
        while (last < lines.size() && lines[last].count(u'\t') == tabs)
            ++last;
        const bool isTable = tabs > 0 && last - first > 1;
        const Widths widths = isTable ? fitting(cellWidths(lines, first, last), pageWidth) : Widths();
        for (; first < last; ++first)
            out += withoutControls(isTable ? tableLine(lines[first], widths) : lineWithStops(lines[first]));
    }
    return out;
}

QStringList broken(const QString& line, int pageWidth)
{
    QStringList pieces;
    QStringView rest(line);
    do {
        const qsizetype length = lengthOfPiece(rest, std::max(pageWidth, 1));
        pieces += rest.first(length).toString();
        rest = rest.sliced(length);
        while (rest.startsWith(u' '))
            rest = rest.sliced(1);
    } while (!rest.isEmpty());
    return pieces;
}

bool isPlain(QStringView line)
{
    return std::ranges::all_of(line, [](QChar c) { return c <= kLastLatin && c != kSoftHyphen; });
}

} // namespace pagelines
