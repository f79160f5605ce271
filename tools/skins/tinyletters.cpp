#include "tinyletters.h"

namespace {

// These are the rows of a letter, from the top, as hexadecimal digits; the leftmost pixel is the highest bit.
constexpr const char* kRows[] = {
    "A699F9", "BE9E9E", "C78887", "DE999E", "EF8E8F", "FF8E88",  "G78B97", "H99F99", "IE444E", "J11196",
    "K9ACA9", "L8888F", "M9FF99", "N9DB99", "O69996", "PE9E88",  "Q699A5", "RE9EA9", "S7861E", "TE4444",
    "U99996", "V999A4", "W99FF9", "X99699", "YAA444", "ZF168F",  "06BD96", "14C44E", "2E168F", "3E161E",
    "499F11", "5F8E1E", "668E96", "7F1244", "869696", "969716",  ".00004", ":04040", "(24442", ")42224",
    "-00E00", "'44000", "!44404", "_0000F", "+04E40", "\\88422", "/11244", "[64446", "]62226", "^4A000",
    "&4A4A5", "%91689", "=0E0E0", "$7A65E", "#6F6F6", "\"AA000", "?69202", "*0A4A0", "@69B86",
};

} // namespace

void drawTiny(QPainter& painter, QPoint at, const QString& text, const QColor& colour)
{
    for (const QChar letter : text) {
        for (const char* rows : kRows)
            if (letter == QLatin1Char(rows[0]))
                for (int y = 0; y < 5; ++y) {
                    const char digit = rows[y + 1];
                    const int bits = digit >= 'A' ? digit - 'A' + 10 : digit - '0';
                    for (int x = 0; x < 4; ++x)
                        if ((bits & 8 >> x) != 0)
                            painter.fillRect(QRect(at + QPoint(x, y), QSize(1, 1)), colour);
                }
        at += QPoint(5, 0);
    }
}
