#include "database/sql/casefold.h"

#include <QChar>
#include <QString>

#include <algorithm>
#include <array>

namespace {

constexpr char32_t kLastWithCase = 0x1FFFF; // beyond it there are no letters with case

struct Variant {
    char32_t folded;
    char32_t character;
};

const std::vector<Variant>& variants()
{
    static const std::vector<Variant> all = [] {
        std::vector<Variant> found;
        for (char32_t c = 0; c <= kLastWithCase; ++c)
            if (QChar::toCaseFolded(c) != c)
                found.push_back({QChar::toCaseFolded(c), c});
        std::ranges::sort(found, {}, &Variant::folded);
        return found;
    }();
    return all;
}

// Tells how many bytes a character takes whose first byte is that one, 0 for a byte that begins none.
int sizeByFirst(unsigned char first)
{
    if (first < 0x80)
        return 1;
    if (first >= 0xC2 && first <= 0xDF)
        return 2;
    if (first >= 0xE0 && first <= 0xEF)
        return 3;
    return first >= 0xF0 && first <= 0xF4 ? 4 : 0;
}

bool isValid(char32_t code, int size)
{
    constexpr std::array<char32_t, 5> kSmallest{0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    return code >= kSmallest[static_cast<std::size_t>(size)] && code <= 0x10FFFF && !surrogate;
}

} // namespace

casefold::Character casefold::characterAt(QByteArrayView text, qsizetype at)
{
    const auto byte = [&](qsizetype place) { return static_cast<unsigned char>(text[place]); };
    const unsigned char first = byte(at);
    const int size = sizeByFirst(first);
    if (size == 1)
        return {first, 1};
    const Character alone{kByte + first, 1};
    if (size == 0 || text.size() - at < size)
        return alone;
    char32_t code = first & (0x7FU >> size);
    for (int i = 1; i < size; ++i) {
        if ((byte(at + i) & 0xC0U) != 0x80U)
            return alone;
        code = (code << 6U) + (byte(at + i) & 0x3FU);
    }
    return isValid(code, size) ? Character{code, size} : alone;
}

char32_t casefold::folded(char32_t character)
{
    return character < kByte ? QChar::toCaseFolded(character) : character;
}

void casefold::fold(QByteArrayView text, std::vector<char32_t>& characters)
{
    characters.clear();
    for (qsizetype at = 0; at < text.size();) {
        const Character character = characterAt(text, at);
        characters.push_back(folded(character.code));
        at += character.size;
    }
}

std::vector<char32_t> casefold::variantsOf(char32_t folded)
{
    const std::vector<Variant>& all = variants();
    std::vector<char32_t> result{folded};
    for (auto at = std::ranges::lower_bound(all, folded, {}, &Variant::folded);
         at != all.end() && at->folded == folded; ++at)
        result.push_back(at->character);
    return result;
}

QByteArray casefold::encoded(char32_t character)
{
    // Qt's fromUcs4 is not used: it takes U+FEFF for a byte order mark and drops it.
    QString text;
    text.append(QStringView(QChar::fromUcs4(character)));
    return text.toUtf8();
}
