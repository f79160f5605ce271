#include "toolkit/richtext/richtext.h"

QString plainText(const RichText& text)
{
    QString plain;
    for (const TextParagraph& paragraph : text.paragraphs) {
        if (&paragraph != &text.paragraphs.front())
            plain += u'\n';
        for (const TextRun& run : paragraph.runs)
            plain += run.text;
    }
    return plain.replace(QChar(QChar::LineSeparator), u'\n');
}
