#include "toolkit/richtext/textdocument.h"

#include "base/twips.h"
#include "toolkit/richtext/richtext.h"

#include <QFontMetricsF>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace {

// Laying out a paragraph takes time with the square of its length; so a longer one is shown as several.
constexpr qsizetype kLongestPiece = 2000;
constexpr int kFarthest = 7200;  // twips
constexpr int kLineHeight = 120; // percent
constexpr int kTabWidth = 8;     // characters of the fixed width
constexpr quint32 kBlack = 0;

// A document takes some characters for its own, and others have no shape.
QChar shownCharacter(QChar character)
{
    const char16_t unit = character.unicode();
    const bool isControl = unit < 0x20 && unit != u'\t';
    const bool isOfDocuments = unit == QChar::ParagraphSeparator ||
                               unit == QChar::ObjectReplacementCharacter ||
                               (unit >= 0xFDD0 && unit <= 0xFDEF);
    return isControl || isOfDocuments ? QChar(u' ') : character;
}

QString shownText(QString text)
{
    std::ranges::transform(text, text.begin(), shownCharacter);
    return text;
}

Qt::Alignment qtAlignment(TextAlignment alignment)
{
    switch (alignment) {
    case TextAlignment::Left:
        return Qt::AlignLeft | Qt::AlignAbsolute;
    case TextAlignment::Centre:
        return Qt::AlignHCenter;
    case TextAlignment::Right:
        return Qt::AlignRight | Qt::AlignAbsolute;
    case TextAlignment::Justified:
        return Qt::AlignJustify;
    case TextAlignment::Natural:
        break;
    }
    return Qt::AlignLeading;
}

class Filling {
public:
    Filling(QTextDocument& document, const TextFonts& fonts) : m_cursor(&document), m_fonts(fonts) {}

    void addParagraph(const TextParagraph& paragraph);

private:
    void addRun(const TextRun& run);
    QTextBlockFormat blockFormat(const ParagraphLook& look) const;
    QTextCharFormat charFormat(const TextLook& look) const;
    QFont fontOf(const TextLook& look) const;
    qreal pixels(int twips) const { return m_fonts.zoom * twips / kTwipsPerPixel; }

    QTextCursor m_cursor;
    TextFonts m_fonts;
    bool m_isFirst = true;
    qsizetype m_length = 0; // of the block in work
};

void Filling::addParagraph(const TextParagraph& paragraph)
{
    const TextLook look = paragraph.runs.empty() ? TextLook() : paragraph.runs.back().look;
    if (m_isFirst) {
        m_cursor.setBlockFormat(blockFormat(paragraph.look));
        m_cursor.setBlockCharFormat(charFormat(look));
    } else {
        m_cursor.insertBlock(blockFormat(paragraph.look), charFormat(look));
    }
    m_isFirst = false;
    m_length = 0;
    for (const TextRun& run : paragraph.runs)
        addRun(run);
}

void Filling::addRun(const TextRun& run)
{
    const QTextCharFormat format = charFormat(run.look);
    QStringView rest = run.text;
    while (!rest.isEmpty()) {
        if (m_length == kLongestPiece) {
            m_cursor.insertBlock(m_cursor.blockFormat(), format);
            m_length = 0;
        }
        const QStringView piece = rest.left(kLongestPiece - m_length);
        m_cursor.insertText(shownText(piece.toString()), format);
        m_length += piece.size();
        rest = rest.sliced(piece.size());
    }
}

QTextBlockFormat Filling::blockFormat(const ParagraphLook& look) const
{
    const int left = std::clamp(look.left, 0, kFarthest);
    QTextBlockFormat format;
    format.setLineHeight(kLineHeight, QTextBlockFormat::ProportionalHeight);
    format.setAlignment(qtAlignment(look.alignment));
    format.setLeftMargin(pixels(left));
    format.setRightMargin(pixels(std::clamp(look.right, 0, kFarthest)));
    format.setTextIndent(pixels(std::clamp(look.first, -left, kFarthest)));
    format.setTopMargin(pixels(std::clamp(look.before, 0, kFarthest)));
    if (look.first < 0) // behind a list's sign its text begins where the next lines do
        format.setTabPositions({QTextOption::Tab(pixels(std::min(-look.first, left)), QTextOption::LeftTab)});
    format.setBottomMargin(pixels(std::clamp(look.after, 0, kFarthest)));
    return format;
}

QFont Filling::fontOf(const TextLook& look) const
{
    QFont font = look.family == FontFamily::Fixed ? m_fonts.fixed : m_fonts.usual;
    if (look.family == FontFamily::Serif)
        font.setFamilies({QStringLiteral("Serif")});
    font.setPointSizeF((look.halfPoints > 0 ? look.halfPoints / 2.0 : font.pointSizeF()) * m_fonts.zoom);
    font.setBold(look.bold);
    font.setItalic(look.italic);
    font.setUnderline(look.underline);
    font.setStrikeOut(look.strikeOut);
    return font;
}

// Black is what people mean who choose no colour; on a dark ground the usual one can be read.
QTextCharFormat Filling::charFormat(const TextLook& look) const
{
    QTextCharFormat format;
    format.setFont(fontOf(look));
    if (look.colour && *look.colour != kBlack)
        format.setForeground(QColor(QRgb(*look.colour)));
    if (look.level != TextLevel::Line)
        format.setVerticalAlignment(look.level == TextLevel::Raised ? QTextCharFormat::AlignSuperScript
                                                                    : QTextCharFormat::AlignSubScript);
    return format;
}

void setTabs(QTextDocument& document, const TextFonts& fonts)
{
    QFont fixed = fonts.fixed;
    fixed.setPointSizeF(fixed.pointSizeF() * fonts.zoom);
    QTextOption option = document.defaultTextOption();
    option.setTabStopDistance(kTabWidth * QFontMetricsF(fixed).horizontalAdvance(u'0'));
    document.setDefaultTextOption(option);
}

} // namespace

void fillDocument(QTextDocument& document, const RichText& text, const TextFonts& fonts)
{
    document.clear();
    document.setUndoRedoEnabled(false);
    setTabs(document, fonts);
    QTextCursor whole(&document);
    whole.beginEditBlock();
    Filling filling(document, fonts);
    for (const TextParagraph& paragraph : text.paragraphs)
        filling.addParagraph(paragraph);
    whole.endEditBlock();
}
