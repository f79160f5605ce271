#include "toolkit/pages/linebreaker.h"

#include "toolkit/pages/clusters.h"
#include "toolkit/pages/showncharacter.h"

#include <algorithm>
#include <cstdint>

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

bool isContinuation(unsigned char byte)
{
    return (byte & 0xC0) == 0x80;
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

// Adds up what the table tells of some bytes, whatever they are: a branch for each would take far longer.
struct Sum {
    const std::uint16_t* pairs;
    unsigned width = 0;
    unsigned all = 0; // has kNotTold when it is in any of them

    void add(unsigned pair)
    {
        width += pairs[pair];
        all |= pairs[pair];
    }
    // A byte must stand behind them.
    void addBytes(At at, std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i)
            add(at[i] | static_cast<unsigned>(at[i + 1]) << 8);
    }
    bool isTold() const { return (all & CharacterTable::kNotTold) == 0; }
};

constexpr std::ptrdiff_t kAtOnce = 8; // bytes

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

// Is asked of nearly every text of a report, and true for most. It may be false for one that fits.
bool LineBreaker::fits(QByteArrayView text) const
{
    const auto size = static_cast<std::size_t>(text.size());
    const At begin = reinterpret_cast<At>(text.data());
    if (size == 0)
        return true;
    if (size > kLongestLine || isContinuation(*begin))
        return false;
    Sum sum{m_table->pairs().data()};
    sum.addBytes(begin, size - 1);
    sum.add(begin[size - 1] | unsigned{' '} << 8);
    return sum.isTold() && static_cast<int>(sum.width) <= m_width;
}

// Goes on over as many characters as are told at once, and stops before one that does not fit or a newline.
LineBreaker::At LineBreaker::stepped(At at, At end, int& width) const
{
    for (const At last = end - at > kAtOnce ? at + kAtOnce : end; at < last;) {
        const ShownCharacter shown = showncharacter::at(at, end);
        const int further = m_table->of(shown.character);
        if (width + further > m_width || isNewline(*at))
            return at;
        width += further;
        at += shown.length;
    }
    return at;
}

// Returns the first character that does not fit, or the newline before it, else the end.
LineBreaker::At LineBreaker::filled(At at, At end) const
{
    for (int width = 0; at != end;) {
        Sum sum{m_table->pairs().data(), static_cast<unsigned>(width)};
        if (end - at > kAtOnce && !isContinuation(*at) && !isContinuation(at[kAtOnce])) {
            sum.addBytes(at, kAtOnce);
            if (sum.isTold() && static_cast<int>(sum.width) <= m_width) {
                at += kAtOnce;
                width = static_cast<int>(sum.width);
                continue;
            }
        }
        const At next = stepped(at, end, width);
        if (next - at < kAtOnce)
            return next;
        at = next;
    }
    return at;
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
    if (fits(bytes))
        return 1;
    const Text text = readable(bytes);
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
