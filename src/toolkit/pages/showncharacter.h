// Tells which character is shown for what the bytes of a text hold, so that nothing in them is obeyed.
#pragma once

#include "base/utf8.h"

struct ShownCharacter {
    char32_t character;
    int length; // bytes that it stands for
};

namespace showncharacter {

constexpr char32_t kUnreadable = 0xFFFD;

// The controls of two bytes and the separators of lines and paragraphs.
inline bool isBlank(char32_t character)
{
    return (character >= 0x7F && character < 0xA0) || character == 0x2028 || character == 0x2029;
}

// Such a character turns round what stands behind it. The marks that only have a direction are harmless.
inline bool turnsText(char32_t character)
{
    return (character >= 0x202A && character <= 0x202E) || (character >= 0x2066 && character <= 0x2069);
}

// A byte that is no UTF-8 is shown as the library's own conversion shows it.
inline ShownCharacter at(const unsigned char* at, const unsigned char* end)
{
    if (*at < 0x80)
        return {*at < U' ' || *at == 0x7F ? U' ' : char32_t{*at}, 1};
    const utf8::Sequence sequence = utf8::decode(at, end);
    if (sequence.length == 0)
        return {kUnreadable, 1};
    const char32_t character = sequence.character;
    return {turnsText(character) ? kUnreadable : isBlank(character) ? U' ' : character, sequence.length};
}

} // namespace showncharacter
