// The text of a skin's control file.
#pragma once

#include "bitmaps.h"

#include <QByteArray>

QByteArray controlFile(const Design& design, const Bitmaps& bitmaps);

// The lines of the elements alone; what an imported skin, too, has of them.
QByteArray elementLines(const Design& design, const Bitmaps& bitmaps);

// A field as the file wants it: in quotes when it holds a comma or blanks at its ends.
QByteArray field(const QString& text);
