// Tells how wide single characters are. A text is as wide as the sum of its characters: there is no kerning.
#pragma once

#include <array>

class CharacterWidths {
public:
    static constexpr int kUnits = 1024; // make the font's size

    struct Table {
        std::array<int, 128> ascii{}; // control characters are not asked for
    };

    virtual ~CharacterWidths() = default;

    virtual const Table& table(bool bold) const = 0;
    virtual int of(char32_t character, bool bold) const = 0; // of any character
    // In the same units.
    virtual int ascent() const = 0;
    virtual int lineHeight() const = 0;
};
