// Reads the first picture of a GIF by rules of our own: the toolkit's reader takes one that ends too early
// for whole.
#pragma once

#include <QByteArrayView>
#include <QImage>

#include <optional>

// Takes a file that begins with "GIF87a" or "GIF89a". The picture is as large as the file's screen, or larger
// where the picture is; what the picture leaves of the screen is transparent.
std::optional<QImage> gifBitmap(QByteArrayView file);
