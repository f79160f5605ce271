// Reads what a set of pictures says in texts beside them: its outline, and the colours of its list. Both are
// files of sections in brackets and of lines "key=value", both are made by strangers.
#pragma once

#include "player/skin/skinelements.h"

#include <QByteArray>

#include <optional>

inline constexpr qint64 kMostHintBytes = qint64(256) << 10;
inline constexpr int kMostHintPolygons = 500;

// Reads "[Normal]": "NumPoints" has the points of each polygon, "PointList" their coordinates. What lies in
// any of them belongs to the window, and the outline is that of the first size: what the others have beside
// and below it is whole. There is none when the text gives no outline that leaves something of the first
// size.
SkinOutline outlineOfSet(const QByteArray& text, const WindowSizes& sizes);

struct ListColours {
    SkinColour text = 0;
    SkinColour back = 0;
};

// Reads "Normal" and "NormalBG" of "[Text]", as "#RRGGBB". It is nothing when one is missing, or when a text
// in the one could hardly be read on the other.
std::optional<ListColours> listColoursOfSet(const QByteArray& text);
