// Is a text with its looks as plain data: what it says and how that wants to look; nothing of how it is
// painted.
#pragma once

#include <QString>

#include <optional>
#include <vector>

enum class FontFamily { Usual, Serif, Fixed };
enum class TextAlignment { Natural, Left, Centre, Right, Justified };
enum class TextLevel { Line, Raised, Lowered };

struct TextLook {
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeOut = false;
    TextLevel level = TextLevel::Line;
    FontFamily family = FontFamily::Usual;
    int halfPoints = 0;            // 0: the usual size
    std::optional<quint32> colour; // 0xRRGGBB; nothing: the usual colour

    bool operator==(const TextLook&) const = default;
};

struct TextRun {
    QString text; // U+2028 begins a new line of the same paragraph
    TextLook look;
};

// The distances are in twips.
struct ParagraphLook {
    TextAlignment alignment = TextAlignment::Natural;
    int left = 0;
    int right = 0;
    int first = 0; // of the first line, beside `left`
    int before = 0;
    int after = 0;
};

struct TextParagraph {
    ParagraphLook look;
    std::vector<TextRun> runs;
};

struct RichText {
    std::vector<TextParagraph> paragraphs;
    bool isWhole = true; // false: it was longer than these and ends somewhere behind them

    static constexpr qsizetype kMostCharacters = 2'000'000;
    static constexpr qsizetype kMostPieces = 100'000; // paragraphs and runs
};

// Returns the text without its looks, a line for each paragraph.
QString plainText(const RichText& text);
