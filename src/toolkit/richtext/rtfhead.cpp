#include "toolkit/richtext/rtfhead.h"

#include "toolkit/richtext/rtfbytes.h"

#include <algorithm>

namespace {

constexpr std::size_t kMostFonts = 2000;
constexpr std::size_t kMostColours = 2000;

} // namespace

void RtfFonts::take(const RtfToken& token)
{
    if (token.kind != RtfToken::Kind::Word)
        return;
    if (token.bytes == "f") {
        m_current = token.numberOr(0);
        return;
    }
    if (m_fonts.size() >= kMostFonts && !m_fonts.contains(m_current))
        return;
    if (token.bytes == "froman")
        m_fonts[m_current].family = FontFamily::Serif;
    else if (token.bytes == "fmodern")
        m_fonts[m_current].family = FontFamily::Fixed;
    else if (token.bytes == "fcharset")
        m_fonts[m_current].page = RtfBytes::pageOfCharset(token.numberOr(0));
    else if (token.bytes == "cpg")
        m_fonts[m_current].page = token.numberOr(RtfBytes::kUsualPage);
}

RtfFont RtfFonts::operator[](int number) const
{
    const auto found = m_fonts.find(number);
    return found == m_fonts.end() ? RtfFont() : found->second;
}

void RtfColours::take(const RtfToken& token)
{
    if (token.kind == RtfToken::Kind::Text)
        endColours(token.bytes);
    else if (token.kind != RtfToken::Kind::Word)
        return;
    else if (token.bytes == "red")
        takePart(16, token.numberOr(0));
    else if (token.bytes == "green")
        takePart(8, token.numberOr(0));
    else if (token.bytes == "blue")
        takePart(0, token.numberOr(0));
}

void RtfColours::takePart(int shift, int value)
{
    const quint32 part = static_cast<quint32>(std::clamp(value, 0, 255)) << shift;
    m_current = (m_current.value_or(0) & ~(quint32(0xFF) << shift)) | part;
}

// Each ends with a semicolon. The first is mostly without parts: that is the usual colour.
void RtfColours::endColours(QByteArrayView text)
{
    for (const char c : text) {
        if (c != ';' || m_colours.size() >= kMostColours)
            continue;
        m_colours.push_back(m_current);
        m_current.reset();
    }
}

std::optional<quint32> RtfColours::operator[](int number) const
{
    const bool isKnown = number >= 0 && static_cast<std::size_t>(number) < m_colours.size();
    return isKnown ? m_colours[static_cast<std::size_t>(number)] : std::nullopt;
}
