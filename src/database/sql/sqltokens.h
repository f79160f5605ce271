// Takes an SQL statement apart into its words, signs and quoted texts.
#pragma once

#include <QByteArrayView>

#include <algorithm>
#include <array>

struct SqlToken {
    QByteArrayView text; // as it is written; empty at the end of the statement
    qsizetype at = 0;    // in the statement

    bool is(QByteArrayView word) const { return text.compare(word, Qt::CaseInsensitive) == 0; }
    bool isWord() const; // a name without quotes, a keyword

    template <std::size_t Count>
    bool isOneOf(const std::array<QByteArrayView, Count>& words) const
    {
        return std::any_of(words.begin(), words.end(), [&](QByteArrayView word) { return is(word); });
    }
};

// Leaves out blanks and comments. A quote that is not closed goes on to the end.
class SqlTokens {
public:
    explicit SqlTokens(QByteArrayView text) : m_text(text) {}

    SqlToken next();

private:
    bool startsWith(QByteArrayView start) const { return m_text.sliced(m_at).startsWith(start); }
    void skipPast(QByteArrayView end, qsizetype from);
    void skipIdle();
    void skipToken();
    void skipQuoted(char quote);

    QByteArrayView m_text;
    qsizetype m_at = 0;
};
