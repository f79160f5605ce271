// Matches patterns with wildcards over texts in UTF-8, without regard to the case of any letter (simple case
// folding).
//
// A character is a code point; a byte that belongs to none counts as one character and equals only itself.
#pragma once

#include "database/sql/casefoldsearch.h"

#include <QByteArrayView>

#include <vector>

enum class LikeSyntax {
    Sql,  // "%" stands for any characters, "_" for any one
    Find, // "*" stands for any characters
};

class LikePattern {
public:
    LikePattern(QByteArrayView pattern, LikeSyntax syntax);

    // The whole text has to fit. It takes time in proportion to its length, except for a pattern with "_". It
    // is not for two threads at a time.
    bool matches(QByteArrayView text) const;

private:
    // Stands between two wildcards for any characters.
    struct Piece {
        std::vector<char32_t> characters; // folded; kAnyOne for any one
        std::vector<std::size_t>
            borders; // as Knuth, Morris and Pratt have it; empty with an any-one wildcard
    };
    static constexpr char32_t kAnyOne = 0xFFFFFFFF;

    void add(Piece piece);
    bool matchesSlowly(QByteArrayView text) const;
    static bool fitsAt(const Piece& piece, const std::vector<char32_t>& text, std::size_t at);
    static std::size_t find(const Piece& piece, const std::vector<char32_t>& text, std::size_t from,
                            std::size_t end);

    std::vector<Piece> m_pieces; // at least one; the first stands at the text's start, the last at its end
    bool m_quick = false;        // a short "%text%text%": m_needles serve all but the rarest texts
    std::vector<CasefoldSearch> m_needles;
    mutable std::vector<char32_t> m_text;
};
