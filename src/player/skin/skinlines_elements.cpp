// Does what each letter says.
#include "base/runtimeerror.h"
#include "player/skin/elementfields.h"
#include "player/skin/skinhost.h"
#include "player/skin/skinlines.h"
#include "player/skin/skinreader.h"
#include "player/skin/skintarget.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int kSourcePicture = 2; // that Z copies from

} // namespace

template <typename Element>
bool SkinLines::place(const Element& element, QSize size)
{
    if (!counts(size))
        return false;
    m_remarks.placed(m_line, m_token);
    m_target.set(element);
    return true;
}

void SkinLines::button()
{
    const SkinButton button = readButton(m_reader, m_number);
    if (!place(button, button.place.size()))
        return;
    m_remarks.button(m_line, button);
    if (m_number == kPreviousSkinButton)
        m_texts.previousSkin = button.skin;
    else if (m_number == kNextSkinButton)
        m_texts.nextSkin = button.skin;
}

void SkinLines::label()
{
    const SkinLabel label = readLabel(m_reader, m_number);
    place(label, label.place.size());
}

void SkinLines::light()
{
    const SkinLight light = readLight(m_reader, m_number);
    if (!counts(light.place.size()))
        return;
    if (light.shape < LightShape::Rectangle || light.shape > LightShape::RoundedSquare)
        throw RunTimeError(ErrorNumber::InvalidPropertyValue);
    m_remarks.placed(m_line, m_token);
    m_target.set(light);
}

void SkinLines::slider()
{
    const SkinSlider slider = readSlider(m_reader, m_number);
    // One of both may be none: a height of 0 makes it horizontal.
    const int longer = std::max(slider.track.width(), slider.track.height());
    place(slider, {longer, longer});
}

void SkinLines::display()
{
    const SkinDisplay display = readDisplay(m_reader, m_number);
    if (place(display, display.place.size()))
        m_remarks.display(m_line, display);
}

void SkinLines::cover()
{
    m_number = 0; // there is one, and what is behind the letter does not count
    const SkinCover cover = readCover(m_reader);
    place(cover, cover.place.size());
}

void SkinLines::playlist()
{
    SkinPlaylist list = readPlaylist(m_reader);
    if (m_listColours) {
        list.textColour = m_listColours->text;
        list.backColour = m_listColours->back;
    }
    place(list, list.place.size());
}

void SkinLines::onePolygon()
{
    m_outline.beginOne(m_number);
}

void SkinLines::severalPolygons()
{
    const int polygons = m_reader.number();
    if (polygons < 0)
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    std::vector<int> counts;
    while (std::cmp_less(counts.size(), polygons))
        counts.push_back(m_reader.number());
    m_outline.beginSeveral(m_number, std::move(counts));
}

void SkinLines::point()
{
    m_outline.add({m_number, m_reader.number()});
}

void SkinLines::loadWork()
{
    const QString path = m_directory + m_reader.field();
    m_loaded = 0;
    if (!exists())
        return;
    m_loaded = m_target.loadWork(m_number, path) ? 1 : 0;
    if (m_loaded == 0)
        m_remarks.missingWork(m_line, path);
    else
        m_remarks.used(path);
    if (m_loaded != 0 && m_number == kSourcePicture)
        m_work2 = path;
}

void SkinLines::jump()
{
    const QString label = m_reader.field();
    m_remarks.asked(m_number == 0 && m_loaded == 0);
    if (m_number != m_loaded)
        return;
    m_label = label;
    m_remarks.jump(m_line);
}

void SkinLines::sizeWork()
{
    const int width = m_reader.number();
    const QSize size(width, m_reader.number());
    if (counts(size))
        m_target.sizeWork(m_number, size);
}

void SkinLines::copyWork()
{
    const QRect from = readPlace(m_reader);
    const int x = m_reader.number();
    const QPoint to(x, m_reader.number());
    if (counts(from.size()) && !m_target.copyFromWork2(m_number, from, to))
        m_remarks.beyondPicture(m_line, m_work2, from);
}

void SkinLines::useWork()
{
    m_target.useWork();
}

// One of a name that we know says what the elements have no letters for; readers that do not know it skip it.
void SkinLines::comment()
{
    if (m_token.rest().startsWith(u'@'))
        extra(m_token.rest().sliced(1), m_reader.restOfLine());
    m_reader.skipLine();
}

void SkinLines::extra(QStringView name, const QString& text)
{
    if (name == u"mark")
        mark(text);
    else if (name == u"outline")
        m_outlineHint = hint(text.trimmed());
    else if (name == u"list")
        listColours(text.trimmed());
    else
        m_remarks.unknownExtra(m_line, name);
}

SetHint SkinLines::hint(const QString& file)
{
    const QString path = m_directory + file;
    const std::optional<QByteArray> text = m_host.hints(path);
    if (text)
        m_remarks.used(path);
    return {m_line, path, text.value_or(QByteArray())};
}

void SkinLines::listColours(const QString& file)
{
    const SetHint found = hint(file);
    m_listColours = listColoursOfSet(found.text);
    if (!m_listColours && !found.text.isEmpty())
        m_remarks.unusableHint(m_line, found.path);
}

void SkinLines::mark(const QString& text)
{
    const std::optional<SkinMark> mark = markOf(text);
    if (!mark || m_marks == kMarks)
        return m_remarks.noMark(m_line);
    ++m_marks;
    m_target.add(*mark);
}

// In "/text, more" the token ends at the comma, the description does not.
void SkinLines::info()
{
    const QString text = m_token.rest().toString();
    const QString more = m_reader.restOfLine();
    const QString parting = text.isEmpty() || more.isEmpty() ? QString() : QStringLiteral(",");
    if (!m_texts.addInfo(u'\r' + (text + parting + more).trimmed()))
        m_remarks.infoCut(m_line);
}
