#include "player/face/facepicture.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace {

constexpr int kWhole = 256;

// Tells which source pixels a scaled pixel lies on: the first counts with `weight`, the next with the rest.
struct Tap {
    int first = 0;
    int next = 0;
    int weight = kWhole;
};

Tap tapOf(int at, qreal factor, int length)
{
    const qreal left = at / factor;
    const qreal right = (at + 1) / factor;
    const int first = std::clamp(static_cast<int>(left), 0, length - 1);
    const qreal share = (first + 1 - left) / (right - left);
    return {first, std::min(first + 1, length - 1),
            std::clamp(static_cast<int>(std::lround(share * kWhole)), 0, kWhole)};
}

std::vector<Tap> tapsOf(int from, int to, qreal factor, int length)
{
    std::vector<Tap> taps;
    for (int at = from; at < to; ++at)
        taps.push_back(tapOf(at, factor, length));
    return taps;
}

// It works on two channels of a pixel at once.
QRgb mixed(QRgb a, QRgb b, int weight)
{
    const auto part = [weight](quint32 first, quint32 second) {
        return (first * static_cast<quint32>(weight) + second * static_cast<quint32>(kWhole - weight)) >> 8;
    };
    const quint32 redBlue = part(a & 0xFF00FF, b & 0xFF00FF) & 0xFF00FF;
    const quint32 green = part(a & 0x00FF00, b & 0x00FF00) & 0x00FF00;
    return 0xFF000000 | redBlue | green;
}

// Tells which source pixels lie below a scaled pixel that is larger than they are; their weights make kWhole
// in all.
struct Share {
    int first = 0;
    std::vector<quint32> weights{};
};

Share shareOf(int at, qreal factor, int length)
{
    const qreal left = std::min(at / factor, length - 1.0);
    const qreal right = std::min((at + 1) / factor, static_cast<qreal>(length));
    Share share{.first = static_cast<int>(left)};
    const auto until = [&](qreal edge) {
        return static_cast<quint32>(std::lround((edge - left) / (right - left) * kWhole));
    };
    for (qreal edge = left; edge < right;) {
        const qreal next = std::min(std::floor(edge) + 1, right);
        share.weights.push_back(until(next) - until(edge));
        edge = next;
    }
    return share;
}

std::vector<Share> sharesOf(int from, int to, qreal factor, int length)
{
    std::vector<Share> shares;
    for (int at = from; at < to; ++at)
        shares.push_back(shareOf(at, factor, length));
    return shares;
}

// Adds up one column: red, green and blue, by weights.
struct Sum {
    quint32 red = 0;
    quint32 green = 0;
    quint32 blue = 0;

    void add(const Sum& other, quint32 weight)
    {
        red += other.red * weight;
        green += other.green * weight;
        blue += other.blue * weight;
    }
};

// It adds those columns alone that the shares need.
void addRow(std::vector<Sum>& sums, const std::vector<Share>& columns, const QRgb* pixels, quint32 weight)
{
    const int end = columns.back().first + static_cast<int>(columns.back().weights.size());
    for (int x = columns.front().first; x < end; ++x) {
        const auto part = [pixel = pixels[x]](int shift) { return pixel >> shift & 0xFF; };
        sums[static_cast<std::size_t>(x)].add({part(16), part(8), part(0)}, weight);
    }
}

QRgb meanOf(const std::vector<Sum>& sums, const Share& column)
{
    constexpr quint32 kHalf = kWhole * kWhole / 2;
    Sum mean{kHalf, kHalf, kHalf};
    for (std::size_t i = 0; i < column.weights.size(); ++i)
        mean.add(sums[static_cast<std::size_t>(column.first) + i], column.weights[i]);
    return 0xFF000000 | mean.red >> 16 << 16 | mean.green >> 16 << 8 | mean.blue >> 16;
}

const QRgb* row(const QImage& image, int y)
{
    return reinterpret_cast<const QRgb*>(image.constScanLine(y));
}

QSize scaledSize(QSize size, qreal factor)
{
    return {static_cast<int>(std::ceil(size.width() * factor)),
            static_cast<int>(std::ceil(size.height() * factor))};
}

// Returns the scaled pixels that a rectangle of the face has a share in.
QRect scaledArea(const QRect& area, qreal factor)
{
    const QPoint topLeft(static_cast<int>(std::floor(area.x() * factor)),
                         static_cast<int>(std::floor(area.y() * factor)));
    const QPoint end(static_cast<int>(std::ceil((area.x() + area.width()) * factor)),
                     static_cast<int>(std::ceil((area.y() + area.height()) * factor)));
    return {topLeft, end - QPoint(1, 1)};
}

void scaleRow(QRgb* target, const QRgb* upper, const QRgb* lower, int weight, const std::vector<Tap>& taps)
{
    for (const Tap& tap : taps)
        *target++ = mixed(mixed(upper[tap.first], upper[tap.next], tap.weight),
                          mixed(lower[tap.first], lower[tap.next], tap.weight), weight);
}

} // namespace

QRect copyPixels(QImage& target, QPoint to, const QImage& source, const QRect& from)
{
    const QRect there = from.intersected(source.rect());
    const QPoint shift = to - from.topLeft();
    const QRect here = there.translated(shift).intersected(target.rect());
    if (here.isEmpty())
        return {};
    const auto bytes = static_cast<std::size_t>(here.width()) * sizeof(QRgb);
    for (int y = here.top(); y <= here.bottom(); ++y)
        std::memmove(reinterpret_cast<QRgb*>(target.scanLine(y)) + here.x(),
                     row(source, y - shift.y()) + here.x() - shift.x(), bytes);
    return here;
}

void FacePicture::reset(QSize size, const QImage& background)
{
    m_face = QImage(size, QImage::Format_RGB32);
    m_face.fill(Qt::black);
    copyPixels(m_face, {}, background, background.rect());
    m_background = m_face;
    m_composed = QImage(size, QImage::Format_RGB32);
    m_scaled = QImage();
    compose(m_face.rect());
}

QRect FacePicture::paint(QPoint to, const QImage& source, const QRect& from)
{
    return copyPixels(m_face, to, source, from);
}

void FacePicture::bare(const QRegion& area)
{
    for (const QRect& part : area)
        copyPixels(m_face, part.topLeft(), m_background, part);
}

void FacePicture::compose(const QRect& wanted)
{
    const QRect area = wanted.intersected(m_face.rect());
    if (area.isEmpty())
        return;
    copyPixels(m_composed, area.topLeft(), m_face, area);
    m_paintItems(m_composed, area);
    if (!m_scaled.isNull())
        scale(area);
}

const QImage& FacePicture::scaled(qreal factor)
{
    if (factor == 1)
        m_scaled = QImage();
    else if (m_scaled.isNull() || factor != m_factor) {
        m_factor = factor;
        m_scaled = QImage(scaledSize(m_face.size(), factor), QImage::Format_RGB32);
        scale(m_face.rect());
    }
    return m_scaled.isNull() ? m_composed : m_scaled;
}

// It gives the same as scale() does, without mixing.
void FacePicture::repeatPixels(const QRect& area, int factor)
{
    const qsizetype left = qsizetype(area.left()) * factor;
    const std::size_t bytes =
        static_cast<std::size_t>(area.width()) * static_cast<std::size_t>(factor) * sizeof(QRgb);
    const auto target = [&](int y) { return reinterpret_cast<QRgb*>(m_scaled.scanLine(y)) + left; };
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const QRgb* source = row(m_composed, y) + area.left();
        QRgb* const first = target(y * factor);
        QRgb* end = first;
        for (int x = 0; x < area.width(); ++x)
            end = std::fill_n(end, factor, source[x]);
        for (int copy = 1; copy < factor; ++copy)
            std::memcpy(target(y * factor + copy), first, bytes);
    }
}

void FacePicture::scale(const QRect& area)
{
    if (const int whole = static_cast<int>(m_factor); whole == m_factor) {
        repeatPixels(area, whole);
        return;
    }
    const QRect target = scaledArea(area, m_factor).intersected(m_scaled.rect());
    if (target.isEmpty())
        return;
    if (m_factor < 1)
        reduce(target);
    else
        enlarge(target);
}

// Each scaled pixel takes the mean of at most two by two pixels.
void FacePicture::enlarge(const QRect& target)
{
    const std::vector<Tap> columns = tapsOf(target.left(), target.right() + 1, m_factor, m_composed.width());
    for (int y = target.top(); y <= target.bottom(); ++y) {
        const Tap tap = tapOf(y, m_factor, m_composed.height());
        scaleRow(reinterpret_cast<QRgb*>(m_scaled.scanLine(y)) + target.left(), row(m_composed, tap.first),
                 row(m_composed, tap.next), tap.weight, columns);
    }
}

// Each scaled pixel takes the mean of as many as there are under it.
void FacePicture::reduce(const QRect& target)
{
    const std::vector<Share> columns =
        sharesOf(target.left(), target.right() + 1, m_factor, m_composed.width());
    std::vector<Sum> sums(static_cast<std::size_t>(m_composed.width()));
    for (int y = target.top(); y <= target.bottom(); ++y) {
        std::fill(sums.begin(), sums.end(), Sum{});
        const Share rows = shareOf(y, m_factor, m_composed.height());
        for (std::size_t i = 0; i < rows.weights.size(); ++i)
            addRow(sums, columns, row(m_composed, rows.first + static_cast<int>(i)), rows.weights[i]);
        QRgb* pixel = reinterpret_cast<QRgb*>(m_scaled.scanLine(y)) + target.left();
        for (const Share& column : columns)
            *pixel++ = meanOf(sums, column);
    }
}
