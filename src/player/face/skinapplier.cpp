#include "player/face/skinapplier.h"

#include "base/runtimeerror.h"
#include "base/twips.h"
#include "player/bitmaps/skinbitmap.h"
#include "player/face/facecontrols.h"
#include "player/face/facepicture.h"

#include <QPainter>

#include <array>

namespace {

constexpr QPoint kOutOfTheWay(-10000, -10000);
// All work pictures, copies and thumbs of one load together take no more.
constexpr qint64 kMostPixels = qint64(1) << 27;

// A screen reader says it, too.
void describe(QWidget& control, const QString& toolTip)
{
    control.setToolTip(shownToolTip(toolTip));
    control.setAccessibleName(toolTip.left(kMostOfToolTip));
}

// Returns what a screen reader says for a display that the skin gives no tool tip.
QString usualName(int display)
{
    static const std::array<QString, kDisplays + 1> names{QString(),
                                                          QStringLiteral("Time"),
                                                          QStringLiteral("Track"),
                                                          QStringLiteral("Clock"),
                                                          QStringLiteral("Bit rate"),
                                                          QStringLiteral("Sampling rate"),
                                                          QStringLiteral("Name")};
    return names[static_cast<std::size_t>(display)];
}

// Does likewise for a button, which is called by its command.
QString usualName(const SkinButton& button)
{
    const std::optional<Command> command = commandOf(button.number);
    return command ? captionOf(*command).remove(u'&') : QString();
}

qint64 pixelsOf(QSize size)
{
    return qint64(size.width()) * size.height();
}

template <typename Control>
void place(Control& control, const QRect& area)
{
    control.setPlace(area);
    control.show();
}

} // namespace

// What a bitmap leaves transparent is black: pixels are copied from it as they are.
std::optional<QImage> SkinApplier::bitmap(const QString& path) const
{
    std::optional<QImage> loaded = loadSkinBitmap(m_numbers, path);
    if (!loaded || loaded->format() == QImage::Format_RGB32)
        return loaded;
    QImage opaque(loaded->size(), QImage::Format_RGB32);
    opaque.fill(Qt::black);
    QPainter(&opaque).drawImage(0, 0, *loaded);
    return opaque;
}

void SkinApplier::spend(qint64 pixels)
{
    m_pixels += pixels;
    if (m_pixels > kMostPixels)
        throw RunTimeError(ErrorNumber::CannotMakeImage);
}

void SkinApplier::beginLoad()
{
    m_pixels = 0;
    m_hooks.loads(true);
}

void SkinApplier::endLoad()
{
    m_hooks.loads(false);
}

void SkinApplier::setWindowSizes(const WindowSizes& pixels)
{
    for (std::size_t mode = 0; mode < pixels.size(); ++mode)
        m_state.WindowSizes[mode] = {toTwips(pixels[mode].width()), toTwips(pixels[mode].height())};
    m_hooks.resize();
}

bool SkinApplier::setBackground(const QString& path)
{
    const std::optional<QImage> loaded = bitmap(path);
    if (loaded)
        m_state.background = *loaded;
    return loaded.has_value();
}

bool SkinApplier::setResource(const QString& path)
{
    const std::optional<QImage> loaded = bitmap(path);
    if (loaded)
        m_controls.ResBmp->setPicture(*loaded);
    return loaded.has_value();
}

void SkinApplier::reset()
{
    hideElements();
    m_state.outline.clear();
    m_hooks.applyOutline();
}

void SkinApplier::hideElements()
{
    m_controls.PlNames->hide();
    m_controls.iCover->hide();
    for (FaceLabel* label : m_controls.Lbl)
        label->hide();
    for (StateLight* light : m_controls.Light) {
        light->hide();
        light->setPlace({kOutOfTheWay, light->place().size()});
    }
    for (PictureBox* mark : m_controls.Mark)
        mark->hide();
    m_state.marks.clear();
    for (QWidget* display : m_controls.Dig)
        display->hide();
    for (DisplayFont& font : m_state.displays)
        font.origin.setX(0);
    for (PictureBox* slider : m_controls.iSlider)
        slider->hide();
    for (SliderRecord& slider : m_state.sliders)
        slider.track.setSize({0, 0});
    // Kept: of these two kinds the first one alone goes; the other buttons of the skin before stay.
    m_controls.Btn[Command::Close]->hide();
    m_controls.Img[1]->hide();
}

void SkinApplier::setHoverStyle(int style)
{
    m_state.HoverStyle = style;
}

void SkinApplier::placeWindow(int position)
{
    m_hooks.place(position);
}

void SkinApplier::set(const SkinButton& button)
{
    HotArea& control = *m_controls.Btn[button.number];
    describe(control, button.toolTip);
    if (button.toolTip.isEmpty())
        control.setAccessibleName(usualName(button));
    control.setProperty("Tag", button.tag);
    place(control, button.place);
    ButtonRecord& record = m_state.buttons[static_cast<std::size_t>(button.number)];
    record.key = button.key;
    if (!button.pressed.isNull())
        record.pressed = button.pressed;
}

void SkinApplier::set(const SkinLabel& label)
{
    FaceLabel& control = *m_controls.Lbl[label.number];
    control.setToolTip(shownToolTip(label.toolTip));
    control.setLook(colourOf(label.colour), label.font, label.fontSize);
    place(control, label.place);
}

// ShowLights decides whether it is seen.
void SkinApplier::set(const SkinLight& light)
{
    StateLight& control = *m_controls.Light[light.number];
    control.setLook(light.shape, colourOf(light.colour));
    control.setPlace(light.place);
}

void SkinApplier::set(const SkinSlider& slider)
{
    m_state.sliders[static_cast<std::size_t>(slider.number)] = {slider.track, slider.thumb};
    PictureBox& control = *m_controls.iSlider[slider.number];
    describe(control, slider.toolTip);
    spend(pixelsOf(slider.thumb.size().expandedTo({0, 0})));
    control.takePart(m_controls.ResBmp->picture(), slider.thumb);
    place(control, {slider.track.topLeft(), slider.thumb.size()});
}

void SkinApplier::set(const SkinDisplay& display)
{
    m_state.displays[static_cast<std::size_t>(display.number)] = display.font;
    DisplayMark& control = *m_controls.Dig[display.number];
    describe(control, display.toolTip);
    if (display.toolTip.isEmpty())
        control.setAccessibleName(usualName(display.number));
    place(control, display.place);
}

void SkinApplier::set(const SkinCover& cover)
{
    describe(*m_controls.iCover, cover.toolTip);
    place(*m_controls.iCover, cover.place);
}

void SkinApplier::set(const SkinPlaylist& playlist)
{
    m_controls.PlNames->setLook(playlist);
}

// ShowLights decides whether it is seen.
void SkinApplier::add(const SkinMark& mark)
{
    const QRect part(mark.picture, mark.place.size());
    spend(pixelsOf(part.size()));
    m_state.marks.push_back(mark.state);
    PictureBox& control = *m_controls.Mark[static_cast<int>(m_state.marks.size())];
    control.takePart(m_controls.ResBmp->picture(), part);
    control.setPlace(mark.place);
}

bool SkinApplier::loadWork(int number, const QString& path)
{
    const std::optional<QImage> loaded = bitmap(path);
    if (loaded) {
        spend(pixelsOf(loaded->size()));
        m_controls.Pic[number]->setPicture(*loaded);
    }
    return loaded.has_value();
}

void SkinApplier::sizeWork(int number, QSize size)
{
    const QSize canvas = size.expandedTo({0, 0});
    spend(pixelsOf(canvas));
    m_controls.Pic[number]->setPictureSize(canvas);
}

bool SkinApplier::copyFromWork2(int number, const QRect& from, QPoint to)
{
    const QRect there = m_controls.Pic[2]->picture().rect();
    spend(pixelsOf(from.intersected(there).size()));
    m_controls.Pic[number]->takePartAt(to, m_controls.Pic[2]->picture(), from);
    return there.contains(from);
}

void SkinApplier::useWork()
{
    m_state.background = m_controls.Pic[0]->picture();
    m_controls.ResBmp->setPicture(m_controls.Pic[1]->picture());
}

void SkinApplier::releaseWork()
{
    // Kept: the first one stays.
    m_controls.Pic[1]->setPicture({});
    m_controls.Pic[2]->setPicture({});
}

void SkinApplier::setOutline(const SkinOutline& outline)
{
    m_state.outline = outline;
    m_hooks.applyOutline();
}

void SkinApplier::repaint()
{
    m_hooks.Form_Paint();
    m_hooks.ShowLights();
}
