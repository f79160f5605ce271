// Remembers what was asked about characters: how wide they are, and which belong to the one before.
#pragma once

#include "toolkit/pages/characterwidths.h"

#include <array>
#include <memory>

class CharacterTable {
public:
    static constexpr int kAskFurther = 1 << 28; // is wider than any line

    // The widths must outlive it.
    CharacterTable(const CharacterWidths& widths, bool bold);

    // Returns kAskFurther for a byte that is no visible character by itself.
    int ofByte(unsigned char byte) const { return m_bytes[byte]; }
    const int* bytes() const { return m_bytes.data(); }
    int widest() const { return m_widest; } // of the visible characters of one byte

    // A character that joins the one before has no width.
    int of(char32_t character) const;

    // Such a character never begins a line.
    static bool joins(char32_t character);

private:
    static constexpr char32_t kBlock = 256;
    using Block = std::array<int, kBlock>;

    int measured(char32_t character) const;

    const CharacterWidths& m_widths;
    bool m_bold;
    int m_widest = 0;
    std::array<int, 256> m_bytes{};
    mutable std::array<std::unique_ptr<Block>, 256> m_blocks; // of the characters of one unit
};
