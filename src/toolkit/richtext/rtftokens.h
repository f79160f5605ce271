// Parts the bytes of an RTF file into tokens. Whatever the bytes are, each token takes some of them, so that
// there are no more tokens than bytes.
#pragma once

#include <QByteArrayView>

#include <optional>

struct RtfToken {
    enum class Kind { End, Open, Close, Word, Symbol, Text };

    Kind kind = Kind::End;
    QByteArrayView bytes;      // a word's letters, a symbol's one character, a text in its code page
    std::optional<int> number; // that follows a word

    int numberOr(int otherwise) const { return number.value_or(otherwise); }
    bool isOn() const { return numberOr(1) != 0; } // of a word that switches something
};

class RtfTokens {
public:
    explicit RtfTokens(QByteArrayView bytes) : m_bytes(bytes) {}

    // The token's bytes last until the next call. What lies behind the word "bin" is left out.
    RtfToken next();

private:
    RtfToken control();
    RtfToken word();
    RtfToken byteInHexadecimal();
    RtfToken text();
    std::optional<int> number();
    QByteArrayView take(qsizetype count);
    bool isDigit(qsizetype at) const;

    QByteArrayView m_bytes;
    qsizetype m_at = 0;
    char m_byte = 0;
};
