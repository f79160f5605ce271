#include "base/filenametext.h"

#include "base/codepage.h"
#include "base/utf8.h"

#include <algorithm>

namespace filenametext {

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

// Every byte is looked at, in a form that the compiler can carry out on many of them at once: a byte that is
// reserved makes the least difference 0.
bool areAllPlain(QByteArrayView name)
{
    using Byte = unsigned char;
    Byte all = 0;
    Byte least = 0xFF;
    for (const char c : name) {
        const auto byte = static_cast<Byte>(c);
        all |= byte;
        for (const char reserved : {'\\', ':', '*', '?'})
            least = std::min(least, static_cast<Byte>(byte ^ reserved));
    }
    return all < 0x80 && least != 0;
}

QChar* putBytes(QChar* out, const unsigned char* bytes, int count)
{
    for (int i = 0; i < count; ++i)
        *out++ = QChar(static_cast<char16_t>(kByteBase + bytes[i]));
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

struct Put {
    QChar* end;
    bool isUtf8;
};

// Puts no more characters than the name has bytes.
Put put(QChar* out, QByteArrayView name)
{
    if (areAllPlain(name))
        return {utf8::putAscii(out, name), true};
    bool isUtf8 = true;
    const auto* at = reinterpret_cast<const unsigned char*>(name.data());
    const auto* const end = at + name.size();
    while (at < end) {
        if (*at < 0x80) {
            *out++ = QChar(static_cast<char16_t>(isReserved(*at) ? kReservedBase + *at : *at));
            ++at;
            continue;
        }
        const utf8::Sequence sequence = utf8::decode(at, end);
        const int length = std::max(sequence.length, 1);
        const bool asBytes =
            sequence.length == 0 || isByteForm(sequence.character) || isReservedForm(sequence.character);
        out = asBytes ? putBytes(out, at, length) : utf8::put(out, sequence.character);
        isUtf8 = isUtf8 && sequence.length != 0;
        at += length;
    }
    return {out, isUtf8};
}

} // namespace

QString toText(QByteArrayView name)
{
    QString text(name.size(), Qt::Uninitialized);
    text.truncate(put(text.data(), name).end - text.constData());
    return text;
}

bool append(QString& text, QByteArrayView name)
{
    const qsizetype before = text.size();
    text.resize(before + name.size());
    const Put done = put(text.data() + before, name);
    text.truncate(done.end - text.constData());
    return done.isUtf8;
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

} // namespace filenametext
