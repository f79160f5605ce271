#include "platform/nametext.h"

#include "base/codepage.h"

#include <QStringBuilder>

#include <algorithm>

namespace nametext {

namespace {

constexpr char16_t kByteBase = 0xEF00;
constexpr char16_t kFirstByteForm = kByteBase + 0x80; // bytes below are always valid
constexpr char16_t kLastByteForm = kByteBase + 0xFF;
constexpr char16_t kReservedBase = 0xF000;

constexpr bool isReserved(char32_t c)
{
    return c == '\\' || c == ':' || c == '*' || c == '?';
}

constexpr bool isByteForm(char32_t c)
{
    return c >= kFirstByteForm && c <= kLastByteForm;
}

constexpr bool isReservedForm(char32_t c)
{
    return c >= kReservedBase && isReserved(c - kReservedBase);
}

// Every byte is looked at, for that can be done to many of them at once.
bool areAllPlain(QByteArrayView name)
{
    unsigned char odd = 0;
    for (const char c : name)
        odd |= static_cast<unsigned char>((c & 0x80) | (c == '\\') | (c == ':') | (c == '*') | (c == '?'));
    return odd == 0;
}

struct Sequence {
    char32_t character;
    int length; // bytes, 0 when they are no UTF-8
};

constexpr Sequence kInvalid{0, 0};

bool isContinuation(unsigned char byte)
{
    return (byte & 0xC0) == 0x80;
}

// The sequence of two or more bytes that begins at the lead byte; the shortest form only, no surrogates.
Sequence decode(const unsigned char* at, const unsigned char* end)
{
    const unsigned char lead = *at;
    const int length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC0 || lead > 0xF4 || end - at < length)
        return kInvalid;
    char32_t character = lead & (0xFFU >> (length + 1));
    for (int i = 1; i < length; ++i) {
        if (!isContinuation(at[i]))
            return kInvalid;
        character = (character << 6) | (at[i] & 0x3FU);
    }
    constexpr char32_t kSmallest[] = {0x80, 0x800, 0x10000};
    if (character < kSmallest[length - 2] || QChar::isSurrogate(character) ||
        character > QChar::LastValidCodePoint)
        return kInvalid;
    return {character, length};
}

QChar* putBytes(QChar* out, const unsigned char* bytes, int count)
{
    for (int i = 0; i < count; ++i)
        *out++ = QChar(static_cast<char16_t>(kByteBase + bytes[i]));
    return out;
}

QChar* putCharacter(QChar* out, char32_t character)
{
    if (QChar::requiresSurrogates(character)) {
        *out++ = QChar(QChar::highSurrogate(character));
        *out++ = QChar(QChar::lowSurrogate(character));
    } else {
        *out++ = QChar(static_cast<char16_t>(character));
    }
    return out;
}

char* putUtf8(char* out, char32_t c)
{
    const auto tail = [c](int shift) { return static_cast<char>(0x80U | ((c >> shift) & 0x3FU)); };
    if (c < 0x80) {
        *out++ = static_cast<char>(c);
    } else if (c < 0x800) {
        *out++ = static_cast<char>(0xC0U | (c >> 6));
        *out++ = tail(0);
    } else if (c < 0x10000) {
        *out++ = static_cast<char>(0xE0U | (c >> 12));
        *out++ = tail(6);
        *out++ = tail(0);
    } else {
        *out++ = static_cast<char>(0xF0U | (c >> 18));
        *out++ = tail(12);
        *out++ = tail(6);
        *out++ = tail(0);
    }
    return out;
}

} // namespace

QString toText(QByteArrayView name)
{
    return areAllPlain(name) ? QString::fromLatin1(name) : appended({}, name);
}

QString appended(const QString& begin, QByteArrayView name)
{
    if (areAllPlain(name))
        return begin % QLatin1String(name.data(), name.size());
    QString text(begin.size() + name.size(), Qt::Uninitialized); // no sequence has more units than bytes
    QChar* out = std::copy(begin.cbegin(), begin.cend(), text.data());
    const auto* at = reinterpret_cast<const unsigned char*>(name.data());
    const auto* const end = at + name.size();
    while (at < end) {
        if (*at < 0x80) {
            *out++ = QChar(static_cast<char16_t>(isReserved(*at) ? kReservedBase + *at : *at));
            ++at;
            continue;
        }
        const Sequence sequence = decode(at, end);
        const int length = std::max(sequence.length, 1);
        const bool asBytes =
            sequence.length == 0 || isByteForm(sequence.character) || isReservedForm(sequence.character);
        out = asBytes ? putBytes(out, at, length) : putCharacter(out, sequence.character);
        at += length;
    }
    text.truncate(out - text.constData());
    return text;
}

QByteArray toBytes(QStringView text)
{
    const auto isAscii = [](QChar c) { return c.unicode() < 0x80; };
    if (std::all_of(text.begin(), text.end(), isAscii))
        return text.toLatin1();
    QByteArray bytes(text.size() * 3, Qt::Uninitialized);
    char* out = bytes.data();
    for (qsizetype i = 0; i < text.size(); ++i) {
        char32_t c = text[i].unicode();
        if (isByteForm(c)) {
            *out++ = static_cast<char>(c - kByteBase);
            continue;
        }
        if (isReservedForm(c))
            c -= kReservedBase;
        else if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            c = QChar::surrogateToUcs4(text[i], text[i + 1]), ++i;
        else if (text[i].isSurrogate()) // half a character, which no name gives
            c = QChar::ReplacementCharacter;
        out = putUtf8(out, c);
    }
    bytes.truncate(out - bytes.constData());
    return bytes;
}

QString readable(const QString& text, const CodePage& codePage)
{
    QString shown = text;
    for (QChar& c : shown) {
        const char byte = static_cast<char>(c.unicode() & 0xFF);
        if (isReservedForm(c.unicode()))
            c = QChar(c.unicode() - kReservedBase);
        else if (isByteForm(c.unicode()))
            c = codePage.toText(QByteArrayView(&byte, 1)).at(0);
    }
    return shown;
}

} // namespace nametext
