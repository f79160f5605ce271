#include "toolkit/pages/clusters.h"

#include "toolkit/pages/showncharacter.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <vector>

namespace {

using At = const unsigned char*;

constexpr std::ptrdiff_t kLookBack = 256; // bytes, of which a character has fewer
constexpr std::ptrdiff_t kLookAhead = 64;

// Such a character is one to its reader by itself, unless a mark follows it.
bool isAlone(char32_t c)
{
    return c < 0x300 || (c >= 0x370 && c <= 0x482) || (c >= 0x48A && c < 0x590) ||
           (c >= 0x1E00 && c < 0x2000) || (c >= 0x3041 && c <= 0x3096) || (c >= 0x30A0 && c <= 0x30FF) ||
           (c >= 0x4E00 && c < 0xA000);
}

// Goes back to where a character's bytes begin, or what is none.
At characterStart(At begin, At at)
{
    for (int i = 0; i < 3 && at != begin && (*at & 0xC0) == 0x80; ++i)
        --at;
    return at;
}

bool isBetweenAlone(At begin, At limit, At end)
{
    const At before = characterStart(begin, limit - 1);
    return isAlone(showncharacter::at(before, end).character) &&
           isAlone(showncharacter::at(limit, end).character);
}

// Is a piece of the text with the place of each unit and of its end.
struct Piece {
    Piece(At from, At to, At end)
    {
        At at = from;
        for (; at < to; at += showncharacter::at(at, end).length)
            add(at, showncharacter::at(at, end).character);
        places.push_back(at);
    }

    void add(At at, char32_t character)
    {
        for (const char16_t unit : QChar::fromUcs4(character))
            text += QChar(unit);
        places.resize(static_cast<std::size_t>(text.size()), at);
    }

    QString text;
    std::vector<At> places;
};

} // namespace

const unsigned char* clusters::lastBoundary(At begin, At limit, At end)
{
    const bool isFirst = limit == begin;
    if (!isFirst && isBetweenAlone(begin, limit, end))
        return limit;
    const At from = limit - begin > kLookBack ? characterStart(begin, limit - kLookBack) : begin;
    const At to = end - limit > kLookAhead ? limit + kLookAhead : end;
    const Piece piece(from, to, end);
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, piece.text);
    const auto place = std::lower_bound(piece.places.begin(), piece.places.end(), limit);
    finder.setPosition(place - piece.places.begin());
    if (!isFirst && !finder.isAtBoundary())
        finder.toPreviousBoundary();
    if (finder.position() <= 0)
        finder.toNextBoundary();
    return piece.places[static_cast<std::size_t>(finder.position())];
}
