// Remembers what was asked about characters: how wide they are, and which belong to the one before.
#pragma once

#include "toolkit/pages/characterwidths.h"

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

class CharacterTable {
public:
    // The widths must outlive it.
    CharacterTable(const CharacterWidths& widths, bool bold);

    // A character that joins the one before has no width.
    int of(char32_t character) const;

    // Tells for a byte and the one behind it, which is the higher one, how wide the character is that begins
    // with the first, 0 for a character's second byte. kNotTold is in it where that takes more than the two:
    // for controls, longer characters, damage, and what was not asked for yet.
    using Pairs = std::vector<std::uint16_t>;
    static constexpr std::uint16_t kNotTold = 0x8000;
    const Pairs& pairs() const { return m_pairs; }

    // Such a character never begins a line.
    static bool joins(char32_t character);

private:
    static constexpr char32_t kBlock = 256;
    using Block = std::array<int, kBlock>;

    int measured(char32_t character) const;
    void tellAscii();
    void tellPair(char32_t character, int width) const;

    const CharacterWidths& m_widths;
    bool m_bold;
    mutable Pairs m_pairs;
    mutable std::array<std::unique_ptr<Block>, 256> m_blocks; // of the characters of one unit
};
