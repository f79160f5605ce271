// Reads what stands before the pixels of a BMP.
#pragma once

#include <QByteArrayView>
#include <QRgb>

#include <array>
#include <optional>

struct BmpHeader {
    int width = 0;
    int height = 0;
    bool topDown = false;
    int depth = 0;                   // bits of a pixel: 1, 4, 8, 16, 24 or 32
    bool runs = false;               // of depth 4 or 8
    quint32 masks[4] = {};           // of depth 16 or 32: red, green, blue, alpha; the last may be 0
    std::array<QRgb, 256> palette{}; // black where the file has no colour
    qsizetype pixels = 0;            // where they begin; may lie beyond the file
};

// Takes a file that begins with "BM". It is nothing for a kind that there is not, or a size beyond the
// limits.
std::optional<BmpHeader> bmpHeader(QByteArrayView file);
