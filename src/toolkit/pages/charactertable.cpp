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

} // namespace

CharacterTable::CharacterTable(const CharacterWidths& widths, bool bold) : m_widths(widths), m_bold(bold)
{
    const CharacterWidths::Table& table = widths.table(bold);
    m_bytes.fill(kAskFurther);
    for (std::size_t byte = ' '; byte < 0x7F; ++byte) {
        m_bytes[byte] = std::clamp(table.ascii[byte], 0, kWidest);
        m_widest = std::max(m_widest, m_bytes[byte]);
    }
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
    return std::clamp(m_widths.of(character, m_bold), 0, kWidest);
}

int CharacterTable::of(char32_t character) const
{
    const std::size_t number = character / kBlock;
    if (number >= m_blocks.size())
        return measured(character);
    std::unique_ptr<Block>& block = m_blocks[number];
    if (!block) {
        block = std::make_unique<Block>();
        block->fill(kUnknown);
    }
    int& width = (*block)[character % kBlock];
    if (width == kUnknown)
        width = measured(character);
    return width;
}
