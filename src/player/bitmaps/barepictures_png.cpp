#include "player/bitmaps/barepictures.h"
#include "player/bitmaps/picturebytes.h"

namespace {

constexpr qsizetype kSignature = 8;
constexpr qsizetype kAroundData = 12; // length and name before it, check sum after it
constexpr qsizetype kHeaderData = 13;

int samplesOf(quint8 colourType)
{
    switch (colourType) {
    case 0: // grey
    case 3: // palette
        return 1;
    case 2:
        return 3;
    case 4:
        return 2;
    case 6:
        return 4;
    default:
        return 0;
    }
}

// Deflate makes at most 1032 bytes of one.
bool canYield(qint64 packed, qint64 bytes)
{
    return bytes / 1032 <= packed;
}

// Capital letters begin the names of the parts that every reader must know; of the others only the one with
// the transparent colours matters.
bool isNeeded(QByteArrayView name)
{
    return (name[0] & 0x20) == 0 || name == QByteArrayView("tRNS");
}

struct PngHeader {
    QSize size;
    qint64 bytes; // unpacked, at least
};

std::optional<PngHeader> headerOf(QByteArrayView file)
{
    if (file.size() < kSignature + kAroundData + kHeaderData ||
        bigAt<quint32>(file, kSignature) != kHeaderData ||
        file.sliced(kSignature + 4, 4) != QByteArrayView("IHDR"))
        return {};
    const QByteArrayView data = file.sliced(kSignature + 8, kHeaderData);
    const qint64 width = bigAt<quint32>(data, 0);
    const qint64 height = bigAt<quint32>(data, 4);
    if (!isPictureSize(width, height))
        return {};
    const qint64 bits = width * byteAt(data, 8) * samplesOf(byteAt(data, 9));
    return PngHeader{QSize(static_cast<int>(width), static_cast<int>(height)), (bits + 7) / 8 * height};
}

} // namespace

std::optional<BarePicture> barePng(QByteArrayView file)
{
    const std::optional<PngHeader> header = headerOf(file);
    if (!header)
        return {};
    BarePicture bare{file.first(kSignature).toByteArray(), header->size};
    qint64 packed = 0;
    for (QByteArrayView rest = file.sliced(kSignature); rest.size() >= kAroundData;) {
        const qint64 length = bigAt<quint32>(rest, 0);
        if (length > rest.size() - kAroundData)
            return {};
        const QByteArrayView name = rest.sliced(4, 4);
        if (isNeeded(name))
            bare.content += rest.first(length + kAroundData);
        if (name == QByteArrayView("IDAT"))
            packed += length;
        if (name == QByteArrayView("IEND"))
            return canYield(packed, header->bytes) ? std::optional(std::move(bare)) : std::nullopt;
        rest = rest.sliced(length + kAroundData);
    }
    return {};
}
