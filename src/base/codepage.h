// A single-byte code page has 256 characters, one for each byte value, so that a byte's position in a file is
// the character's position in the text. Bytes that the page leaves undefined keep their own value
// (U+0080..U+009F).
#pragma once

#include <QByteArrayView>
#include <QString>

#include <array>

class CodePage {
public:
    using Table = std::array<char16_t, 256>;

    explicit CodePage(const Table& table) : m_table(table) {}
    static CodePage windows1252();

    QString toText(QByteArrayView bytes) const;
    QChar* put(QChar* out, QByteArrayView bytes) const; // a character for each byte; returns their end

private:
    Table m_table;
};

// Reads the text of a file, which is UTF-8 where the bytes are valid UTF-8 (a byte order mark is dropped),
// else of the code page.
QString textOfBytes(QByteArrayView bytes, const CodePage& otherwise);
void appendTextOfBytes(QString& text, QByteArrayView bytes, const CodePage& otherwise);
