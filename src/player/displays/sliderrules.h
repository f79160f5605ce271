// Tells where a slider's thumb stands for a value, and what value it has where the pointer drags it. Numbers
// are pixels of the face; a track without height is horizontal, any other vertical, full at its top.
#pragma once

#include <QPoint>
#include <QRect>

// Fractions below 0 and above 1 count as these.
QPoint thumbPlace(const QRect& track, float fraction);

struct ThumbDrag {
    QPoint place;   // of the thumb, on its track
    float fraction; // from 0 to 1; 0 on a track without length
};

// Places the thumb after the pointer has moved by `movement` (its place in the thumb less where it grabbed
// it) from where the thumb is.
ThumbDrag draggedThumb(const QRect& track, QPoint thumb, QPoint movement);
