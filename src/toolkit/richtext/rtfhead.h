// Collects what stands in the head of an RTF file: its fonts and its colours.
#pragma once

#include "toolkit/richtext/richtext.h"
#include "toolkit/richtext/rtftokens.h"

#include <map>

struct RtfFont {
    FontFamily family = FontFamily::Usual;
    int page = 0; // as RtfBytes has it
};

class RtfFonts {
public:
    void take(const RtfToken& token);     // of the table of fonts
    RtfFont operator[](int number) const; // one that was not told is the usual one

private:
    std::map<int, RtfFont> m_fonts;
    int m_current = 0;
};

class RtfColours {
public:
    void take(const RtfToken& token); // of the table of colours
    std::optional<quint32> operator[](int number) const;

private:
    void takePart(int shift, int value);
    void endColours(QByteArrayView text);

    std::vector<std::optional<quint32>> m_colours;
    std::optional<quint32> m_current;
};
