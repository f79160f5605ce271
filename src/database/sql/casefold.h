// Makes characters of UTF-8 comparable without their case.
#pragma once

#include <QByteArrayView>

#include <vector>

namespace casefold {

inline constexpr char32_t kByte = 0x110000; // plus a byte that belongs to no character

// Is the character that begins there and how many bytes it takes.
struct Character {
    char32_t code;
    int size;
};
Character characterAt(QByteArrayView text, qsizetype at);

char32_t folded(char32_t character);
void fold(QByteArrayView text, std::vector<char32_t>& characters); // replaces them

// Returns all characters that fold to that one, itself included.
std::vector<char32_t> variantsOf(char32_t folded);

QByteArray encoded(char32_t character);

} // namespace casefold
