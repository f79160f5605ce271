// Makes a document of a text with looks, to be painted.
#pragma once

#include <QFont>

class QTextDocument;
struct RichText;

struct TextFonts {
    QFont usual;
    QFont fixed;
    qreal zoom = 1;
};

// Replaces what the document held.
void fillDocument(QTextDocument& document, const RichText& text, const TextFonts& fonts);
