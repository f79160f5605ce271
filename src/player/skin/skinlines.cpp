#include "player/skin/skinlines.h"

#include "base/runtimeerror.h"
#include "player/skin/skinhost.h"
#include "player/skin/skinreader.h"

#include <algorithm>
#include <array>

namespace {

constexpr qsizetype kMostUnknown = 1000; // characters; a message box shows no more
constexpr qsizetype kMostOfToken = 60;

constexpr int kCompositions = 2; // work pictures that Z fills

} // namespace

// Letters whose numbers begin at 1 ignore 0; those without a range take any number.
struct SkinLines::Letter {
    char16_t letter;
    int first;
    int last;
    void (SkinLines::*read)();
};

const SkinLines::Letter* SkinLines::letterOf(char16_t letter)
{
    static constexpr std::array kLetters = {
        Letter{u'B', 1, kButtons, &SkinLines::button},
        Letter{u'L', 1, kLabels, &SkinLines::label},
        Letter{u'I', 1, kLights, &SkinLines::light},
        Letter{u'S', 1, kSliders, &SkinLines::slider},
        Letter{u'D', 1, kDisplays, &SkinLines::display},
        Letter{u'C', 0, 0, &SkinLines::cover},
        Letter{u'X', 1, 1, &SkinLines::playlist},
        Letter{u'N', 0, 0, &SkinLines::onePolygon},
        Letter{u'M', 0, 0, &SkinLines::severalPolygons},
        Letter{u'P', 0, 0, &SkinLines::point},
        Letter{u'R', 0, kWorkPictures - 1, &SkinLines::loadWork},
        Letter{u'?', 0, 0, &SkinLines::jump},
        Letter{u':', 0, 0, &SkinLines::jumpTarget},
        Letter{u'W', 0, kCompositions - 1, &SkinLines::sizeWork},
        Letter{u'Z', 0, kCompositions - 1, &SkinLines::copyWork},
        Letter{u'U', 0, 0, &SkinLines::useWork},
        Letter{u';', 0, 0, &SkinLines::comment},
        Letter{u'/', 0, 0, &SkinLines::info},
    };
    const auto* const found = std::find_if(kLetters.begin(), kLetters.end(),
                                           [letter](const Letter& l) { return l.letter == letter; });
    return found == kLetters.end() ? nullptr : found;
}

SkinLines::SkinLines(const SkinSeams& seams, SkinLint& remarks)
    : m_reader(seams.reader), m_target(seams.target), m_host(seams.host), m_texts(seams.texts),
      m_remarks(remarks)
{
}

void SkinLines::read(const QString& directory)
{
    m_directory = directory;
    while (next()) {
        if (!m_throttle.due())
            continue;
        m_host.yield();
        if (m_host.closed())
            return;
        if (m_host.stopped())
            throw RunTimeError(ErrorNumber::CancelSelected);
    }
    m_remarks.notAsked();
    if (m_label)
        m_remarks.noLabel(*m_label);
}

bool SkinLines::next()
{
    if (m_reader.atEnd())
        return false;
    m_token = SkinToken(m_reader.field());
    m_line = m_reader.line();
    if (m_label) {
        skip();
        return true;
    }
    if (m_token.letter() == u'E') {
        m_remarks.end(m_line, m_token);
        return false;
    }
    if (const Letter* letter = letterOf(m_token.letter()))
        element(*letter);
    else
        m_remarks.unknownLetter(m_line, m_token);
    return true;
}

void SkinLines::skip()
{
    if (m_token.letter() == u':' && m_token.rest() == *m_label)
        m_label.reset();
}

void SkinLines::element(const Letter& letter)
{
    m_letter = &letter;
    if (letter.letter != u'?')
        m_remarks.notAsked();
    m_number = m_token.number();
    (this->*letter.read)();
    m_remarks.ended(m_line, m_reader.line(), m_token);
}

bool SkinLines::exists()
{
    if (m_number < 0 || m_number > m_letter->last) {
        doesNotExist();
        return false;
    }
    if (m_number < m_letter->first) {
        m_remarks.numberZero(m_line, m_token);
        return false;
    }
    return true;
}

bool SkinLines::counts(QSize size)
{
    if (!exists())
        return false;
    if (size.width() >= 1 && size.height() >= 1)
        return true;
    m_remarks.tooSmall(m_line, m_token);
    return false;
}

void SkinLines::doesNotExist()
{
    m_faulty = true;
    m_remarks.noSuchNumber(m_line, m_token, m_letter->first, m_letter->last);
    // Kept: of buttons above the last the message does not tell the names.
    if ((m_letter->letter == u'B' && m_number > 0) || m_unknown.size() > kMostUnknown)
        return;
    m_unknown += u' ' + m_token.text().left(kMostOfToken);
    if (m_unknown.size() > kMostUnknown)
        m_unknown += QStringLiteral(" ...");
}
