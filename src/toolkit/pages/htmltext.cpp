#include "toolkit/pages/htmltext.h"

#include "toolkit/pages/bytewords.h"
#include "toolkit/pages/piecewriter.h"
#include "toolkit/pages/showncharacter.h"

namespace {

bool isPlain(QByteArrayView text)
{
    using bytewords::equal;
    return bytewords::none(text, [](bytewords::Word bytes) {
        return (bytes & bytewords::kHighBits) | bytewords::less(bytes, ' ') | equal(bytes, '\x7F') |
               equal(bytes, '&') | equal(bytes, '<') | equal(bytes, '>') | equal(bytes, '"');
    });
}

QByteArrayView sign(char32_t character)
{
    switch (character) {
    case U'&':
        return "&amp;";
    case U'<':
        return "&lt;";
    case U'>':
        return "&gt;";
    case U'"':
        return "&quot;";
    case U' ':
        return " ";
    case showncharacter::kUnreadable:
        return "\xEF\xBF\xBD";
    default:
        return {};
    }
}

// Counts the bytes of a line's end that stand there. A lone return ends a line too, which a browser would
// show as a blank.
int lineEnd(const unsigned char* at, const unsigned char* end)
{
    if (*at == '\r')
        return end - at > 1 && at[1] == '\n' ? 2 : 1;
    return *at == '\n' ? 1 : 0;
}

} // namespace

QByteArray htmltext::escaped(QByteArrayView text)
{
    QByteArray out;
    out.reserve(text.size() + text.size() / 8);
    const auto* at = reinterpret_cast<const unsigned char*>(text.data());
    const auto* const end = at + text.size();
    while (at < end) {
        if (const int length = lineEnd(at, end)) {
            out += '\n';
            at += length;
            continue;
        }
        const ShownCharacter shown = showncharacter::at(at, end);
        const QByteArrayView instead = sign(shown.character);
        out.append(instead.isEmpty() ? QByteArrayView(at, shown.length) : instead);
        at += shown.length;
    }
    return out;
}

void htmltext::addContent(PieceWriter& out, QByteArrayView text)
{
    if (isPlain(text)) {
        out.add('>');
        out.add(text);
        return;
    }
    out.add(bytewords::none(text, [](bytewords::Word bytes) { return bytes & bytewords::kHighBits; })
                ? ">"
                : " dir=\"auto\">");
    out.add(escaped(text));
}
