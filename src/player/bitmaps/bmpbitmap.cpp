#include "player/bitmaps/bmpbitmap.h"

#include "player/bitmaps/bmpheader.h"
#include "player/bitmaps/bmpruns.h"
#include "player/bitmaps/picturebytes.h"

#include <algorithm>
#include <bit>

namespace {

// Makes a number up to 255 of a colour's bits of a pixel.
class Channel {
public:
    explicit Channel(quint32 mask) : m_mask(mask), m_shift(mask == 0 ? 0 : std::countr_zero(mask)) {}

    bool isThere() const { return m_mask != 0; }
    int of(quint32 pixel) const
    {
        const quint64 most = m_mask >> m_shift;
        const quint64 value = (pixel & m_mask) >> m_shift;
        return static_cast<int>(most == 255 || most == 0 ? value : (value * 255 + most / 2) / most);
    }

private:
    quint32 m_mask;
    int m_shift;
};

class Masks {
public:
    explicit Masks(const BmpHeader& header)
        : m_red(header.masks[0]), m_green(header.masks[1]), m_blue(header.masks[2]), m_alpha(header.masks[3])
    {
    }
    QRgb colourOf(quint32 pixel) const
    {
        const QRgb colour = qRgb(m_red.of(pixel), m_green.of(pixel), m_blue.of(pixel));
        if (!m_alpha.isThere())
            return colour;
        return qPremultiply((colour & 0xffffff) | static_cast<QRgb>(m_alpha.of(pixel)) << 24);
    }

private:
    Channel m_red;
    Channel m_green;
    Channel m_blue;
    Channel m_alpha;
};

QRgb* lineOf(QImage& image, const BmpHeader& header, int line)
{
    return reinterpret_cast<QRgb*>(image.scanLine(header.topDown ? line : header.height - 1 - line));
}

template <int Depth>
void fillIndexed(const BmpHeader& header, const uchar* from, QRgb* to)
{
    constexpr int kPerByte = 8 / Depth;
    constexpr int kMask = (1 << Depth) - 1;
    for (int x = 0; x < header.width; ++x) {
        const int shift = 8 - Depth * (x % kPerByte + 1);
        to[x] = header.palette[static_cast<std::size_t>(from[x / kPerByte] >> shift & kMask)];
    }
}

void fillTrue(const BmpHeader& header, const uchar* from, QRgb* to)
{
    const int step = header.depth / 8;
    for (int x = 0; x < header.width; ++x, from += step)
        to[x] = qRgb(from[2], from[1], from[0]);
}

template <typename Pixel>
void fillMasked(const BmpHeader& header, const uchar* from, QRgb* to)
{
    const Masks masks(header);
    for (int x = 0; x < header.width; ++x, from += sizeof(Pixel))
        to[x] = masks.colourOf(qFromLittleEndian<Pixel>(from));
}

using FillLine = void (*)(const BmpHeader& header, const uchar* from, QRgb* to);

FillLine fillerFor(const BmpHeader& header)
{
    constexpr quint32 kTrueMasks[] = {0xff0000, 0x00ff00, 0x0000ff, 0};
    switch (header.depth) {
    case 1:
        return fillIndexed<1>;
    case 4:
        return fillIndexed<4>;
    case 8:
        return fillIndexed<8>;
    case 16:
        return fillMasked<quint16>;
    default:
        return std::ranges::equal(header.masks, kTrueMasks) ? fillTrue : fillMasked<quint32>;
    }
}

QImage emptyImage(const BmpHeader& header)
{
    return QImage(header.width, header.height,
                  header.masks[3] == 0 ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
}

std::optional<QImage> plainBitmap(const BmpHeader& header, QByteArrayView data)
{
    const qint64 bits = qint64{header.width} * header.depth;
    const qint64 stride = (bits + 31) / 32 * 4;
    if (stride * (header.height - 1) + (bits + 7) / 8 > data.size()) // the last line's padding may be missing
        return {};
    QImage image = emptyImage(header);
    if (image.isNull())
        return {};
    const FillLine fill = fillerFor(header);
    const auto* from = reinterpret_cast<const uchar*>(data.data());
    for (int line = 0; line < header.height; ++line, from += stride)
        fill(header, from, lineOf(image, header, line));
    return image;
}

std::optional<QImage> runBitmap(const BmpHeader& header, QByteArrayView data)
{
    if (!walkBmpRuns(header, data, [](int, int, int, auto) {}))
        return {};
    QImage image = emptyImage(header);
    if (image.isNull())
        return {};
    image.fill(header.palette[0]);
    walkBmpRuns(header, data, [&](int x, int line, int count, auto indexAt) {
        QRgb* to = lineOf(image, header, line) + x;
        for (int i = 0; i < count; ++i)
            to[i] = header.palette[static_cast<std::size_t>(indexAt(i))];
    });
    return image;
}

} // namespace

std::optional<QImage> bmpBitmap(QByteArrayView file)
{
    const std::optional<BmpHeader> header = bmpHeader(file);
    if (!header || header->pixels >= file.size())
        return {};
    const QByteArrayView data = file.sliced(header->pixels);
    return header->runs ? runBitmap(*header, data) : plainBitmap(*header, data);
}
