// Marks are pictures that a skin shows while the player is in some state, beyond its lights of one colour.
#pragma once

#include "player/skin/skinelements.h"

#include <optional>

inline constexpr int kMarks = 16; // of one skin

enum class MarkState { Playing, Paused, Stopped, Mono, Stereo, Shuffle, Repeat };

struct SkinMark {
    MarkState state = MarkState::Playing;
    QRect place{};
    QPoint picture{}; // in the resource bitmap
};

// Reads "playing,26,28,9,9,1,2": a state, a place, where its picture begins. It is nothing for what is no
// mark.
std::optional<SkinMark> markOf(const QString& text);
