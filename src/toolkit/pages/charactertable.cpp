#include "toolkit/pages/charactertable.h"

#include <QChar>

#include <algorithm>

namespace {

constexpr int kUnknown = -1;
constexpr int kWidest = 16 * CharacterWidths::kUnits; // a font that says more is not believed

bool isModifier(char32_t character) // of the skin of an emoji
{
    return character >= 0x1F3FB && character <= 0x1F3FF;
}

bool isContinuation(unsigned byte)
{
    return (byte & 0xC0) == 0x80;
}

} // namespace

CharacterTable::CharacterTable(const CharacterWidths& widths, bool bold)
    : m_widths(widths), m_bold(bold),
      m_told(std::make_shared<Told>(Told{Pairs(std::size_t{kBlock} * kBlock, kNotTold), {}}))
{
    tellAscii();
}

CharacterTable::CharacterTable(const CharacterTable& other, Frozen)
    : m_widths(other.m_widths), m_bold(other.m_bold), m_isFrozen(true), m_told(other.m_told)
{
}

void CharacterTable::tellAscii()
{
    for (unsigned second = 0; second < kBlock; ++second) {
        if (isContinuation(second))
            continue;
        const auto pairs = m_told->pairs.begin() + static_cast<std::ptrdiff_t>(second * kBlock);
        for (unsigned first = ' '; first < 0x7F; ++first)
            pairs[first] = static_cast<std::uint16_t>(of(first));
        std::fill(pairs + 0x80, pairs + 0xC0, std::uint16_t{0});
    }
}

void CharacterTable::tellPair(char32_t character, int width) const
{
    constexpr char32_t kFirst = 0xA0; // those below are controls
    constexpr char32_t kEnd = 0x800;
    if (character < kFirst || character >= kEnd)
        return;
    const std::size_t first = 0xC0 | character >> 6;
    const std::size_t second = 0x80 | (character & 0x3F);
    m_told->pairs[second << 8 | first] = static_cast<std::uint16_t>(width);
}

bool CharacterTable::joins(char32_t character)
{
    constexpr char32_t kFirstMark = 0x300;
    if (character < kFirstMark)
        return false;
    switch (QChar::category(character)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_SpacingCombining:
    case QChar::Mark_Enclosing:
    case QChar::Other_Format: // joiners and marks of a direction
        return true;
    default:
        return isModifier(character);
    }
}

int CharacterTable::measured(char32_t character) const
{
    if (joins(character) && QChar::category(character) != QChar::Mark_SpacingCombining)
        return 0;
    const int width =
        character < 0x80 ? m_widths.table(m_bold).ascii[character] : m_widths.of(character, m_bold);
    return std::clamp(width, 0, kWidest);
}

int CharacterTable::missed() const
{
    m_hasMissed = true;
    return 0;
}

int CharacterTable::of(char32_t character) const
{
    const std::size_t number = character / kBlock;
    if (number >= m_told->blocks.size())
        return m_isFrozen ? missed() : measured(character);
    std::unique_ptr<Block>& block = m_told->blocks[number];
    if (m_isFrozen && (!block || (*block)[character % kBlock] == kUnknown))
        return missed();
    if (!block) {
        block = std::make_unique<Block>();
        block->fill(kUnknown);
    }
    int& width = (*block)[character % kBlock];
    if (width == kUnknown) {
        width = measured(character);
        tellPair(character, width);
    }
    return width;
}
