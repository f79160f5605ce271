#include "player/face/face.h"

#include "base/twips.h"
#include "player/face/faceaccess.h"
#include "player/face/facehost.h"
#include "player/face/focusorder.h"
#include "player/face/playerkeys.h"
#include "player/face/statusline.h"
#include "player/skin/outline.h"

#include <utility>

namespace {

constexpr int kMostSaid = 1000;           // characters of a display, by a screen reader
constexpr QSize kLargestFace(4096, 4096); // in pixels, on a screen that is smaller

// The outline's corners go with the face.
SkinOutline onWindow(SkinOutline outline, const FaceScale& scale)
{
    if (scale.factor() < 1)
        for (std::vector<QPoint>& polygon : outline)
            for (QPoint& point : polygon)
                point = scale.onWindow(point);
    return outline;
}

} // namespace

Face::Face(FaceHost& host, FileNumbers& numbers, QWidget* parent)
    : FaceCanvas(parent), controls(madeOn(this)), m_host(host),
      m_status(new StatusLine(this, *controls.Lbl[Label::Name])),
      m_applier(controls, m_skin, numbers, hooks()),
      m_buttons(controls, m_skin, [this](int number) { m_host.command(number); }),
      m_sliders(controls, m_skin, sliderActions())
{
    setItems(controls.faceItems());
    connectControls();
    offerFaceToReaders();
}

FaceControls Face::madeOn(QWidget* face)
{
    FaceControls controls;
    controls.make(face);
    return controls;
}

void Face::connectControls()
{
    connect(this, &FaceCanvas::left, this, [this] { m_buttons.bareFace(); });
    connect(controls.PlNames, &PlaylistBox::pointerEntered, &m_buttons, &ButtonLayer::bareFace);
    for (PictureBox* slider : controls.iSlider) {
        connect(slider, &PictureBox::mouseMoved, &m_buttons, &ButtonLayer::bareFace);
        connect(slider, &PictureBox::mouseMovedFree, this, &FaceCanvas::movedFree);
    }
    for (const auto& [label, command] :
         {std::pair(Label::Time, Command::RemainingTime), std::pair(Label::Name, Command::TagEditor)})
        connect(controls.Lbl[label], &FaceLabel::clicked, this,
                [this, code = codeOf(command)] { m_host.command(code); });
}

// --- the skin -------------------------------------------------------------------------------------

SkinApplier::Hooks Face::hooks()
{
    return {.loads =
                [this](bool begins) {
                    letGo();
                    m_host.skinLoads(begins);
                },
            .resize = [this] { takeSize(); },
            .place = [this](int position) { m_host.placeByCode(position); },
            .applyOutline = [this] { m_host.outlineChanged(); },
            .Form_Paint = [this] { paintAnew(); },
            .ShowLights = [this] { m_host.ShowLights(); }};
}

SliderLayer::Actions Face::sliderActions()
{
    return {.SliderChanged =
                [this](int slider, float value) {
                    if (slider == kVolumeSlider)
                        m_host.volumeWished(value);
                },
            .playFrom = [this](float part) { m_host.positionWished(part); }};
}

// It serves when a skin is about to take the place of what the pointer holds.
void Face::letGo()
{
    m_buttons.bareFace();
    controls.TmpBtn->hide();
    m_sliders.letGo();
}

void Face::showAreas(bool on)
{
    for (HotArea* button : controls.Btn)
        button->setOpaque(on);
    for (FaceLabel* label : controls.Lbl)
        label->setOpaque(on);
}

void Face::frameButtons(bool on)
{
    for (HotArea* button : controls.Btn)
        button->setBorder(on);
}

// --- size and outline -----------------------------------------------------------------------------

// It is never less than a pixel nor more than this machine can compose.
QSize Face::faceSize(int sizeMode) const
{
    const QSize most = m_host.room().expandedTo(kLargestFace);
    const QSize twips = m_skin.WindowSizes[static_cast<std::size_t>(sizeMode)];
    return QSize(fromTwips(twips.width()), fromTwips(twips.height())).expandedTo({1, 1}).boundedTo(most);
}

FaceScale Face::fittingScale() const
{
    QSize largest;
    for (int mode = 0; mode < kSizeModes; ++mode)
        largest = largest.expandedTo(faceSize(mode));
    FaceScale scale;
    scale.fit(faceSize(m_skin.sizeMode), largest, m_host.room());
    return scale;
}

void Face::takeSize()
{
    controls.setScale(fittingScale());
    m_host.faceSized();
}

bool Face::fits() const
{
    return fittingScale().factor() == controls.scale.factor();
}

void Face::fit()
{
    takeSize();
    m_host.outlineChanged();
    paintAnew();
}

void Face::nextSizeMode()
{
    m_skin.sizeMode = (m_skin.sizeMode + 1) % kSizeModes;
    fit();
}

std::vector<QRect> Face::outline() const
{
    return outlineRectangles(onWindow(m_skin.outline, controls.scale), controls.scale.window());
}

void Face::setCut(const QRegion& cut)
{
    m_cut = cut;
    shapeStatusLine();
}

void Face::shapeStatusLine()
{
    const QRect all({}, controls.scale.window());
    m_status->setShape(m_cut.isEmpty() ? QRegion(all) : m_cut & all);
}

// --- what it shows --------------------------------------------------------------------------------

void Face::caption(Label label, const QString& text)
{
    controls.Lbl[label]->setCaption(text);
}

void Face::paintAnew()
{
    reset(controls.scale, m_skin.background);
    m_painted = {};
    shapeStatusLine();
    controls.PlNames->setEmptyText(emptyListText(m_skin));
    arrangeFocus(controls, controls.scale.window());
    m_host.Form_Paint();
}

void Face::SetDD(DisplayItem item, const DisplayValue& value)
{
    const int number = static_cast<int>(item);
    if (number < 1 || number > kDisplays || controls.Dig[item]->isHidden())
        return;
    const DisplayFont& font = m_skin.displays[static_cast<std::size_t>(number)];
    DisplayText text = textOf(font, value, m_host.clock());
    controls.Dig[item]->setAccessibleDescription(text.text.left(kMostSaid).trimmed());
    if (item == DisplayItem::Name)
        text.text = m_scroll.next(text.text, font.cells, m_host.scrollsName());
    if (text.isClock)
        caption(Label::DayHalf, text.dayHalf);
    const QPoint place = controls.Dig[item]->place().topLeft();
    QRegion painted;
    for (const Glyph& glyph : glyphsOf(font, text, controls.scale.face().width() - place.x(), place.x()))
        painted += paint(place + QPoint(glyph.offset, 0), controls.ResBmp->picture(), glyph.source);
    wipeDisplay(number, painted);
}

// A longer text that was there before leaves nothing behind.
void Face::wipeDisplay(int number, const QRegion& painted)
{
    const QRegion before = std::exchange(m_painted[static_cast<std::size_t>(number)], painted);
    bare(before - painted);
    refresh((before + painted).boundingRect());
}

void Face::showLights(const PlayerFlags& flags)
{
    const auto shown = lightsShown(flags);
    for (int number = 1; number <= kLights; ++number)
        controls.Light[number]->setVisible(shown[static_cast<std::size_t>(number)]);
    showMarks(flags);
}

void Face::showMarks(const PlayerFlags& flags)
{
    for (std::size_t i = 0; i < m_skin.marks.size(); ++i)
        controls.Mark[static_cast<int>(i) + 1]->setVisible(markShown(m_skin.marks[i], flags));
}
