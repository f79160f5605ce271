// Looks at a text eight bytes at a time for bytes that an export cannot leave as they are.
#pragma once

#include <QByteArrayView>

#include <cstdint>
#include <cstring>

namespace bytewords {

using Word = std::uint64_t;

constexpr Word kOnes = ~Word{0} / 255;
constexpr Word kHighBits = kOnes * 0x80;

// Is not 0 when one of the bytes is less than that, which is 128 at most.
constexpr Word less(Word bytes, unsigned char than)
{
    return (bytes - kOnes * than) & ~bytes & kHighBits;
}

// Is not 0 when one of the bytes is that.
constexpr Word equal(Word bytes, char that)
{
    return less(bytes ^ (kOnes * static_cast<unsigned char>(that)), 1);
}

inline Word at(const char* place, std::size_t count = sizeof(Word))
{
    Word bytes = kOnes * 'x';
    std::memcpy(&bytes, place, count);
    return bytes;
}

// Tells whether `isFound` is 0 for every word of the text; what fills the last one up is 'x'.
template <typename IsFound>
bool none(QByteArrayView text, IsFound&& isFound)
{
    const char* place = text.data();
    auto left = static_cast<std::size_t>(text.size());
    for (; left >= sizeof(Word); place += sizeof(Word), left -= sizeof(Word))
        if (isFound(at(place)) != 0)
            return false;
    return left == 0 || isFound(at(place, left)) == 0;
}

} // namespace bytewords
