#include "toolkit/richtext/textfile.h"

#include "base/codepage.h"
#include "base/textrules.h"
#include "toolkit/richtext/rtfreader.h"

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

} // namespace

RichText richTextOf(QByteArrayView bytes, const CodePage& otherwise)
{
    return isRtf(bytes) ? readRtf(bytes, otherwise) : richTextOfLines(textOfBytes(bytes, otherwise));
}
