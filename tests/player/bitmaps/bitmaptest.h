// Holds what tests ask of a bitmap.
#pragma once

#include "player/bitmaps/skinbitmap.h"

#include <gtest/gtest.h>

#include <vector>

// Returns the pixels line by line, as #AARRGGBB, nothing premultiplied, and none for no bitmap.
inline std::vector<QRgb> pixelsOf(const std::optional<QImage>& image)
{
    std::vector<QRgb> pixels;
    if (!image)
        return pixels;
    const QImage plain = image->convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < plain.height(); ++y)
        for (int x = 0; x < plain.width(); ++x)
            pixels.push_back(plain.pixel(x, y));
    return pixels;
}

// Every beginning of the file gives nothing or all of the bitmap; those shorter than `needed` nothing.
inline void expectWholeOrNothing(const QByteArray& file, qsizetype needed)
{
    const std::optional<QImage> whole = skinBitmapOf(file);
    ASSERT_TRUE(whole);
    for (qsizetype length = 0; length < file.size(); ++length) {
        const std::optional<QImage> image = skinBitmapOf(QByteArray(file.constData(), length));
        EXPECT_FALSE(image && length < needed) << length << " of " << file.size();
        EXPECT_TRUE(!image || *image == *whole) << length;
    }
}
