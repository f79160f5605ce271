// Holds what the skin that is loaded has set, beside what its controls themselves hold.
#pragma once

#include "player/skin/skinmarks.h"

#include <QImage>

struct ButtonRecord {
    QString key{};    // one character, or none
    QPoint pressed{}; // of the pressed picture in the resource bitmap
};

struct SliderRecord {
    QRect track{};
    QRect thumb{}; // in the resource bitmap
};

struct SkinState {
    // These are the window sizes in twips, by size mode, which is 0, 1 or 2.
    std::array<QSize, kSizeModes> WindowSizes{};
    int sizeMode = 0;
    int HoverStyle = 0;

    // They stand by their numbers; the first of each is not used.
    std::array<ButtonRecord, kButtons + 1> buttons{};
    std::array<SliderRecord, kSliders + 1> sliders{};
    std::array<DisplayFont, kDisplays + 1> displays{};
    std::vector<MarkState> marks{}; // of the first ones

    QImage background{}; // 32 bits a pixel
    SkinOutline outline{};
};
