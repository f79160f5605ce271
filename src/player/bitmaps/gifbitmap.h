// The first picture of a GIF, read by rules of our own: the toolkit's reader takes one that ends too early
// for whole.
#pragma once

#include <QByteArrayView>
#include <QImage>

#include <optional>

// For a file that begins with "GIF87a" or "GIF89a". As large as the file's screen, or larger where the
// picture is; what the picture leaves of the screen is transparent.
std::optional<QImage> gifBitmap(QByteArrayView file);
