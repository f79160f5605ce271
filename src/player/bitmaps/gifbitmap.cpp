#include "player/bitmaps/gifbitmap.h"

#include "player/bitmaps/giflzw.h"
#include "player/bitmaps/picturebytes.h"

#include <algorithm>
#include <array>

namespace {

constexpr qsizetype kFileHeader = 13;
constexpr qsizetype kPictureHeader = 9;
constexpr quint8 kTableFollows = 0x80;
constexpr quint8 kInterlaced = 0x40;

using Palette = std::array<QRgb, 256>;

Palette blackPalette()
{
    Palette palette;
    palette.fill(qRgb(0, 0, 0));
    return palette;
}

struct GifPicture {
    QRect place;
    bool interlaced;
    QByteArray indices;
};

// Reads from the file's beginning on; what would lie beyond its end is nothing.
class GifReader {
public:
    explicit GifReader(QByteArrayView file) : m_rest(file) {}

    std::optional<QImage> read()
    {
        const std::optional<QByteArrayView> header = take(kFileHeader);
        if (!header)
            return {};
        m_screen = QSize(littleAt<quint16>(*header, 6), littleAt<quint16>(*header, 8));
        if (!takePalette(byteAt(*header, 10)) || !toPicture())
            return {};
        const std::optional<GifPicture> picture = takePicture();
        return picture ? painted(*picture) : std::nullopt;
    }

private:
    std::optional<QByteArrayView> take(qsizetype count)
    {
        if (count > m_rest.size())
            return {};
        const QByteArrayView taken = m_rest.first(count);
        m_rest = m_rest.sliced(count);
        return taken;
    }
    bool takePalette(quint8 flags)
    {
        if ((flags & kTableFollows) == 0)
            return true;
        const qsizetype count = qsizetype{2} << (flags & 7);
        const std::optional<QByteArrayView> table = take(3 * count);
        if (!table)
            return false;
        m_palette = blackPalette();
        for (qsizetype i = 0; i < count; ++i)
            m_palette[static_cast<std::size_t>(i)] =
                qRgb(byteAt(*table, 3 * i), byteAt(*table, 3 * i + 1), byteAt(*table, 3 * i + 2));
        m_hasPalette = true;
        return true;
    }
    // Returns the data of the blocks that follow, up to the empty one, and what there is of them when they
    // are cut.
    QByteArray takeBlocks()
    {
        QByteArray data;
        for (auto length = take(1); length && byteAt(*length, 0) > 0; length = take(1)) {
            const qsizetype told = byteAt(*length, 0);
            data += *take(std::min(told, m_rest.size()));
        }
        return data;
    }
    // Goes over the extensions; it is false when no picture follows.
    bool toPicture()
    {
        for (auto kind = take(1); kind; kind = take(1)) {
            if ((*kind)[0] == ',')
                return true;
            const std::optional<QByteArrayView> label = (*kind)[0] == '!' ? take(1) : std::nullopt;
            if (!label)
                return false;
            const QByteArray data = takeBlocks();
            constexpr quint8 kGraphicControl = 0xf9;
            if (byteAt(*label, 0) == kGraphicControl && data.size() >= 4)
                m_transparent = (byteAt(data, 0) & 1) != 0 ? byteAt(data, 3) : -1;
        }
        return false;
    }
    std::optional<GifPicture> takePicture()
    {
        const std::optional<QByteArrayView> header = take(kPictureHeader);
        if (!header || !takePalette(byteAt(*header, 8)) || !m_hasPalette)
            return {};
        const auto number = [&](qsizetype place) { return int{littleAt<quint16>(*header, place)}; };
        GifPicture picture{
            QRect(number(0), number(2), number(4), number(6)), (byteAt(*header, 8) & kInterlaced) != 0, {}};
        m_screen = m_screen.expandedTo({picture.place.right() + 1, picture.place.bottom() + 1});
        const std::optional<QByteArrayView> codeBits = take(1);
        if (picture.place.isEmpty() || !isPictureSize(m_screen.width(), m_screen.height()) || !codeBits ||
            byteAt(*codeBits, 0) < 2 || byteAt(*codeBits, 0) > 8)
            return {};
        const qint64 pixels = qint64{picture.place.width()} * picture.place.height();
        picture.indices = unpackedGif(takeBlocks(), byteAt(*codeBits, 0), pixels);
        return picture.indices.size() == pixels ? std::optional(picture) : std::nullopt;
    }
    std::optional<QImage> painted(const GifPicture& picture)
    {
        const bool whole = picture.place == QRect(QPoint(), m_screen) && m_transparent < 0;
        QImage image(m_screen, whole ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
        if (image.isNull())
            return {};
        if (!whole)
            image.fill(Qt::transparent);
        if (m_transparent >= 0)
            m_palette[static_cast<std::size_t>(m_transparent)] = 0;
        const char* from = picture.indices.constData();
        forEachLine(picture, [&](int line) {
            auto* to =
                reinterpret_cast<QRgb*>(image.scanLine(picture.place.top() + line)) + picture.place.left();
            for (int x = 0; x < picture.place.width(); ++x)
                to[x] = m_palette[static_cast<quint8>(*from++)];
        });
        return image;
    }
    // Lines go in the order in which they are packed.
    template <typename Visit>
    static void forEachLine(const GifPicture& picture, Visit visit)
    {
        const int height = picture.place.height();
        const auto pass = [&](int first, int step) {
            for (int line = first; line < height; line += step)
                visit(line);
        };
        if (!picture.interlaced)
            return pass(0, 1);
        pass(0, 8);
        pass(4, 8);
        pass(2, 4);
        pass(1, 2);
    }

    QByteArrayView m_rest;
    QSize m_screen;
    Palette m_palette{};
    bool m_hasPalette = false;
    int m_transparent = -1; // an index, or none
};

} // namespace

std::optional<QImage> gifBitmap(QByteArrayView file)
{
    return GifReader(file).read();
}
