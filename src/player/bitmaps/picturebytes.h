// Reads numbers of a picture file, and knows the sizes that a picture may have.
#pragma once

#include "player/bitmaps/bitmaplimits.h"

#include <QByteArrayView>
#include <QtEndian>

// Reads at a place that the caller knows to be there.
template <typename Number>
Number littleAt(QByteArrayView bytes, qsizetype place)
{
    return qFromLittleEndian<Number>(bytes.data() + place);
}

template <typename Number>
Number bigAt(QByteArrayView bytes, qsizetype place)
{
    return qFromBigEndian<Number>(bytes.data() + place);
}

inline quint8 byteAt(QByteArrayView bytes, qsizetype place)
{
    return static_cast<quint8>(bytes[place]);
}

inline bool isPictureSize(qint64 width, qint64 height)
{
    return width >= 1 && height >= 1 && width <= kMostBitmapSide && height <= kMostBitmapSide &&
           width * height <= kMostBitmapPixels;
}
