// Unpacks the packed pixels of a GIF.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

// Returns the first `most` pixels, each of codeBits bits (2 to 8) before they were packed; fewer when the
// data end before or hold a code that there cannot be.
QByteArray unpackedGif(QByteArrayView data, int codeBits, qint64 most);
