// Reads one UTF-8 sequence at a time, for code that must know what each byte belongs to. It is strict and
// takes the shortest form only, no surrogates, nothing beyond U+10FFFF.
#pragma once

#include <QByteArrayView>
#include <QChar>

namespace utf8 {

struct Sequence {
    char32_t character;
    int length; // bytes, 0 when they are no UTF-8
};

// Reads the sequence that begins at `at`, whose byte is 0x80 or more.
inline Sequence decode(const unsigned char* at, const unsigned char* end)
{
    constexpr Sequence kInvalid{0, 0};
    const unsigned char lead = *at;
    if (lead >= 0xC2 && lead < 0xE0 && end - at >= 2 && (at[1] & 0xC0) == 0x80) // most are of two bytes
        return {(lead & 0x1FU) << 6 | (at[1] & 0x3FU), 2};
    const int length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC0 || lead > 0xF4 || end - at < length)
        return kInvalid;
    char32_t character = lead & (0xFFU >> (length + 1));
    for (int i = 1; i < length; ++i) {
        if ((at[i] & 0xC0) != 0x80)
            return kInvalid;
        character = (character << 6) | (at[i] & 0x3FU);
    }
    constexpr char32_t kSmallest[] = {0x80, 0x800, 0x10000};
    if (character < kSmallest[length - 2] || QChar::isSurrogate(character) ||
        character > QChar::LastValidCodePoint)
        return kInvalid;
    return {character, length};
}

// Returns where the next character goes; no sequence gives more units than it has bytes.
inline QChar* put(QChar* out, char32_t character)
{
    if (QChar::requiresSurrogates(character)) {
        *out++ = QChar(QChar::highSurrogate(character));
        *out++ = QChar(QChar::lowSurrogate(character));
    } else {
        *out++ = QChar(static_cast<char16_t>(character));
    }
    return out;
}

// Makes a character of each byte, many at once, and returns the same as above.
inline QChar* putAscii(QChar* out, QByteArrayView bytes)
{
    auto* const units = reinterpret_cast<char16_t*>(out);
    const char* const from = bytes.data();
    const qsizetype count = bytes.size();
    for (qsizetype i = 0; i < count; ++i)
        units[i] = static_cast<unsigned char>(from[i]);
    return out + count;
}

} // namespace utf8
