// Looks for a text within others, in UTF-8 and without regard to case, many bytes at a time.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <array>
#include <vector>

class CasefoldSearch {
public:
    // Takes folded characters (database/sql/casefold.h), each a true one.
    explicit CasefoldSearch(const std::vector<char32_t>& characters);

    static constexpr qsizetype kNotFound = -1;

    // Tells where the first place that fits begins, at or behind that one. Of each letter two cases are seen,
    // if they are of the same size; a text that may hold it in another one (the Kelvin sign, say, for a k) is
    // told by mayHideIn.
    qsizetype findIn(QByteArrayView text, qsizetype from) const;
    qsizetype size() const { return m_size; } // bytes
    bool mayHideIn(QByteArrayView text) const;

private:
    // Is a character in two cases of the same size, or twice the same.
    struct Letter {
        std::array<char, 4> one{};
        std::array<char, 4> other{};
        int size = 0;
    };
    // All places that fit have this byte, in one case or the other.
    struct Pivot {
        qsizetype offset = 0;
        char one = 0;
        char other = 0;
    };

    void addLetter(char32_t folded);
    static Pivot pivotOf(const Letter& letter, qsizetype offset);
    bool fitsAt(const char* place) const;
    qsizetype findPlainly(QByteArrayView text, qsizetype from, qsizetype last) const;

    std::vector<Letter> m_letters;
    qsizetype m_size = 0;
    Pivot m_first;
    Pivot m_last;
    std::vector<QByteArray> m_hidden; // the letters that findIn does not see
};
