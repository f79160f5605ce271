// Reads the runs of a BMP of 4 or 8 bits.
#pragma once

#include "player/bitmaps/bmpheader.h"
#include "player/bitmaps/picturebytes.h"

#include <algorithm>

// Calls paint(x, line, count, indexAt) for each piece of a line inside the picture, lines counted in the
// file's order; indexAt(i) is the palette index of its pixel i. It is false when the data end before the
// picture does.
template <typename Paint>
bool walkBmpRuns(const BmpHeader& header, QByteArrayView data, Paint paint)
{
    const auto nibble = [](quint8 byte, int i) { return i % 2 == 0 ? byte >> 4 : byte & 15; };
    const auto piece = [&](qint64 x, qint64 line, int count, auto indexAt) {
        if (x < header.width)
            paint(static_cast<int>(x), static_cast<int>(line),
                  static_cast<int>(std::min<qint64>(count, header.width - x)), indexAt);
    };
    qint64 x = 0;
    qint64 line = 0;
    for (qsizetype at = 0; line < header.height;) {
        if (at + 2 > data.size()) // the end's mark may be missing, pixels may not
            return line == header.height - 1 && x >= header.width;
        const quint8 count = byteAt(data, at);
        const quint8 value = byteAt(data, at + 1);
        at += 2;
        if (count > 0) {
            if (header.depth == 8)
                piece(x, line, count, [=](int) { return value; });
            else
                piece(x, line, count, [=](int i) { return nibble(value, i); });
            x += count;
        } else if (value == 0) {
            x = 0;
            ++line;
        } else if (value == 1) {
            return true;
        } else if (value == 2) {
            if (at + 2 > data.size())
                return false;
            x += byteAt(data, at);
            line += byteAt(data, at + 1);
            at += 2;
        } else {
            const qsizetype length = header.depth == 8 ? value : (value + 1) / 2;
            if (length > data.size() - at)
                return false;
            const QByteArrayView pixels = data.sliced(at, length);
            if (header.depth == 8)
                piece(x, line, value, [=](int i) { return byteAt(pixels, i); });
            else
                piece(x, line, value, [=](int i) { return nibble(byteAt(pixels, i / 2), i); });
            x += value;
            at += length + length % 2;
        }
    }
    return true;
}
