#include "player/skin/skinlint.h"

#include "base/runtimeerror.h"
#include "player/skin/outlinepoints.h"
#include "player/skin/skindiagnostics.h"
#include "player/skin/skinelements.h"
#include "player/skin/skintoken.h"

namespace {

constexpr int kShownText = 60; // of what a file may make a megabyte long

// Makes a text fit for a terminal.
QString shown(const QString& text)
{
    QString shown = text.left(kShownText);
    for (QChar& c : shown)
        if (!c.isPrint())
            c = u'?';
    return text.size() > kShownText ? shown + QStringLiteral("...") : shown;
}

} // namespace

void SkinLint::note(int line, const QString& text)
{
    m_notes->note(line, text);
}

void SkinLint::unknownLetter(int line, const SkinToken& token)
{
    if (!m_notes || token.text().isEmpty() || line == m_unknownLine)
        return;
    m_unknownLine = line;
    note(line,
         QStringLiteral("\"%1\" begins with no element's letter and is ignored").arg(shown(token.text())));
}

void SkinLint::noSuchNumber(int line, const SkinToken& token, int first, int last)
{
    if (m_notes)
        note(line, QStringLiteral("%1 does not exist, the numbers are %2 to %3")
                       .arg(shown(token.text()), QString::number(first), QString::number(last)));
}

void SkinLint::numberZero(int line, const SkinToken& token)
{
    if (m_notes)
        note(line, QStringLiteral("%1 is ignored, it has no number").arg(shown(token.text())));
}

void SkinLint::tooSmall(int line, const SkinToken& token)
{
    if (m_notes)
        note(line, QStringLiteral("%1 is ignored, its width or height is below 1").arg(shown(token.text())));
}

void SkinLint::placed(int line, const SkinToken& token)
{
    if (!m_notes)
        return;
    const QString name = token.text()[0] + QString::number(token.number());
    if (!m_placed.insert(name).second)
        note(line, QStringLiteral("%1 was there before, this one replaces it").arg(name));
}

void SkinLint::ended(int line, int lastLine, const SkinToken& token)
{
    if (m_notes && line != lastLine)
        note(line, QStringLiteral("%1 has too few fields, it goes on to line %2")
                       .arg(shown(token.text()), QString::number(lastLine)));
}

void SkinLint::button(int line, const SkinButton& button)
{
    if (!m_notes || button.key.isEmpty() || button.number > kKeyButtons) // a key above those never answers
        return;
    const QString name =
        QStringLiteral("key \"%1\" of B%2").arg(shown(button.key), QString::number(button.number));
    if (button.key != button.key.toUpper() || button.key == u"`" || button.key == u"~")
        note(line,
             QStringLiteral("%1 never answers, typed characters count in upper case and ` and ~ are taken")
                 .arg(name));
    const auto [other, isNew] = m_keys.try_emplace(button.key, button.number);
    if (!isNew && other->second != button.number)
        note(line, QStringLiteral("%1 is that of B%2 too, the lower number answers")
                       .arg(name, QString::number(other->second)));
}

void SkinLint::display(int line, const SkinDisplay& display)
{
    const int style = display.font.style;
    if (m_notes && (style < 0 || style > 3))
        note(line, QStringLiteral("style %1 of D%2 does not exist, it draws nothing; the styles are 0 to 3")
                       .arg(style)
                       .arg(display.number));
}

void SkinLint::missing(int line, const QString& what, const QString& path)
{
    if (m_notes)
        note(line, QStringLiteral("%1 not found, or no picture: %2").arg(what, shown(path)));
}

void SkinLint::missingWork(int line, const QString& path)
{
    m_missingLine = line;
    m_missingWork = path;
    m_lacking = path;
}

void SkinLint::used(const QString& path)
{
    m_lacking.clear();
    if (m_notes)
        m_notes->used(path);
}

void SkinLint::asked(bool withoutPicture)
{
    if (m_notes && withoutPicture && !m_lacking.isEmpty())
        m_notes->lacks(m_lacking);
    m_missingWork.clear();
}

void SkinLint::notAsked()
{
    if (m_missingWork.isEmpty())
        return;
    missing(m_missingLine, QStringLiteral("work picture"), m_missingWork);
    m_missingWork.clear();
}

void SkinLint::end(int line, const SkinToken& token)
{
    if (m_notes && token.text().size() > 1)
        note(line, QStringLiteral("\"%1\" begins with E: the skin ends here").arg(shown(token.text())));
}

void SkinLint::noLabel(const QString& label)
{
    if (m_notes)
        note(m_jumpLine,
             QStringLiteral("no label \"%1\" follows, everything behind is skipped").arg(shown(label)));
}

void SkinLint::outline(int line, const OutlinePoints& points)
{
    if (!m_notes || points.declared() == 0)
        return;
    if (points.read() != points.declared())
        note(line, QStringLiteral("no outline, %1 points are declared and %2 were read")
                       .arg(points.declared())
                       .arg(points.read()));
    else if (points.ofPolygons() != points.declared())
        note(line, QStringLiteral("the polygons have %1 points together and %2 are declared")
                       .arg(points.ofPolygons())
                       .arg(points.declared()));
    else if (points.outline().empty())
        note(line, QStringLiteral("no outline, it has no polygon of three points"));
}

void SkinLint::windowSize(int line, QSize size)
{
    if (m_notes && size.isEmpty())
        note(line, QStringLiteral("a window of %1 by %2 pixels shows nothing of the skin")
                       .arg(size.width())
                       .arg(size.height()));
}

void SkinLint::window(int line, int hoverStyle, int position)
{
    if (m_notes && (hoverStyle < 0 || hoverStyle > 2))
        note(line, QStringLiteral("hover style %1 does not exist, the styles are 0 to 2").arg(hoverStyle));
    if (m_notes && (position < 0 || position > 5))
        note(line, QStringLiteral("window position %1 does not exist, the codes are 0 to 5").arg(position));
}

void SkinLint::infoCut(int line)
{
    if (m_notes)
        note(line, QStringLiteral("the description is too long, the rest of it is left out"));
}

void SkinLint::beyondPicture(int line, const QString& path, const QRect& part)
{
    if (!m_notes || path == m_beyond)
        return;
    m_beyond = path;
    note(line, QStringLiteral("%1 is too small, there is nothing to copy at %2,%3 (%4 by %5)")
                   .arg(path.isEmpty() ? QStringLiteral("work picture 2") : shown(path))
                   .arg(part.x())
                   .arg(part.y())
                   .arg(part.width())
                   .arg(part.height()));
}

void SkinLint::unknownExtra(int line, QStringView name)
{
    if (m_notes)
        note(line,
             QStringLiteral("\";@%1\" is none of the extras and is ignored").arg(shown(name.toString())));
}

void SkinLint::noMark(int line)
{
    if (m_notes)
        note(line,
             QStringLiteral("the mark is ignored, it is one too many or has no state, place and picture"));
}

void SkinLint::unusableHint(int line, const QString& path)
{
    if (m_notes)
        note(line, QStringLiteral("what %1 says cannot be used").arg(shown(path)));
}

void SkinLint::error(int line, const RunTimeError& error)
{
    if (m_notes)
        note(
            line,
            QStringLiteral("the load ends here: %1 (%2)").arg(error.text(), QString::number(error.number())));
}
