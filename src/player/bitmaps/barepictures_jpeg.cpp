#include "player/bitmaps/barepictures.h"
#include "player/bitmaps/picturebytes.h"

namespace {

enum Marker : quint8 {
    kFirstFrame = 0xc0,
    kHuffmanTables = 0xc4,
    kReserved = 0xc8,
    kArithmeticTables = 0xcc,
    kLastFrame = 0xcf,
    kFirstRestart = 0xd0,
    kLastRestart = 0xd7,
    kStart = 0xd8,
    kEnd = 0xd9,
    kScan = 0xda,
    kFirstApplication = 0xe0,
    kColours = 0xee, // application 14: how the colours are meant
    kLastApplication = 0xef,
    kComment = 0xfe,
    kTemporary = 0x01,
};

// A picture that comes in steps has ten or so; each costs a walk over the whole picture.
constexpr int kMostScans = 100;

bool standsAlone(quint8 marker)
{
    return (marker >= kFirstRestart && marker <= kStart) || marker == kTemporary;
}

bool isFrame(quint8 marker)
{
    return marker >= kFirstFrame && marker <= kLastFrame && marker != kHuffmanTables && marker != kReserved &&
           marker != kArithmeticTables;
}

bool isNeeded(quint8 marker)
{
    const bool foreign = marker > kFirstApplication && marker <= kLastApplication && marker != kColours;
    return !foreign && marker != kComment;
}

// A block of 8 x 8 pixels takes a bit at least; the oddest sampling has half as many blocks.
bool canYield(qint64 packed, QSize size)
{
    return qint64{size.width()} * size.height() / 1024 <= packed;
}

class JpegWalk {
public:
    explicit JpegWalk(QByteArrayView file) : m_file(file) {}

    std::optional<BarePicture> bare()
    {
        m_bare.content = m_file.first(2).toByteArray();
        while (const std::optional<quint8> marker = nextMarker()) {
            if (*marker == kEnd)
                return finished();
            if (!standsAlone(*marker) && !take(*marker))
                return {};
        }
        return {};
    }

private:
    std::optional<BarePicture> finished()
    {
        m_bare.content += "\xff\xd9";
        const bool whole = !m_bare.size.isEmpty() && canYield(m_packed, m_bare.size);
        return whole ? std::optional(std::move(m_bare)) : std::nullopt;
    }
    // What stands between the parts is skipped, as every reader does.
    std::optional<quint8> nextMarker()
    {
        for (m_at = m_file.indexOf('\xff', m_at); m_at >= 0; m_at = m_file.indexOf('\xff', m_at)) {
            while (m_at < m_file.size() && byteAt(m_file, m_at) == 0xff)
                ++m_at;
            if (m_at >= m_file.size())
                break;
            if (const quint8 marker = byteAt(m_file, m_at++); marker != 0)
                return marker;
        }
        return {};
    }
    // Takes the part of the marker just passed.
    bool take(quint8 marker)
    {
        const QByteArrayView rest = m_file.sliced(m_at);
        if (rest.size() < 2)
            return false;
        qsizetype length = bigAt<quint16>(rest, 0);
        if (length < 2 || length > rest.size() || (isFrame(marker) && !takeFrame(rest.first(length))))
            return false;
        if (marker == kScan) {
            if (++m_scans > kMostScans)
                return false;
            const qsizetype packed = packedAt(rest.sliced(length));
            m_packed += packed;
            length += packed;
        }
        if (isNeeded(marker))
            (m_bare.content += '\xff').append(static_cast<char>(marker)).append(rest.first(length));
        m_at += length;
        return true;
    }
    bool takeFrame(QByteArrayView part)
    {
        if (part.size() < 7 || !m_bare.size.isEmpty()) // a second one would make the limits' size another's
            return false;
        const int height = bigAt<quint16>(part, 3);
        const int width = bigAt<quint16>(part, 5);
        m_bare.size = QSize(width, height);
        return isPictureSize(width, height);
    }
    // Counts the bytes up to the next marker that is no restart.
    static qsizetype packedAt(QByteArrayView bytes)
    {
        qsizetype at = bytes.indexOf('\xff');
        while (at >= 0 && at + 1 < bytes.size()) {
            const quint8 next = byteAt(bytes, at + 1);
            if (next != 0 && next != 0xff && (next < kFirstRestart || next > kLastRestart))
                return at;
            at = bytes.indexOf('\xff', at + (next == 0xff ? 1 : 2));
        }
        return bytes.size();
    }

    QByteArrayView m_file;
    qsizetype m_at = 2;
    BarePicture m_bare;
    int m_scans = 0;
    qint64 m_packed = 0;
};

} // namespace

std::optional<BarePicture> bareJpeg(QByteArrayView file)
{
    return JpegWalk(file).bare();
}
