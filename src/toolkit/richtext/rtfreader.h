// Reads an RTF file as far as it can be read: what is damaged, cut off or not known is passed over, and its
// text stays. Pictures, headers, footers and what only a word processor needs are left out.
#pragma once

#include "toolkit/richtext/rtfbytes.h"
#include "toolkit/richtext/rtfhead.h"
#include "toolkit/richtext/rtftokens.h"

#include <functional>
#include <string_view>
#include <unordered_map>

class CodePage;

bool isRtf(QByteArrayView bytes);
RichText readRtf(QByteArrayView bytes, const CodePage& otherwise);

class RtfReader {
public:
    RtfReader(QByteArrayView bytes, const CodePage& otherwise) : m_tokens(bytes), m_bytes(otherwise) {}

    RichText read();

private:
    // Is what the end of a group brings back.
    struct Group {
        enum class Place { Text, Skipped, Fonts, Colours };

        Place place = Place::Text;
        TextLook look;
        ParagraphLook paragraph;
        int font = 0;
        bool isHidden = false;
        int standIns = 1; // for a reader without Unicode, behind each character of it
    };
    // What a word does, by its name; the others do nothing.
    using Effect = std::function<void(RtfReader&, const RtfToken&)>;
    using Effects = std::unordered_map<std::string_view, Effect>;
    static const Effects& effects();
    static void addLooks(Effects& words);
    static void addParagraphs(Effects& words);
    static void addCharacters(Effects& words);
    static void addPlaces(Effects& words);
    static void addPages(Effects& words);

    void take(RtfToken token);
    void takeOther(const RtfToken& token);
    bool isStandIn(RtfToken& token);
    void takeWord(const RtfToken& token);
    void takeSymbol(char symbol);
    void takeUnicode(int unit);
    void openGroup();
    void closeGroup();

    void flush();
    void append(QString text);
    void endParagraph();
    void endText() { isEmptyParagraph() ? void() : endParagraph(); }
    void count(qsizetype characters, qsizetype pieces);
    bool isEmptyParagraph() const { return m_paragraph.runs.empty(); }

    void makePlain();
    TextLook look() const;

    RtfTokens m_tokens;
    RtfBytes m_bytes;
    RtfFonts m_fonts;
    RtfColours m_colours;
    Group m_group;
    std::vector<Group> m_outer;
    qsizetype m_tooDeep = 0; // groups that are open and not kept
    QByteArray m_pending;    // text of the font's code page
    int m_page = RtfBytes::kUsualPage;
    int m_usualFont = 0;
    int m_standIns = 0; // still to be passed over
    TextParagraph m_paragraph;
    RichText m_text;
    qsizetype m_characters = 0;
    qsizetype m_pieces = 0;
    bool m_isDone = false;
};
