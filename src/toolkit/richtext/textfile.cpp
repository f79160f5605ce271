#include "toolkit/richtext/textfile.h"

#include "base/codepage.h"
#include "base/textrules.h"
#include "toolkit/richtext/rtfreader.h"

#include <QStringDecoder>

#include <optional>

namespace {

// Of a text without looks the columns line up.
RichText richTextOfLines(const QString& text)
{
    TextLook look;
    look.family = FontFamily::Fixed;
    RichText rich;
    rich.isWhole = text.size() <= RichText::kMostCharacters;
    const QStringList lines = rich.isWhole ? textrules::lines(text) : QStringList();
    rich.isWhole = rich.isWhole && lines.size() <= RichText::kMostPieces;
    if (rich.isWhole)
        for (const QString& line : lines)
            rich.paragraphs.push_back({{}, {{line, look}}});
    return rich;
}

// Other systems' editors write UTF-16, too, with a byte order mark in front.
std::optional<QStringDecoder::Encoding> markedEncoding(QByteArrayView bytes)
{
    if (bytes.startsWith("\xFF\xFE"))
        return QStringDecoder::Utf16LE;
    return bytes.startsWith("\xFE\xFF") ? std::optional(QStringDecoder::Utf16BE) : std::nullopt;
}

QString textOf(QByteArrayView bytes, const CodePage& otherwise)
{
    constexpr qsizetype kMark = 2; // bytes
    const auto encoding = markedEncoding(bytes);
    return encoding ? QString(QStringDecoder(*encoding).decode(bytes.sliced(kMark)))
                    : textOfBytes(bytes, otherwise);
}

} // namespace

RichText richTextOf(QByteArrayView bytes, const CodePage& otherwise)
{
    return isRtf(bytes) ? readRtf(bytes, otherwise) : richTextOfLines(textOf(bytes, otherwise));
}
