// Says what a pattern with wildcards fits, as plainly as possible and in no hurry: the code under test is
// held against it.
#pragma once

#include "database/sql/likepattern.h"

#include <QChar>

#include <string>
#include <string_view>
#include <vector>

namespace likereference {

inline std::string encoded(char32_t code)
{
    const auto byte = [](char32_t bits) { return static_cast<char>(static_cast<unsigned char>(bits)); };
    const auto tail = [&](int shift) { return byte(0x80 | ((code >> shift) & 0x3F)); };
    if (code < 0x80)
        return {byte(code)};
    if (code < 0x800)
        return {byte(0xC0 | code >> 6), tail(0)};
    if (code < 0x10000)
        return {byte(0xE0 | code >> 12), tail(6), tail(0)};
    return {byte(0xF0 | code >> 18), tail(12), tail(6), tail(0)};
}

// Returns the code that so many bytes would hold, whether or not they are a character.
inline char32_t bitsOf(std::string_view bytes)
{
    char32_t code = static_cast<unsigned char>(bytes[0]) & (0x7FU >> bytes.size());
    for (const char byte : bytes.substr(1))
        code = code << 6 | (static_cast<unsigned char>(byte) & 0x3FU);
    return code;
}

// Bytes are a character when it is written with just these bytes. A byte that belongs to none becomes a
// negative number, each byte another one.
inline std::vector<int> decoded(std::string_view text)
{
    std::vector<int> codes;
    while (!text.empty()) {
        std::size_t size = 1;
        int code = static_cast<unsigned char>(text[0]) < 0x80 ? text[0] : static_cast<signed char>(text[0]);
        for (std::size_t tried = 2; tried <= 4 && tried <= text.size(); ++tried) {
            const char32_t bits = bitsOf(text.substr(0, tried));
            const bool possible = bits <= 0x10FFFF && !(bits >= 0xD800 && bits <= 0xDFFF);
            if (possible && encoded(bits) == text.substr(0, tried)) {
                size = tried;
                code = static_cast<int>(bits);
                break;
            }
        }
        codes.push_back(code);
        text.remove_prefix(size);
    }
    return codes;
}

inline int folded(int code)
{
    return code < 0 ? code : static_cast<int>(QChar::toCaseFolded(static_cast<char32_t>(code)));
}

// It notes which starts of the text the pattern's characters so far fit, one row after the other.
inline bool fits(std::string_view text, std::string_view pattern, LikeSyntax syntax)
{
    const std::vector<int> letters = decoded(text);
    std::vector<char> row(letters.size() + 1);
    row[0] = 1;
    for (const int wanted : decoded(pattern)) {
        std::vector<char> next(row.size());
        const bool anyRun = wanted == (syntax == LikeSyntax::Sql ? '%' : '*');
        const bool anyOne = wanted == '_' && syntax == LikeSyntax::Sql;
        next[0] = anyRun && row[0];
        for (std::size_t at = 1; at < row.size(); ++at)
            if (anyRun)
                next[at] = next[at - 1] || row[at];
            else
                next[at] = row[at - 1] && (anyOne || folded(letters[at - 1]) == folded(wanted));
        row.swap(next);
    }
    return row.back() != 0;
}

} // namespace likereference
