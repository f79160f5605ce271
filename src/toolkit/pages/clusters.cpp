#include "toolkit/pages/clusters.h"

#include "toolkit/pages/showncharacter.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <vector>

namespace {

using At = const unsigned char*;

constexpr std::ptrdiff_t kLookBack = 256; // bytes, of which a character has fewer
constexpr std::ptrdiff_t kLookAhead = 64;

bool isAscii(unsigned char byte)
{
    return byte < 0x80;
}

// Goes back to where a character's bytes begin, or what is none.
At characterStart(At begin, At at)
{
    for (int i = 0; i < 3 && at != begin && (*at & 0xC0) == 0x80; ++i)
        --at;
    return at;
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
        text += QString::fromUcs4(&character, 1);
        places.resize(static_cast<std::size_t>(text.size()), at);
    }

    QString text;
    std::vector<At> places;
};

} // namespace

const unsigned char* clusters::lastBoundary(At begin, At limit, At end)
{
    const bool isFirst = limit == begin;
    if (!isFirst && isAscii(limit[-1]) && isAscii(*limit))
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
