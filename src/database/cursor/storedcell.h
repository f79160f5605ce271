// Says how a cell lies in memory: a byte for its length in one place, its text in another. A text too long
// for the byte has its length before it.
#pragma once

#include <QByteArrayView>

#include <cstdint>
#include <cstring>
#include <optional>

// All of it is inline: a million rows have many cells.
namespace storedcell {

using Cell = std::optional<QByteArrayView>; // nothing stands for a null
using Length = std::uint8_t;
using LongLength = std::uint32_t; // SQLite lets no text be longer than it tells

inline constexpr Length kLong = 0xFE;
inline constexpr Length kNull = 0xFF;

inline Length lengthOf(const Cell& cell)
{
    if (!cell)
        return kNull;
    return cell->size() < kLong ? static_cast<Length>(cell->size()) : kLong;
}

// Returns the bytes of room that its text takes.
inline std::size_t sizeOf(const Cell& cell)
{
    const std::size_t size = cell ? static_cast<std::size_t>(cell->size()) : 0;
    return lengthOf(cell) == kLong ? sizeof(LongLength) + size : size;
}

// Returns the place behind it.
inline char* write(char* place, const Cell& cell)
{
    if (!cell || cell->isEmpty())
        return place;
    if (lengthOf(cell) == kLong) {
        const auto length = static_cast<LongLength>(cell->size());
        std::memcpy(place, &length, sizeof length);
        place += sizeof length;
    }
    std::memcpy(place, cell->data(), static_cast<std::size_t>(cell->size()));
    return place + cell->size();
}

// Returns the text there, empty for a null; the next cell's follows it.
inline QByteArrayView read(const char* place, Length length)
{
    if (length != kLong)
        return {place, length == kNull ? 0 : static_cast<qsizetype>(length)};
    LongLength size = 0;
    std::memcpy(&size, place, sizeof size);
    return {place + sizeof size, static_cast<qsizetype>(size)};
}

} // namespace storedcell
