#include "player/bitmaps/bmpheader.h"

#include "player/bitmaps/picturebytes.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr qsizetype kFileHeader = 14;
constexpr quint32 kCoreHeader = 12; // the oldest kind: sizes of 16 bits, palette entries of three bytes
constexpr quint32 kInfoHeader = 40; // later ones only add to it
constexpr quint32 kAlphaHeader = 56;
constexpr quint32 kOtherHeader = 64; // of another system; its compressions above 2 are others
constexpr qsizetype kMaskPlace = kFileHeader + kInfoHeader;

enum Compression : quint32 { kPlain, kRuns8, kRuns4, kBitFields, kAlphaBitFields = 6 };

class HeaderReader {
public:
    explicit HeaderReader(QByteArrayView file) : m_file(file) {}

    std::optional<BmpHeader> read()
    {
        if (m_file.size() < kFileHeader + 4)
            return {};
        m_length = littleAt<quint32>(m_file, kFileHeader);
        if (m_length > m_file.size() - kFileHeader || (m_length != kCoreHeader && m_length < kInfoHeader))
            return {};
        m_length == kCoreHeader ? readCore() : readInfo();
        if (!isPictureSize(m_header.width, m_header.height) || !isKind() || !readMasks())
            return {};
        readPalette();
        return m_header;
    }

private:
    void readCore()
    {
        m_header.width = littleAt<quint16>(m_file, 18);
        m_header.height = littleAt<quint16>(m_file, 20);
        m_header.depth = littleAt<quint16>(m_file, 24);
    }
    void readInfo()
    {
        m_header.width = littleAt<qint32>(m_file, 18);
        const qint64 height = littleAt<qint32>(m_file, 22);
        m_header.topDown = height < 0;
        m_header.height = static_cast<int>(std::min<qint64>(std::abs(height), kMostBitmapSide + 1));
        m_header.depth = littleAt<quint16>(m_file, 28);
        m_compression = littleAt<quint32>(m_file, 30);
        m_coloursUsed = littleAt<quint32>(m_file, 46);
    }
    bool hasBitFields() const { return m_compression == kBitFields || m_compression == kAlphaBitFields; }
    bool isKind()
    {
        const int depth = m_header.depth;
        m_header.runs = m_compression == kRuns8 || m_compression == kRuns4;
        switch (m_compression) {
        case kPlain:
            return depth == 1 || depth == 4 || depth == 8 || depth == 16 || depth == 24 || depth == 32;
        case kRuns8:
            return depth == 8;
        case kRuns4:
            return depth == 4;
        case kBitFields:
        case kAlphaBitFields:
            return (depth == 16 || depth == 32) && m_length != kOtherHeader;
        default:
            return false;
        }
    }
    bool readMasks()
    {
        if (!hasBitFields()) { // the alpha byte of 32 bits means nothing then
            constexpr std::array<quint32, 3> kFifteen = {0x7c00, 0x03e0, 0x001f};
            constexpr std::array<quint32, 3> kTrue = {0xff0000, 0x00ff00, 0x0000ff};
            std::ranges::copy(m_header.depth == 16 ? kFifteen : kTrue, m_header.masks);
            return true;
        }
        const qsizetype count = m_length >= kAlphaHeader || m_compression == kAlphaBitFields ? 4 : 3;
        m_masksEnd = kMaskPlace + 4 * count;
        if (m_masksEnd > m_file.size())
            return false;
        for (qsizetype mask = 0; mask < count; ++mask)
            m_header.masks[mask] = littleAt<quint32>(m_file, kMaskPlace + 4 * mask);
        return true;
    }
    void readPalette()
    {
        const qsizetype entry = m_length == kCoreHeader ? 3 : 4;
        const qsizetype place = std::max<qsizetype>(kFileHeader + m_length, m_masksEnd);
        const qsizetype most = m_header.depth <= 8 ? qsizetype{1} << m_header.depth : 0;
        const qsizetype told = m_coloursUsed == 0 ? most : std::min<qsizetype>(m_coloursUsed, most);
        const qsizetype pixels = littleAt<quint32>(m_file, 10);
        m_header.pixels = pixels >= place ? pixels : place + told * entry;

        m_header.palette.fill(qRgb(0, 0, 0));
        const qsizetype end = std::min(m_header.pixels, m_file.size());
        const qsizetype count = std::min(told, std::max<qsizetype>(end - place, 0) / entry);
        for (qsizetype index = 0; index < count; ++index) {
            const qsizetype at = place + index * entry;
            m_header.palette[static_cast<std::size_t>(index)] =
                qRgb(byteAt(m_file, at + 2), byteAt(m_file, at + 1), byteAt(m_file, at));
        }
    }

    QByteArrayView m_file;
    quint32 m_length = 0; // of the header behind the file's
    quint32 m_compression = kPlain;
    quint32 m_coloursUsed = 0;
    qsizetype m_masksEnd = 0;
    BmpHeader m_header;
};

} // namespace

std::optional<BmpHeader> bmpHeader(QByteArrayView file)
{
    return HeaderReader(file).read();
}
