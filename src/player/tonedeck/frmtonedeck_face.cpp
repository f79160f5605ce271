// The window's face: what a skin does to it, and what its displays and lights show.
#include "player/face/facecanvas.h"
#include "player/face/focusorder.h"
#include "player/face/statusline.h"
#include "player/playback/playersettings.h"
#include "player/skin/outline.h"
#include "player/tonedeck/frmtonedeck.h"
#include "player/tonedeck/playerkeys.h"
#include "player/tonedeck/windowplacement.h"
#include "player/tonedeck/windowposition.h"
#include "toolkit/widgets/windowing.h"

#include <QScreen>
#include <QTimer>

#include <utility>

namespace {

constexpr int kWhereItIs = 0; // position codes
constexpr int kMiddle = 5;
constexpr int kMostSaid = 1000;           // characters of a display, by a screen reader
constexpr QSize kLargestFace(4096, 4096); // in pixels, on a screen that is smaller

// Corners of the outline go with the face.
SkinOutline onWindow(SkinOutline outline, const FaceScale& scale)
{
    if (scale.factor() < 1)
        for (std::vector<QPoint>& polygon : outline)
            for (QPoint& point : polygon)
                point = scale.onWindow(point);
    return outline;
}

} // namespace

// --- the skin -------------------------------------------------------------------------------------

void frmTonedeck::LoadSkin(const QString& name, bool silent, SkinDiagnostics* notes)
{
    m_loader.LoadSkin(name, silent, notes);
}

void frmTonedeck::SelectSkin()
{
    m_loader.SelectSkin();
}

SkinApplier::WindowHooks frmTonedeck::hooks()
{
    return {.enableTimer1 =
                [this](bool on) {
                    letGo();
                    showVolume();
                    on ? Timer1->start() : Timer1->stop();
                },
            .resize = [this] { applySize(); },
            .place = [this](int position) { placeByCode(position); },
            .applyOutline = [this] { applyOutline(); },
            .Form_Paint = [this] { paintAnew(); },
            .ShowLights = [this] { ShowLights(); }};
}

SkinScreen frmTonedeck::screenOfWindow()
{
    return {.width = [this] { return screen()->geometry().width(); }, .closed = [this] { return closing(); }};
}

// Between a pixel and what this machine can compose.
QSize frmTonedeck::faceSize(int sizeMode) const
{
    const QSize most = workArea().size().expandedTo(kLargestFace);
    const QSize twips = m_skin.WindowSizes[static_cast<std::size_t>(sizeMode)];
    return QSize(fromTwips(twips.width()), fromTwips(twips.height())).expandedTo({1, 1}).boundedTo(most);
}

FaceScale frmTonedeck::fittingScale() const
{
    QSize largest;
    for (int mode = 0; mode < kSizeModes; ++mode)
        largest = largest.expandedTo(faceSize(mode));
    FaceScale scale;
    scale.fit(faceSize(m_skin.sizeMode), largest, workArea().size());
    return scale;
}

void frmTonedeck::applySize()
{
    controls.setScale(fittingScale());
    setFixedSize(controls.scale.window());
    if (std::exchange(m_centres, false))
        placeByCode(kMiddle);
}

void frmTonedeck::placeByCode(int position)
{
    move(windowPosition(position, {pos(), size()}, workArea()));
}

void frmTonedeck::applyOutline()
{
    // Kept whole when nothing would be left of it, and when the outline is more than the window system takes.
    setWindowOutline(*this, outlineRectangles(onWindow(m_skin.outline, controls.scale), size()));
    shapeStatusLine();
}

void frmTonedeck::shapeStatusLine()
{
    m_status->setShape(mask().isEmpty() ? QRegion(rect()) : mask() & rect());
}

// The window has come to another screen, or a panel takes part of this one. Not in the midst of a drag, whose
// hold would be another place of the face then.
void frmTonedeck::fitScreen()
{
    if (m_drag.Dragging() || m_sliders.SliderDrag() != 0 || m_loader.loading() ||
        fittingScale().factor() == controls.scale.factor())
        return;
    applySize();
    applyOutline();
    paintAnew();
    placeByCode(kWhereItIs);
}

void frmTonedeck::nextSizeMode()
{
    m_skin.sizeMode = (m_skin.sizeMode + 1) % kSizeModes;
    applySize();
    applyOutline();
    paintAnew();
}

// From the bare background on.
void frmTonedeck::paintAnew()
{
    m_canvas->reset(controls.scale, m_skin.background);
    m_painted = {};
    shapeStatusLine();
    controls.PlNames->setEmptyText(emptyListText(m_skin));
    arrangeFocus(controls, size());
    Form_Paint();
}

// --- what it shows --------------------------------------------------------------------------------

void frmTonedeck::SetDD(DisplayItem item, const DisplayValue& value)
{
    const int number = static_cast<int>(item);
    if (number < 1 || number > kDisplays || controls.Dig[item]->isHidden())
        return;
    const DisplayFont& font = m_skin.displays[static_cast<std::size_t>(number)];
    DisplayText text = textOf(font, value, clock());
    controls.Dig[item]->setAccessibleDescription(text.text.left(kMostSaid).trimmed());
    if (item == DisplayItem::Name)
        text.text = m_scroll.next(text.text, font.cells, m_context.settings.ScrollName != 0);
    if (text.isClock)
        controls.Lbl[Label::DayHalf]->setCaption(text.dayHalf);
    const QPoint place = controls.Dig[item]->place().topLeft();
    QRegion painted;
    for (const Glyph& glyph : glyphsOf(font, text, controls.scale.face().width() - place.x(), place.x()))
        painted += m_canvas->paint(place + QPoint(glyph.offset, 0), controls.ResBmp->picture(), glyph.source);
    wipeDisplay(item, painted);
}

// A longer text that was there before leaves nothing behind.
void frmTonedeck::wipeDisplay(DisplayItem item, const QRegion& painted)
{
    const QRegion before = std::exchange(m_painted[static_cast<std::size_t>(item)], painted);
    m_canvas->bare(before - painted);
    m_canvas->refresh((before + painted).boundingRect());
}

void frmTonedeck::Form_Paint()
{
    const qint32 seconds = m_engine.ShownMs() / 1000;
    SetDD(DisplayItem::Time, static_cast<double>(seconds));
    SetDD(DisplayItem::Track, static_cast<double>(m_playlist.CurTrack()));
    SetDD(DisplayItem::Clock, 0.0);
    SetDD(DisplayItem::BitRate, controls.Lbl[Label::BitRate]->text());
    SetDD(DisplayItem::SamplingRate, controls.Lbl[Label::SamplingRate]->text());
    SetDD(DisplayItem::Name, m_engine.CurName());
    showClock();
}

PlayerFlags frmTonedeck::flags()
{
    return {.playing = m_engine.IsPlaying(),
            .paused = m_engine.IsPaused(),
            .intro = m_engine.IntroMode,
            .stopAfterTrack = m_engine.StopAfterTrack,
            .repeat = m_engine.RepeatMode,
            .shuffle = m_engine.ShuffleMode,
            .mute = m_volume.muted(),
            .loopPoint = m_engine.loop() != LoopPoints{},
            .channels = channelModeOf(controls.Lbl[Label::ChannelMode]->text())};
}

void frmTonedeck::ShowMarks()
{
    const PlayerFlags state = flags();
    for (std::size_t i = 0; i < m_skin.marks.size(); ++i)
        controls.Mark[static_cast<int>(i) + 1]->setVisible(markShown(m_skin.marks[i], state));
}

void frmTonedeck::ShowLights()
{
    const auto shown = lightsShown(flags());
    for (int number = 1; number <= kLights; ++number)
        controls.Light[number]->setVisible(shown[static_cast<std::size_t>(number)]);
    ShowMarks();
    markPlaying();
    m_desktop.refresh();
}

void frmTonedeck::say(const QString& text)
{
    m_status->say(text);
}

// --- what a skin's elements hold -------------------------------------------------------------------

SliderLayer::Actions frmTonedeck::sliderActions()
{
    return {.SliderChanged =
                [this](int slider, float value) {
                    if (slider == kVolumeSlider)
                        guard([&] { changeVolume(value); });
                },
            .playFrom =
                [this](float value) {
                    const auto length = static_cast<double>(m_engine.TrackLength());
                    guard(
                        [&] { m_engine.PlayFrom(static_cast<qint32>(static_cast<double>(value) * length)); });
                }};
}

// A skin is about to take the place of what the pointer holds.
void frmTonedeck::letGo()
{
    m_buttons.bareFace();
    controls.TmpBtn->hide();
    m_sliders.letGo();
}

const QImage& frmTonedeck::face() const
{
    return m_canvas->composed();
}
