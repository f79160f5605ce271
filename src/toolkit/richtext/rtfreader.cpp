#include "toolkit/richtext/rtfreader.h"

#include <algorithm>

namespace {

constexpr std::size_t kDeepest = 500; // a real file has about ten

bool isControl(QChar character)
{
    return character < u' ' && character != u'\t';
}

// Signs of a font of its own and the end of a paragraph have a better character.
char16_t characterOf(char16_t unit)
{
    if (unit == 0xF0B7)
        return u'\u2022';
    return unit == QChar::ParagraphSeparator ? static_cast<char16_t>(QChar::LineSeparator) : unit;
}

} // namespace

bool isRtf(QByteArrayView bytes)
{
    return bytes.startsWith(QByteArrayView("{\\rtf"));
}

RichText readRtf(QByteArrayView bytes, const CodePage& otherwise)
{
    return RtfReader(bytes, otherwise).read();
}

RichText RtfReader::read()
{
    while (!m_isDone) {
        const RtfToken token = m_tokens.next();
        m_isDone = token.kind == RtfToken::Kind::End;
        take(token);
    }
    flush();
    endText();
    return std::move(m_text);
}

void RtfReader::take(RtfToken token)
{
    if (isStandIn(token))
        return;
    const bool isText = token.kind == RtfToken::Kind::Text && m_group.place == Group::Place::Text;
    if (isText)
        m_pending.append(token.bytes.data(), token.bytes.size());
    else
        takeOther(token);
}

void RtfReader::takeOther(const RtfToken& token)
{
    flush();
    if (token.kind == RtfToken::Kind::Open)
        openGroup();
    else if (token.kind == RtfToken::Kind::Close)
        closeGroup();
    else if (m_group.place == Group::Place::Fonts)
        m_fonts.take(token);
    else if (m_group.place == Group::Place::Colours)
        m_colours.take(token);
    else if (m_group.place == Group::Place::Text && token.kind == RtfToken::Kind::Word)
        takeWord(token);
    else if (m_group.place == Group::Place::Text && token.kind == RtfToken::Kind::Symbol)
        takeSymbol(token.bytes.front());
}

// A word counts as one stand-in, a text as one for each byte; the end of a group ends them.
bool RtfReader::isStandIn(RtfToken& token)
{
    if (m_standIns == 0)
        return false;
    if (token.kind == RtfToken::Kind::Text) {
        const qsizetype passed = std::min<qsizetype>(m_standIns, token.bytes.size());
        m_standIns -= static_cast<int>(passed);
        token.bytes = token.bytes.sliced(passed);
        return token.bytes.isEmpty();
    }
    const bool isOne = token.kind == RtfToken::Kind::Word || token.kind == RtfToken::Kind::Symbol;
    m_standIns = isOne ? m_standIns - 1 : 0;
    return isOne;
}

void RtfReader::takeWord(const RtfToken& token)
{
    const std::string_view word(token.bytes.data(), static_cast<std::size_t>(token.bytes.size()));
    const auto found = effects().find(word);
    if (found != effects().end())
        found->second(*this, token);
}

void RtfReader::takeSymbol(char symbol)
{
    switch (symbol) {
    case '*': // what stands here is for those who know it
        m_group.place = Group::Place::Skipped;
        return;
    case '~':
        return append(QChar(QChar::Nbsp));
    case '_':
        return append(QChar(0x2011));
    case '\t':
    case '{':
    case '}':
    case '\\':
        return append(QChar(QLatin1Char(symbol)));
    default:
        return;
    }
}

void RtfReader::openGroup()
{
    if (m_outer.size() < kDeepest)
        m_outer.push_back(m_group);
    else
        ++m_tooDeep;
}

// What is behind the end of the first group is no text any more.
void RtfReader::closeGroup()
{
    if (m_tooDeep > 0) {
        --m_tooDeep;
        return;
    }
    m_isDone = m_outer.size() <= 1;
    if (m_isDone)
        endText();
    if (m_outer.empty())
        return;
    m_group = m_outer.back();
    m_outer.pop_back();
}

// Characters beyond the first 65,536 come as two units, and those from 32,768 on as negative numbers.
void RtfReader::takeUnicode(int unit)
{
    append(QChar(characterOf(static_cast<char16_t>(unit))));
    m_standIns = m_group.standIns;
}

void RtfReader::flush()
{
    if (m_pending.isEmpty())
        return;
    const int page = m_fonts[m_group.font].page;
    append(m_bytes.toText(m_pending, page == RtfBytes::kUsualPage ? m_page : page));
    m_pending.clear();
}

void RtfReader::append(QString text)
{
    text.removeIf(isControl);
    if (m_group.isHidden || text.isEmpty())
        return;
    const TextLook now = look();
    if (isEmptyParagraph() || m_paragraph.runs.back().look != now) {
        m_paragraph.runs.push_back({{}, now});
        count(0, 1);
    }
    m_paragraph.runs.back().text += text;
    count(text.size(), 0);
}

void RtfReader::endParagraph()
{
    m_paragraph.look = m_group.paragraph;
    m_text.paragraphs.push_back(std::move(m_paragraph));
    m_paragraph = {};
    count(1, 1);
}

void RtfReader::count(qsizetype characters, qsizetype pieces)
{
    m_characters += characters;
    m_pieces += pieces;
    m_text.isWhole = m_characters <= RichText::kMostCharacters && m_pieces <= RichText::kMostPieces;
    m_isDone = m_isDone || !m_text.isWhole;
}

// The table of fonts may come behind the word that chooses the usual one.
TextLook RtfReader::look() const
{
    TextLook now = m_group.look;
    now.family = m_fonts[m_group.font].family;
    return now;
}

void RtfReader::makePlain()
{
    m_group.look = {};
    m_group.isHidden = false;
    m_group.font = m_usualFont;
}
