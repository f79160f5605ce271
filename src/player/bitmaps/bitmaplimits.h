// Says how large a picture of a skin may be.
#pragma once

#include <QtGlobal>

inline constexpr int kMostBitmapSide = 16384;
inline constexpr qint64 kMostBitmapPixels = qint64{32} * 1024 * 1024; // a screen of 7680 x 4320 fits
inline constexpr qint64 kMostBitmapBytes = qint64{128} * 1024 * 1024; // of the file; longer ones are not read
