// Reads BMP files as pictures by rules of our own: the toolkit's reader takes one that ends too early for
// whole.
#pragma once

#include <QByteArrayView>
#include <QImage>

#include <optional>

// Takes a file that begins with "BM". Pixels that runs leave out are of the palette's first colour; those
// that runs put beside the picture are dropped.
std::optional<QImage> bmpBitmap(QByteArrayView file);
