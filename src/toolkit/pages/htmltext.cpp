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

} // namespace

QByteArray htmltext::escaped(QByteArrayView text)
{
    QByteArray out;
    out.reserve(text.size() + text.size() / 8);
    const auto* at = reinterpret_cast<const unsigned char*>(text.data());
    const auto* const end = at + text.size();
    while (at < end) {
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
