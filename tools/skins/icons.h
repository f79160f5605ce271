// Draws signs for buttons on a grid of 12 by 12.
#pragma once

#include <QColor>
#include <QPainter>

enum class Icon {
    None,
    Previous,
    Play,
    Pause,
    Stop,
    Next,
    Back,
    Forward,
    Eject,
    Shuffle,
    Repeat,
    Intro,
    StopAfter,
    Speaker,
    Louder,
    Quieter,
    Close,
    Minimise,
    Fold,
    Preferences,
    Palette,
    Tag,
    Picture,
    Tiles,
    Mixer,
    AddFile,
    AddDirectory,
    Remove,
    Up,
    Down,
    Clear,
    Load,
    Save,
    Clock,
    Before,
    After,
    PlayPause,
    PointA,
    PointB,
};

// Draws it in the middle of a place; `scale` gives pixels to a unit, whole ones keep it sharp.
void drawIcon(QPainter& painter, const QRect& place, Icon icon, const QColor& colour, double scale = 1);
