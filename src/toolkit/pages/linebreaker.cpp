#include "toolkit/pages/linebreaker.h"

#include "toolkit/pages/clusters.h"
#include "toolkit/pages/showncharacter.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace {

using At = const unsigned char*;

// Marks without a width would never fill a line.
constexpr std::ptrdiff_t kLongestLine = 4096; // bytes

bool isBlank(unsigned char byte)
{
    return byte <= ' ';
}

bool isNewline(unsigned char byte)
{
    return byte == '\n' || byte == '\r';
}

At withoutBlanks(At begin, At end)
{
    while (end != begin && isBlank(end[-1]))
        --end;
    return end;
}

bool joinsAt(At at, At end)
{
    return at != end && *at >= 0x80 && CharacterTable::joins(showncharacter::at(at, end).character);
}

At behindNewline(At at, At end)
{
    return at + (*at == '\r' && end - at > 1 && at[1] == '\n' ? 2 : 1);
}

// Returns where the text goes on behind the blanks, of which a newline is the last.
At behindBlanks(At at, At end)
{
    const At first = at;
    while (at != end && isBlank(*at) && !isNewline(*at))
        ++at;
    if (at != end && isNewline(*at))
        return behindNewline(at, end);
    return at != first && joinsAt(at, end) ? at - 1 : at;
}

At lastBackslash(At begin, At full, At end)
{
    for (At at = full; at != begin; --at)
        if (at[-1] == '\\' && !joinsAt(at, end))
            return at;
    return begin;
}

// Returns where a word begins behind blanks with something before them.
At lastWord(At begin, At full, At end)
{
    for (At at = full; at != begin; --at)
        if (isBlank(at[-1]) && !joinsAt(at, end))
            return withoutBlanks(begin, at) == begin ? begin : at;
    return begin;
}

constexpr std::uint64_t everyByte(unsigned char byte)
{
    return 0x0101010101010101U * byte;
}

// Has a high bit for each byte, and perhaps for one behind it, that is not a visible character.
std::uint64_t unusual(const void* bytes)
{
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    return ((word - everyByte(' ')) | word | (word + everyByte(1))) & everyByte(0x80);
}

bool isVisibleAscii(At at, std::size_t size)
{
    constexpr std::size_t kWord = sizeof(std::uint64_t);
    if (size < kWord)
        return std::all_of(at, at + size, [](unsigned char byte) { return byte >= ' ' && byte < 0x7F; });
    std::uint64_t found = unusual(at + size - kWord);
    for (std::size_t i = 0; i + kWord < size; i += kWord)
        found |= unusual(at + i);
    return found == 0;
}

} // namespace

LineBreaker::Text LineBreaker::readable(QByteArrayView text)
{
    const At begin = reinterpret_cast<At>(text.data());
    const At end = withoutBlanks(begin, begin + text.size());
    const std::ptrdiff_t size = end - begin;
    const bool isPath = (size > 2 && begin[1] == ':' && begin[2] == '\\') ||
                        (size > 1 && begin[0] == '\\' && begin[1] == '\\');
    return {begin, end, isPath};
}

bool LineBreaker::fitsAtOnce(const Text& text) const
{
    const std::ptrdiff_t size = text.end - text.begin;
    return size <= kLongestLine && size * m_table->widest() <= m_width &&
           isVisibleAscii(text.begin, static_cast<std::size_t>(size));
}

// Returns the first character that does not fit, or the newline before it, else the end.
LineBreaker::At LineBreaker::filled(At at, At end) const
{
    const int* const widths = m_table->bytes();
    for (int width = 0;;) {
        while (at != end && width + widths[*at] <= m_width)
            width += widths[*at++];
        if (at == end || isNewline(*at) || widths[*at] != CharacterTable::kAskFurther)
            return at;
        const ShownCharacter shown = showncharacter::at(at, end);
        const int further = shown.character < 0x80 ? widths[shown.character] : m_table->of(shown.character);
        if (width + further > m_width)
            return at;
        width += further;
        at += shown.length;
    }
}

// Breaks a line that is full before the character there.
LineBreaker::Broken LineBreaker::brokenAt(const Text& text, At begin, At full) const
{
    if (isBlank(*full)) {
        const At next = behindBlanks(full, text.end);
        if (next != full)
            return {withoutBlanks(begin, full), next};
    }
    const At at = text.isPath ? lastBackslash(begin, full, text.end) : begin;
    if (at != begin)
        return {at, at};
    const At word = lastWord(begin, full, text.end);
    if (word != begin)
        return {withoutBlanks(begin, word), word};
    const At cluster = clusters::lastBoundary(begin, full, text.end);
    return {cluster, cluster};
}

LineBreaker::Broken LineBreaker::line(const Text& text, At begin) const
{
    const At full = filled(begin, begin + std::min(text.end - begin, kLongestLine));
    return full == text.end ? Broken{full, full} : brokenAt(text, begin, full);
}

qsizetype LineBreaker::count(QByteArrayView bytes) const
{
    const Text text = readable(bytes);
    if (fitsAtOnce(text))
        return 1;
    qsizetype lines = 0;
    At at = text.begin;
    do {
        at = line(text, at).next;
        ++lines;
    } while (at != text.end);
    return lines;
}

QString LineBreaker::shown(QByteArrayView bytes)
{
    QString out(bytes.size(), Qt::Uninitialized); // no character has more units than bytes
    QChar* unit = out.data();
    At at = reinterpret_cast<At>(bytes.data());
    for (const At end = at + bytes.size(); at != end;) {
        const ShownCharacter shown = showncharacter::at(at, end);
        unit = utf8::put(unit, shown.character);
        at += shown.length;
    }
    out.truncate(unit - out.constData());
    return out;
}
