// Remembers what was asked about characters: how wide they are, and which belong to the one before.
#pragma once

#include "toolkit/pages/characterwidths.h"

#include <array>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

class CharacterTable {
public:
    // The widths must outlive it.
    CharacterTable(const CharacterWidths& widths, bool bold);

    // Knows what the other knows and asks no further, so that several threads may use such at once while the
    // other is left alone.
    struct Frozen {};
    CharacterTable(const CharacterTable& other, Frozen);
    // Was it asked for something that it does not know since this was asked last?
    bool hasMissed() const { return std::exchange(m_hasMissed, false); }

    // A character that joins the one before has no width.
    int of(char32_t character) const;

    // Tells for a byte and the one behind it, which is the higher one, how wide the character is that begins
    // with the first, 0 for a character's second byte. kNotTold is in it where that takes more than the two:
    // for controls, longer characters, damage, and what was not asked for yet.
    using Pairs = std::vector<std::uint16_t>;
    static constexpr std::uint16_t kNotTold = 0x8000;
    const Pairs& pairs() const { return m_told->pairs; }

    // Such a character never begins a line.
    static bool joins(char32_t character);

private:
    static constexpr char32_t kBlock = 256;
    using Block = std::array<int, kBlock>;
    struct Told {
        Pairs pairs;
        std::array<std::unique_ptr<Block>, 256> blocks; // of the characters of one unit
    };

    int missed() const;
    int measured(char32_t character) const;
    void tellAscii();
    void tellPair(char32_t character, int width) const;

    const CharacterWidths& m_widths;
    bool m_bold;
    bool m_isFrozen = false;
    mutable bool m_hasMissed = false;
    std::shared_ptr<Told> m_told;
};
