#include "base/codepage.h"

#include "base/utf8.h"

#include <optional>

namespace {

// The characters of the bytes 0x80 to 0x9F in Windows-1252 stand here; 0 stands where the page defines
// nothing.
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};

// Most texts are ASCII alone; every byte is looked at, for that can be done to many of them at once.
bool isAscii(QByteArrayView bytes)
{
    unsigned char all = 0;
    for (const char byte : bytes)
        all |= static_cast<unsigned char>(byte);
    return all < 0x80;
}

// Returns nothing when the bytes are no UTF-8.
std::optional<QChar*> putUtf8(QChar* out, QByteArrayView bytes)
{
    const auto* at = reinterpret_cast<const unsigned char*>(bytes.data());
    const auto* const end = at + bytes.size();
    while (at < end) {
        if (*at < 0x80) {
            *out++ = QChar(char16_t(*at++));
            continue;
        }
        const utf8::Sequence sequence = utf8::decode(at, end);
        if (sequence.length == 0)
            return std::nullopt;
        out = utf8::put(out, sequence.character);
        at += sequence.length;
    }
    return out;
}

// Puts no more characters than there are bytes.
QChar* putText(QChar* out, QByteArrayView bytes, const CodePage& otherwise)
{
    constexpr QByteArrayView kMark("\xEF\xBB\xBF");
    if (isAscii(bytes))
        return utf8::putAscii(out, bytes);
    const auto end = putUtf8(out, bytes.startsWith(kMark) ? bytes.sliced(kMark.size()) : bytes);
    return end ? *end : otherwise.put(out, bytes);
}

} // namespace

CodePage CodePage::windows1252()
{
    Table table{};
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<char16_t>(i);
    for (std::size_t i = 0; i < kUpperControls.size(); ++i)
        if (kUpperControls[i] != 0)
            table[0x80 + i] = kUpperControls[i];
    return CodePage(table);
}

QChar* CodePage::put(QChar* out, QByteArrayView bytes) const
{
    for (const char byte : bytes)
        *out++ = QChar(m_table[static_cast<unsigned char>(byte)]);
    return out;
}

QString CodePage::toText(QByteArrayView bytes) const
{
    QString text(bytes.size(), Qt::Uninitialized);
    put(text.data(), bytes);
    return text;
}

QString textOfBytes(QByteArrayView bytes, const CodePage& otherwise)
{
    QString text(bytes.size(), Qt::Uninitialized);
    text.truncate(putText(text.data(), bytes, otherwise) - text.constData());
    return text;
}

void appendTextOfBytes(QString& text, QByteArrayView bytes, const CodePage& otherwise)
{
    const qsizetype before = text.size();
    text.resize(before + bytes.size());
    text.truncate(putText(text.data() + before, bytes, otherwise) - text.constData());
}
