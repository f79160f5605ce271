// A text with looks as one line that a test can compare.
#pragma once

#include "toolkit/richtext/richtext.h"

#include <QByteArray>
#include <QStringList>

// "bold", "serif", "12pt", "#ff0000" and so on, as far as the look is not the usual one.
inline QByteArray words(const TextLook& look)
{
    QByteArrayList words;
    const auto add = [&](bool is, const QByteArray& word) {
        if (is)
            words += word;
    };
    add(look.bold, "bold");
    add(look.italic, "italic");
    add(look.underline, "underlined");
    add(look.strikeOut, "struck");
    add(look.level == TextLevel::Raised, "raised");
    add(look.level == TextLevel::Lowered, "lowered");
    add(look.family == FontFamily::Serif, "serif");
    add(look.family == FontFamily::Fixed, "fixed");
    add(look.halfPoints != 0, QByteArray::number(look.halfPoints / 2.0) + "pt");
    if (look.colour)
        words += '#' + QByteArray::number(*look.colour + 0x1000000U, 16).right(6);
    return words.join(' ');
}

inline QByteArray words(const ParagraphLook& look)
{
    constexpr const char* kAlignments[] = {"", "left", "centred", "right", "justified"};
    QByteArrayList words;
    if (look.alignment != TextAlignment::Natural)
        words += kAlignments[static_cast<int>(look.alignment)];
    const auto add = [&](const char* word, int twips) {
        if (twips != 0)
            words += word + QByteArray::number(twips);
    };
    add("li", look.left);
    add("ri", look.right);
    add("fi", look.first);
    add("sb", look.before);
    add("sa", look.after);
    return words.join(' ');
}

// A paragraph a line: "(centred)one <bold:two> three". The looks of what has the usual ones are left out.
inline std::string written(const RichText& text)
{
    QByteArrayList lines;
    for (const TextParagraph& paragraph : text.paragraphs) {
        const QByteArray place = words(paragraph.look);
        QByteArray line = place.isEmpty() ? place : '(' + place + ')';
        for (const TextRun& run : paragraph.runs) {
            const QByteArray look = words(run.look);
            line += look.isEmpty() ? run.text.toUtf8() : '<' + look + ':' + run.text.toUtf8() + '>';
        }
        lines += line;
    }
    return lines.join('\n').toStdString();
}
