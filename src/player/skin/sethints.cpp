#include "player/skin/sethints.h"

#include "player/skin/outline.h"

#include <QList>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace {

constexpr double kLeastContrast = 3;
constexpr std::size_t kFewest = 3;   // points of a polygon
constexpr int kLargestFace = 4096;   // pixels a side, and
constexpr int kMostRuns = 1'000'000; // of all polygons: sets' own have some hundreds

// Is empty without a match. Sections and keys are found without regard to case.
QByteArray valueOf(const QByteArray& text, const QByteArray& section, const QByteArray& key)
{
    bool within = false;
    for (const QByteArray& raw : QByteArray(text).replace('\r', '\n').split('\n')) {
        const QByteArray line = raw.trimmed();
        const qsizetype equals = line.indexOf('=');
        if (line.startsWith('['))
            within = line.toLower() == '[' + section + ']';
        else if (within && equals >= 0 && line.first(equals).trimmed().toLower() == key)
            return line.sliced(equals + 1).trimmed();
    }
    return {};
}

// Takes numbers whatever parts them; a number that does not fit ends the list.
std::vector<int> numbersIn(const QByteArray& text)
{
    std::vector<int> numbers;
    QByteArray plain = text;
    std::ranges::replace_if(
        plain, [](char c) { return (c < '0' || c > '9') && c != '-'; }, ' ');
    for (const QByteArray& word : plain.simplified().split(' ')) {
        bool fits = false;
        const int number = word.toShort(&fits);
        if (!fits)
            break;
        numbers.push_back(number);
    }
    return numbers;
}

SkinOutline polygonsOf(const std::vector<int>& counts, const std::vector<int>& coordinates)
{
    SkinOutline polygons;
    std::size_t at = 0;
    for (const int count : counts) {
        std::vector<QPoint> polygon;
        for (int i = 0; i < count && at + 1 < coordinates.size(); ++i, at += 2)
            polygon.emplace_back(coordinates[at], coordinates[at + 1]);
        if (polygon.size() >= kFewest)
            polygons.push_back(std::move(polygon));
    }
    return polygons;
}

// Makes the runs of what lies in any of the polygons, none when there are too many to join.
std::vector<OutlineRun> runsOfAny(const SkinOutline& polygons, QSize window)
{
    std::vector<OutlineRun> all;
    for (const std::vector<QPoint>& polygon : polygons) {
        std::ranges::copy(outlineRuns({polygon}, window), std::back_inserter(all));
        if (std::ssize(all) > kMostRuns)
            return {};
    }
    std::ranges::sort(all, [](const OutlineRun& a, const OutlineRun& b) {
        return std::pair(a.row, a.left) < std::pair(b.row, b.left);
    });
    std::vector<OutlineRun> joined;
    for (const OutlineRun& run : all)
        if (joined.empty() || joined.back().row != run.row || joined.back().right < run.left)
            joined.push_back(run);
        else
            joined.back().right = std::max(joined.back().right, run.right);
    return joined;
}

void add(SkinOutline& outline, const QRect& r)
{
    const QPoint end(r.x() + r.width(), r.y() + r.height());
    if (!r.isEmpty())
        outline.push_back({r.topLeft(), {end.x(), r.y()}, end, {r.x(), end.y()}});
}

// Reads "#RRGGBB", of which some leave the sign out.
std::optional<SkinColour> colourIn(QByteArray text)
{
    if (text.startsWith('#'))
        text.remove(0, 1);
    bool isNumber = false;
    const uint number = text.first(std::min<qsizetype>(text.size(), 6)).toUInt(&isNumber, 16);
    if (!isNumber || text.size() < 6)
        return std::nullopt;
    return (number >> 16 & 0xFF) | (number & 0xFF00) | (number & 0xFF) << 16;
}

double lightOf(SkinColour colour)
{
    const auto part = [colour](int shift) {
        const double value = (colour >> shift & 0xFF) / 255.0;
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(0) + 0.7152 * part(8) + 0.0722 * part(16);
}

bool isLegible(const ListColours& colours)
{
    const auto [darker, lighter] = std::minmax({lightOf(colours.text), lightOf(colours.back)});
    return (lighter + 0.05) / (darker + 0.05) >= kLeastContrast;
}

} // namespace

SkinOutline outlineOfSet(const QByteArray& text, const WindowSizes& sizes)
{
    const std::vector<int> counts = numbersIn(valueOf(text, "normal", "numpoints"));
    if (std::ssize(counts) > kMostHintPolygons)
        return {};
    const SkinOutline polygons = polygonsOf(counts, numbersIn(valueOf(text, "normal", "pointlist")));
    const QSize face = sizes.front();
    if (face.width() > kLargestFace || face.height() > kLargestFace)
        return {};
    SkinOutline outline;
    for (const QRect& rectangle : outlineRectangles(runsOfAny(polygons, face)))
        add(outline, rectangle);
    if (outline.empty())
        return {};
    QSize largest = face;
    for (const QSize size : sizes)
        largest = largest.expandedTo(size);
    add(outline, {face.width(), 0, largest.width() - face.width(), face.height()});
    add(outline, {0, face.height(), largest.width(), largest.height() - face.height()});
    return outline;
}

std::optional<ListColours> listColoursOfSet(const QByteArray& text)
{
    const std::optional<SkinColour> normal = colourIn(valueOf(text, "text", "normal"));
    const std::optional<SkinColour> back = colourIn(valueOf(text, "text", "normalbg"));
    if (!normal || !back)
        return std::nullopt;
    const ListColours colours{*normal, *back};
    return isLegible(colours) ? std::optional(colours) : std::nullopt;
}
