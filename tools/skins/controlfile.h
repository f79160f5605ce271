// Writes the lines of a skin's control file, each with its end.
#pragma once

#include "bitmaps.h"

#include <QByteArray>

QByteArray controlFile(const Design& design, const Bitmaps& bitmaps);

QByteArray headerLines(const Design& design);  // up to the window sizes
QByteArray settingLines(const Design& design); // hover style and description
QByteArray commentLine(const QString& text);
QByteArray lineOf(const SkinButton& button);
QByteArray lineOf(const SkinLabel& label);
QByteArray lineOf(const SkinLight& light);
QByteArray lineOf(const SkinSlider& slider);
QByteArray lineOf(const SkinDisplay& display);
QByteArray lineOf(const SkinCover& cover);
QByteArray lineOf(const SkinPlaylist& playlist);

template <class Elements>
QByteArray linesOf(const Elements& elements)
{
    QByteArray text;
    for (const auto& element : elements)
        text += lineOf(element);
    return text;
}

// Writes a field as the file wants it: in quotes when it holds a comma or blanks at its ends.
QByteArray field(const QString& text);
