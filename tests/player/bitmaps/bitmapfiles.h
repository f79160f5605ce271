// Makes bitmap files byte by byte.
#pragma once

#include "tests/support/bytes.h"

#include <QRect>
#include <QRgb>

#include <map>
#include <optional>
#include <vector>

struct BmpFile {
    qint32 width = 1;
    qint32 height = 1; // below zero: lines from the top
    quint16 depth = 24;
    QByteArray pixels{};
    std::vector<QRgb> palette{};
    quint32 compression = 0;
    std::vector<quint32> masks{}; // behind the first 40 bytes of the header
    quint32 header = 40;          // its length
    quint32 coloursUsed = 0;
    std::optional<quint32> offset{};

    QByteArray bytes() const
    {
        QByteArray info;
        addLittle(info, header);
        if (header == 12) {
            addLittle(info, static_cast<quint16>(width));
            addLittle(info, static_cast<quint16>(height));
            addLittle(info, quint16{1});
            addLittle(info, depth);
        } else {
            addLittle(info, width);
            addLittle(info, height);
            addLittle(info, quint16{1});
            addLittle(info, depth);
            addLittle(info, compression);
            for (const quint32 number : {0u, 0u, 0u, coloursUsed, 0u})
                addLittle(info, number);
            for (const quint32 mask : masks)
                addLittle(info, mask);
            info = info.leftJustified(std::max<qsizetype>(header, info.size()), '\0');
        }
        for (const QRgb colour : palette) {
            for (const int part : {qBlue(colour), qGreen(colour), qRed(colour)})
                info += static_cast<char>(part);
            if (header != 12)
                info += '\x55'; // reserved
        }
        QByteArray file("BM");
        addLittle(file, static_cast<quint32>(14 + info.size() + pixels.size()));
        addLittle(file, quint32{0});
        addLittle(file, offset.value_or(static_cast<quint32>(14 + info.size())));
        return file + info + pixels;
    }
};

// Packs as the format's writers do, with a table that grows; when it is full it begins anew, or stays as it
// is.
class GifPacker {
public:
    GifPacker(int bits, const QByteArray& indices, bool clearsLate)
        : m_bits(bits), m_clear(1 << bits), m_clearsLate(clearsLate)
    {
        begin();
        int before = static_cast<quint8>(indices[0]);
        for (const char index : indices.sliced(1)) {
            const auto known = m_known.find({before, static_cast<quint8>(index)});
            if (known != m_known.end()) {
                before = known->second;
                continue;
            }
            put(before);
            learn(before, static_cast<quint8>(index));
            before = static_cast<quint8>(index);
        }
        put(before);
        put(m_clear + 1);
        m_data += static_cast<char>(m_held);
    }
    // Returns the length of a code's bits, and blocks.
    QByteArray bytes() const
    {
        QByteArray blocks(1, static_cast<char>(m_bits));
        for (qsizetype at = 0; at < m_data.size(); at += 255) {
            const QByteArray block = m_data.mid(at, 255);
            blocks += static_cast<char>(block.size()) + block;
        }
        return blocks + '\0';
    }

private:
    void begin()
    {
        m_known.clear();
        m_next = m_clear + 2;
        if (m_width == 0)
            m_width = m_bits + 1;
        put(m_clear);
        m_width = m_bits + 1;
    }
    void learn(int before, int index)
    {
        if (m_next == 4096) {
            if (!m_clearsLate)
                begin();
            return;
        }
        m_known[{before, index}] = m_next;
        if (m_next++ == 1 << m_width)
            ++m_width;
    }
    void put(int code)
    {
        m_held |= static_cast<quint64>(code) << m_count;
        for (m_count += m_width; m_count >= 8; m_count -= 8, m_held >>= 8)
            m_data += static_cast<char>(m_held & 0xff);
    }

    int m_bits;
    int m_clear;
    bool m_clearsLate;
    int m_width = 0;
    int m_next = 0;
    quint64 m_held = 0;
    int m_count = 0;
    std::map<std::pair<int, int>, int> m_known;
    QByteArray m_data;
};

struct GifFile {
    QSize screen{};
    QRect place{};
    QByteArray indices{};
    std::vector<QRgb> palette{}; // a power of two of them
    std::vector<QRgb> ownPalette{};
    bool interlaced = false;
    std::optional<int> transparent{};
    int bits = 2;
    QByteArray extension{}; // before the picture
    bool clearsLate = false;

    QByteArray bytes() const
    {
        QByteArray file("GIF89a");
        addLittle(file, static_cast<quint16>(screen.width()));
        addLittle(file, static_cast<quint16>(screen.height()));
        file += flagsOf(palette);
        file += QByteArray(2, '\0');
        addPalette(file, palette);
        file += extension;
        if (transparent) {
            file += QByteArray::fromHex("21f90401ffff");
            file += static_cast<char>(*transparent);
            file += '\0';
        }
        file += ',';
        for (const int number : {place.x(), place.y(), place.width(), place.height()})
            addLittle(file, static_cast<quint16>(number));
        file += static_cast<char>(flagsOf(ownPalette) | (interlaced ? 0x40 : 0));
        addPalette(file, ownPalette);
        return file + GifPacker(bits, indices, clearsLate).bytes() + ';';
    }

private:
    static char flagsOf(const std::vector<QRgb>& colours)
    {
        int power = 0;
        while ((2u << power) < colours.size())
            ++power;
        return static_cast<char>(colours.empty() ? 0 : 0x80 | power);
    }
    static void addPalette(QByteArray& file, const std::vector<QRgb>& colours)
    {
        for (const QRgb colour : colours)
            for (const int part : {qRed(colour), qGreen(colour), qBlue(colour)})
                file += static_cast<char>(part);
    }
};
