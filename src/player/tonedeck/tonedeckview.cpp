#include "player/tonedeck/tonedeckview.h"

#include "platform/modulewindow.h"
#include "player/face/face.h"
#include "player/face/statusline.h"
#include "player/playback/player.h"
#include "player/tonedeck/coverkeeper.h"
#include "player/tonedeck/desktopplayer.h"
#include "player/tonedeck/onebox.h"
#include "player/tonedeck/playerwindow.h"
#include "player/tonedeck/playlistpanel.h"

#include <QApplication>
#include <QTimer>

#include <utility>

void TonedeckView::enableTimer1(bool on)
{
    on ? m_panels.timer1.start() : m_panels.timer1.stop();
}

bool TonedeckView::yield()
{
    return m_panels.window.yield();
}

bool TonedeckView::closed() const
{
    return m_panels.window.isClosing();
}

// --- an entry -------------------------------------------------------------------------------------

void TonedeckView::showName(const QString& name)
{
    m_panels.face.SetDD(DisplayItem::Name, name);
    m_panels.face.caption(Label::Name, name);
}

void TonedeckView::showEntryNumber(int number)
{
    m_panels.face.caption(Label::EntryNumber, QStringLiteral(" %1").arg(number));
    m_panels.face.SetDD(DisplayItem::Track, static_cast<double>(number));
}

void TonedeckView::showBitRate(const QString& text, double value)
{
    m_panels.face.caption(Label::BitRate, text);
    m_panels.face.SetDD(DisplayItem::BitRate, value);
}

void TonedeckView::showSampling(const QString& text, double value)
{
    m_panels.face.caption(Label::SamplingRate, text);
    m_panels.face.SetDD(DisplayItem::SamplingRate, value);
}

void TonedeckView::showMode(const QString& text)
{
    m_panels.face.caption(Label::ChannelMode, text);
    ShowMarks();
}

void TonedeckView::clearFacts()
{
    for (const Label label : {Label::BitRate, Label::SamplingRate, Label::ChannelMode})
        m_panels.face.caption(label, {});
    for (const DisplayItem display : {DisplayItem::BitRate, DisplayItem::SamplingRate})
        m_panels.face.SetDD(display, QString());
    ShowMarks();
}

void TonedeckView::showTime(const QString& text, int seconds)
{
    m_panels.face.caption(Label::Time, text);
    m_panels.face.SetDD(DisplayItem::Time, static_cast<double>(seconds));
}

void TonedeckView::showLength(const QString& text)
{
    m_panels.face.caption(Label::Length, text);
}

void TonedeckView::showTrack()
{
    m_panels.face.SetDD(DisplayItem::Track, static_cast<double>(m_panels.player.list().CurTrack()));
}

// --- its position ---------------------------------------------------------------------------------

void TonedeckView::offerPosition()
{
    if (m_panels.face.sliders().hasSlider(kPositionSlider))
        m_panels.face.controls.iSlider[kPositionSlider]->show();
}

bool TonedeckView::followsPosition() const
{
    return !m_panels.face.controls.iSlider[kPositionSlider]->isHidden() &&
           m_panels.face.sliders().SliderDrag() != kPositionSlider;
}

void TonedeckView::showPosition(float part)
{
    m_panels.face.sliders().SetSliderPos(kPositionSlider, part);
}

// --- what the player does -------------------------------------------------------------------------

void TonedeckView::Form_Paint()
{
    const qint32 seconds = m_panels.player.engine().ShownMs() / 1000;
    const FaceControls& controls = m_panels.face.controls;
    m_panels.face.SetDD(DisplayItem::Time, static_cast<double>(seconds));
    showTrack();
    m_panels.face.SetDD(DisplayItem::Clock, 0.0);
    m_panels.face.SetDD(DisplayItem::BitRate, controls.Lbl[Label::BitRate]->text());
    m_panels.face.SetDD(DisplayItem::SamplingRate, controls.Lbl[Label::SamplingRate]->text());
    m_panels.face.SetDD(DisplayItem::Name, m_panels.player.engine().CurName());
}

PlayerFlags TonedeckView::flags() const
{
    const PlaybackEngine& engine = m_panels.player.engine();
    return {.playing = engine.IsPlaying(),
            .paused = engine.IsPaused(),
            .intro = engine.IntroMode,
            .stopAfterTrack = engine.StopAfterTrack,
            .repeat = engine.RepeatMode,
            .shuffle = engine.ShuffleMode,
            .mute = m_panels.player.volume().muted(),
            .loopPoint = engine.loop() != LoopPoints{},
            .channels = channelModeOf(m_panels.face.controls.Lbl[Label::ChannelMode]->text())};
}

void TonedeckView::ShowMarks()
{
    m_panels.face.showMarks(flags());
}

void TonedeckView::showLights()
{
    m_panels.face.showLights(flags());
    m_panels.list.markPlaying();
    m_panels.desktop.refresh();
}

// It does not follow every change: in the midst of one to the next entry the desktop would be told half of
// it.
void TonedeckView::showList()
{
    m_panels.list.showList();
    if (const int entries = m_panels.player.list().count(); std::exchange(m_entriesTold, entries) != entries)
        m_panels.desktop.refresh();
}

// It says what ShowLights does; while a skin loads the light itself is hidden.
bool TonedeckView::stoppedLightShown() const
{
    return !m_panels.player.engine().IsPlaying();
}

bool TonedeckView::hasButtonB() const
{
    return !m_panels.face.controls.Btn[Command::LoopEnd]->isHidden();
}

// --- covers ---------------------------------------------------------------------------------------

void TonedeckView::loadCover(const QString& path)
{
    m_panels.cover.LoadCover(path);
    m_panels.desktop.refresh();
}

void TonedeckView::loadTagCover(const QString& directory, TagRecord& tag)
{
    m_panels.cover.LoadTagCover(directory, tag);
}

void TonedeckView::clearCover()
{
    m_panels.cover.clear();
    m_panels.desktop.refresh();
}

// --- messages -------------------------------------------------------------------------------------

void TonedeckView::startModulePlayer()
{
    ModuleWindow& modules = m_panels.player.context().moduleWindow;
    if (const auto window = modules.bringToFront(QStringLiteral("MOD"))) {
        m_panels.window.yield();
        modules.typeBlank(*window);
    }
}

void TonedeckView::reportError(const QString& text)
{
    m_panels.box.tell(text);
}

void TonedeckView::say(const QString& text)
{
    m_panels.face.status().say(text);
}

// It paints the program's other windows too, but not by a turn of the event loop: a command that came in the
// midst of another would find the devices half set up.
void TonedeckView::paintMeanwhile()
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && !window->isMinimized())
            window->repaint();
}
