#include "player/tonedeck/tonedeckview.h"

#include "platform/modulewindow.h"
#include "player/tonedeck/frmtonedeck.h"

#include <QApplication>
#include <QTimer>

void TonedeckView::caption(Label label, const QString& text)
{
    m_window.controls.Lbl[label]->setCaption(text);
}

void TonedeckView::enableTimer1(bool on)
{
    on ? m_window.Timer1->start() : m_window.Timer1->stop();
}

bool TonedeckView::yield()
{
    return m_window.yield();
}

void TonedeckView::showName(const QString& name)
{
    m_window.SetDD(DisplayItem::Name, name);
    caption(Label::Name, name);
}

void TonedeckView::showEntryNumber(int number)
{
    caption(Label::EntryNumber, QStringLiteral(" %1").arg(number));
    m_window.SetDD(DisplayItem::Track, static_cast<double>(number));
}

void TonedeckView::showBitRate(const QString& text, double value)
{
    caption(Label::BitRate, text);
    m_window.SetDD(DisplayItem::BitRate, value);
}

void TonedeckView::showSampling(const QString& text, double value)
{
    caption(Label::SamplingRate, text);
    m_window.SetDD(DisplayItem::SamplingRate, value);
}

void TonedeckView::showMode(const QString& text)
{
    caption(Label::ChannelMode, text);
    m_window.ShowMarks();
}

void TonedeckView::clearFacts()
{
    for (const Label label : {Label::BitRate, Label::SamplingRate, Label::ChannelMode})
        caption(label, {});
    for (const DisplayItem display : {DisplayItem::BitRate, DisplayItem::SamplingRate})
        m_window.SetDD(display, QString());
    m_window.ShowMarks();
}

void TonedeckView::showTime(const QString& text, int seconds)
{
    caption(Label::Time, text);
    m_window.SetDD(DisplayItem::Time, static_cast<double>(seconds));
}

void TonedeckView::showLength(const QString& text)
{
    caption(Label::Length, text);
}

void TonedeckView::offerPosition()
{
    if (m_window.sliders().hasSlider(kPositionSlider))
        m_window.controls.iSlider[kPositionSlider]->show();
}

bool TonedeckView::followsPosition() const
{
    return !m_window.controls.iSlider[kPositionSlider]->isHidden() &&
           m_window.sliders().SliderDrag() != kPositionSlider;
}

void TonedeckView::showPosition(float part)
{
    m_window.sliders().SetSliderPos(kPositionSlider, part);
}

void TonedeckView::showLights()
{
    m_window.ShowLights();
}

// As ShowLights has it; while a skin loads the light itself is hidden.
bool TonedeckView::stoppedLightShown() const
{
    return !m_window.engine().IsPlaying();
}

bool TonedeckView::hasButtonB() const
{
    return !m_window.controls.Btn[Command::LoopEnd]->isHidden();
}

void TonedeckView::loadCover(const QString& path)
{
    m_window.LoadCover(path);
}

void TonedeckView::loadTagCover(const QString& directory, TagRecord& tag)
{
    m_window.LoadTagCover(directory, tag);
}

void TonedeckView::startModulePlayer()
{
    if (const auto module = bringToFront(QStringLiteral("MOD"))) {
        m_window.yield();
        typeBlank(*module);
    }
}

void TonedeckView::reportError(const QString& text)
{
    m_window.tell(text);
}

void TonedeckView::say(const QString& text)
{
    m_window.say(text);
}

// The program's other windows too. Not by a turn of the event loop: a command that came in the midst of
// another would find the devices half set up.
void TonedeckView::paintMeanwhile()
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && !window->isMinimized())
            window->repaint();
}
