#include "toolkit/richtext/rtfreader.h"

#include <algorithm>

namespace {

constexpr int kFarthest = 31680;     // twips: 22 inches
constexpr int kLargestLetters = 288; // half points
constexpr int kUsualLetters = 24;    // of a word without its number
constexpr int kMostStandIns = 100;

template <typename Value>
struct Named {
    const char* word;
    Value value;
};

constexpr Named<bool TextLook::*> kSwitches[] = {
    {"b", &TextLook::bold},           {"i", &TextLook::italic},
    {"strike", &TextLook::strikeOut}, {"striked", &TextLook::strikeOut},
    {"ul", &TextLook::underline},     {"uld", &TextLook::underline},
    {"uldash", &TextLook::underline}, {"uldb", &TextLook::underline},
    {"ulth", &TextLook::underline},   {"ulw", &TextLook::underline},
    {"ulwave", &TextLook::underline},
};

constexpr Named<TextLevel> kLevels[] = {
    {"super", TextLevel::Raised},
    {"sub", TextLevel::Lowered},
    {"nosupersub", TextLevel::Line},
};

constexpr Named<TextAlignment> kAlignments[] = {
    {"ql", TextAlignment::Left},
    {"qc", TextAlignment::Centre},
    {"qr", TextAlignment::Right},
    {"qj", TextAlignment::Justified},
};

constexpr Named<int ParagraphLook::*> kDistances[] = {
    {"li", &ParagraphLook::left},   {"ri", &ParagraphLook::right}, {"fi", &ParagraphLook::first},
    {"sb", &ParagraphLook::before}, {"sa", &ParagraphLook::after},
};

constexpr Named<char16_t> kCharacters[] = {
    {"cell", u'\t'},          {"nestcell", u'\t'},      {"tab", u'\t'},        {"line", u'\u2028'},
    {"emdash", u'\u2014'},    {"endash", u'\u2013'},    {"lquote", u'\u2018'}, {"rquote", u'\u2019'},
    {"ldblquote", u'\u201C'}, {"rdblquote", u'\u201D'}, {"bullet", u'\u2022'}, {"emspace", u'\u2003'},
    {"enspace", u'\u2002'},   {"qmspace", u'\u2005'},   {"zwj", u'\u200D'},    {"zwnj", u'\u200C'},
    {"ltrmark", u'\u200E'},   {"rtlmark", u'\u200F'},
};

constexpr Named<int> kPages[] = {{"mac", 10000}, {"pc", 437}, {"pca", 850}};

constexpr const char* kSkipped[] = {
    "datastore", "filetbl", "fldinst", "footer",  "footerf",           "footerl",   "footerr",    "header",
    "headerf",   "headerl", "headerr", "info",    "listoverridetable", "listtable", "nonshppict", "objdata",
    "pict",      "revtbl",  "rsidtbl", "shprslt", "stylesheet",        "tc",        "themedata",  "xe",
};

} // namespace

const RtfReader::Effects& RtfReader::effects()
{
    static const Effects all = [] {
        Effects words;
        addLooks(words);
        addParagraphs(words);
        addCharacters(words);
        addPlaces(words);
        addPages(words);
        return words;
    }();
    return all;
}

void RtfReader::addLooks(Effects& words)
{
    for (const auto& [word, member] : kSwitches)
        words[word] = [what = member](RtfReader& reader, const RtfToken& token) {
            reader.m_group.look.*what = token.isOn();
        };
    for (const auto& [word, value] : kLevels)
        words[word] = [level = value](RtfReader& reader, const RtfToken&) {
            reader.m_group.look.level = level;
        };
    words["ulnone"] = [](RtfReader& reader, const RtfToken&) { reader.m_group.look.underline = false; };
    words["v"] = [](RtfReader& reader, const RtfToken& token) { reader.m_group.isHidden = token.isOn(); };
    words["plain"] = [](RtfReader& reader, const RtfToken&) { reader.makePlain(); };
    words["f"] = [](RtfReader& reader, const RtfToken& token) { reader.m_group.font = token.numberOr(0); };
    words["fs"] = [](RtfReader& reader, const RtfToken& token) {
        reader.m_group.look.halfPoints = std::clamp(token.numberOr(kUsualLetters), 0, kLargestLetters);
    };
    words["cf"] = [](RtfReader& reader, const RtfToken& token) {
        reader.m_group.look.colour = reader.m_colours[token.numberOr(0)];
    };
}

void RtfReader::addParagraphs(Effects& words)
{
    for (const auto& [word, value] : kAlignments)
        words[word] = [alignment = value](RtfReader& reader, const RtfToken&) {
            reader.m_group.paragraph.alignment = alignment;
        };
    for (const auto& [word, member] : kDistances)
        words[word] = [what = member](RtfReader& reader, const RtfToken& token) {
            reader.m_group.paragraph.*what = std::clamp(token.numberOr(0), -kFarthest, kFarthest);
        };
    words["pard"] = [](RtfReader& reader, const RtfToken&) { reader.m_group.paragraph = {}; };
    for (const char* word : {"par", "row", "nestrow"})
        words[word] = [](RtfReader& reader, const RtfToken&) { reader.endParagraph(); };
    for (const char* word : {"sect", "page"})
        words[word] = [](RtfReader& reader, const RtfToken&) { reader.endText(); };
}

void RtfReader::addCharacters(Effects& words)
{
    for (const auto& [word, value] : kCharacters)
        words[word] = [character = value](RtfReader& reader, const RtfToken&) {
            reader.append(QChar(character));
        };
    words["u"] = [](RtfReader& reader, const RtfToken& token) { reader.takeUnicode(token.numberOr(0)); };
    words["uc"] = [](RtfReader& reader, const RtfToken& token) {
        reader.m_group.standIns = std::clamp(token.numberOr(1), 0, kMostStandIns);
    };
}

void RtfReader::addPlaces(Effects& words)
{
    for (const char* word : kSkipped)
        words[word] = [](RtfReader& reader, const RtfToken&) {
            reader.m_group.place = Group::Place::Skipped;
        };
    words["fonttbl"] = [](RtfReader& reader, const RtfToken&) { reader.m_group.place = Group::Place::Fonts; };
    words["colortbl"] = [](RtfReader& reader, const RtfToken&) {
        reader.m_group.place = Group::Place::Colours;
    };
}

void RtfReader::addPages(Effects& words)
{
    for (const auto& [word, number] : kPages)
        words[word] = [page = number](RtfReader& reader, const RtfToken&) { reader.m_page = page; };
    words["ansicpg"] = [](RtfReader& reader, const RtfToken& token) {
        reader.m_page = token.numberOr(RtfBytes::kUsualPage);
    };
    words["deff"] = [](RtfReader& reader, const RtfToken& token) {
        reader.m_usualFont = token.numberOr(0);
        reader.m_group.font = reader.m_usualFont;
    };
}
