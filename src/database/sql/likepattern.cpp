#include "database/sql/likepattern.h"

#include "database/sql/casefold.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);
// The quick way may compare the whole pattern at each place of a text.
constexpr qsizetype kLongestQuick = 128; // bytes

bool isAscii(QByteArrayView text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<signed char>(c) >= 0; });
}

// Tells for each place of the text how long its longest true start is that is also its end.
std::vector<std::size_t> bordersOf(const std::vector<char32_t>& text)
{
    std::vector<std::size_t> borders(text.size());
    std::size_t border = 0;
    for (std::size_t at = 1; at < text.size(); ++at) {
        while (border > 0 && text[at] != text[border])
            border = borders[border - 1];
        border += text[at] == text[border] ? 1 : 0;
        borders[at] = border;
    }
    return borders;
}

} // namespace

LikePattern::LikePattern(QByteArrayView pattern, LikeSyntax syntax)
{
    const char anyRun = syntax == LikeSyntax::Sql ? '%' : '*';
    Piece piece;
    for (qsizetype at = 0; at < pattern.size();) {
        const casefold::Character character = casefold::characterAt(pattern, at);
        at += character.size;
        if (character.code == static_cast<unsigned char>(anyRun)) {
            if (m_pieces.empty() || !piece.characters.empty()) // several in a row are one
                add(std::exchange(piece, {}));
        } else if (character.code == U'_' && syntax == LikeSyntax::Sql)
            piece.characters.push_back(kAnyOne);
        else
            piece.characters.push_back(casefold::folded(character.code));
    }
    add(std::move(piece));

    m_quick = pattern.size() <= kLongestQuick && m_pieces.size() > 1 && m_pieces.front().characters.empty() &&
              m_pieces.back().characters.empty();
    for (const Piece& one : m_pieces)
        m_quick = m_quick && std::all_of(one.characters.begin(), one.characters.end(),
                                         [](char32_t c) { return c < casefold::kByte; });
    if (!m_quick)
        return;
    for (const Piece& one : m_pieces)
        if (!one.characters.empty())
            m_needles.emplace_back(one.characters);
}

void LikePattern::add(Piece piece)
{
    const bool hasAnyOne = std::ranges::find(piece.characters, kAnyOne) != piece.characters.end();
    if (!hasAnyOne)
        piece.borders = bordersOf(piece.characters);
    m_pieces.push_back(std::move(piece));
}

bool LikePattern::matches(QByteArrayView text) const
{
    if (!m_quick)
        return matchesSlowly(text);
    qsizetype at = 0;
    for (const CasefoldSearch& needle : m_needles) {
        const qsizetype found = needle.findIn(text, at);
        if (found == CasefoldSearch::kNotFound)
            return !isAscii(text) && std::ranges::any_of(m_needles, [&](const CasefoldSearch& one) {
                return one.mayHideIn(text);
            }) && matchesSlowly(text);
        at = found + needle.size();
    }
    return true;
}

bool LikePattern::fitsAt(const Piece& piece, const std::vector<char32_t>& text, std::size_t at)
{
    for (const char32_t character : piece.characters) {
        if (character != kAnyOne && character != text[at])
            return false;
        ++at;
    }
    return true;
}

// Tells where the first place that fits begins, between those two, or kNone.
std::size_t LikePattern::find(const Piece& piece, const std::vector<char32_t>& text, std::size_t from,
                              std::size_t end)
{
    const std::size_t size = piece.characters.size();
    if (size == 0)
        return from;
    if (piece.borders.empty()) {
        for (std::size_t at = from; at + size <= end; ++at)
            if (fitsAt(piece, text, at))
                return at;
        return kNone;
    }
    std::size_t matched = 0;
    for (std::size_t at = from; at < end; ++at) {
        while (matched > 0 && piece.characters[matched] != text[at])
            matched = piece.borders[matched - 1];
        matched += piece.characters[matched] == text[at] ? 1 : 0;
        if (matched == size)
            return at + 1 - size;
    }
    return kNone;
}

// The first place for each piece is the best one: it leaves the most room for the others.
bool LikePattern::matchesSlowly(QByteArrayView text) const
{
    casefold::fold(text, m_text);
    const Piece& first = m_pieces.front();
    const Piece& last = m_pieces.back();
    if (m_pieces.size() == 1)
        return m_text.size() == first.characters.size() && fitsAt(first, m_text, 0);
    if (m_text.size() < first.characters.size() + last.characters.size())
        return false;
    const std::size_t end = m_text.size() - last.characters.size();
    if (!fitsAt(first, m_text, 0) || !fitsAt(last, m_text, end))
        return false;
    std::size_t at = first.characters.size();
    for (std::size_t i = 1; i + 1 < m_pieces.size(); ++i) {
        at = find(m_pieces[i], m_text, at, end);
        if (at == kNone)
            return false;
        at += m_pieces[i].characters.size();
    }
    return true;
}
