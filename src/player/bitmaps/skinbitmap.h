// Reads the bitmaps of skins: BMP (1, 4, 8, 16, 24 and 32 bits, runs, bit fields), GIF (its first picture),
// JPEG and PNG, told apart by their content, whatever the file's name.
//
// A bitmap is there whole or not at all: one that is cut short, damaged, empty or larger than the limits
// gives nothing, and before that is known no more memory is taken than its data can yield. Bits that are
// wrong but still a picture's cannot be told.
#pragma once

#include "player/bitmaps/bitmaplimits.h"

#include <QByteArray>
#include <QImage>
#include <QString>

#include <optional>

class FileNumbers;

// The picture is of Format_RGB32, or Format_ARGB32_Premultiplied where the file says what is transparent (a
// BMP only by an alpha mask), at a pixel ratio of 1. Colours are the file's numbers: profiles and gamma are
// not applied.
std::optional<QImage> skinBitmapOf(const QByteArray& content);

// What cannot be read counts as damaged. It uses one file number for the time of the call.
std::optional<QImage> loadSkinBitmap(FileNumbers& numbers, const QString& path);
