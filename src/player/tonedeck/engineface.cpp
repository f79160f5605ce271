#include "player/tonedeck/engineface.h"

#include "platform/modulewindow.h"
#include "player/tonedeck/frmtonedeck.h"

#include <QApplication>
#include <QTimer>

namespace {

constexpr int kButtonB = 31;

} // namespace

void EngineFace::caption(int label, const QString& text)
{
    m_window.controls.Lbl[label]->setCaption(text);
}

void EngineFace::enableTimer1(bool on)
{
    on ? m_window.Timer1->start() : m_window.Timer1->stop();
}

bool EngineFace::yield()
{
    return m_window.yield();
}

void EngineFace::showName(const QString& name)
{
    m_window.SetDD(kNameDisplay, name);
    caption(2, name);
}

void EngineFace::showEntryNumber(int number)
{
    caption(4, QStringLiteral(" %1").arg(number));
    m_window.SetDD(kTrackDisplay, static_cast<double>(number));
}

void EngineFace::showBitRate(const QString& text, double value)
{
    caption(10, text);
    m_window.SetDD(kFirstInfoDisplay, value);
}

void EngineFace::showSampling(const QString& text, double value)
{
    caption(11, text);
    m_window.SetDD(kSecondInfoDisplay, value);
}

void EngineFace::showMode(const QString& text)
{
    caption(12, text);
    m_window.ShowMarks();
}

void EngineFace::clearFacts()
{
    for (const int label : {10, 11, 12})
        caption(label, {});
    for (const int display : {kFirstInfoDisplay, kSecondInfoDisplay})
        m_window.SetDD(display, QString());
    m_window.ShowMarks();
}

void EngineFace::showTime(const QString& text, int seconds)
{
    caption(1, text);
    m_window.SetDD(kTimeDisplay, static_cast<double>(seconds));
}

void EngineFace::showLength(const QString& text)
{
    caption(13, text);
}

void EngineFace::offerPosition()
{
    if (m_window.sliders().hasSlider(kPositionSlider))
        m_window.controls.iSlider[kPositionSlider]->show();
}

bool EngineFace::followsPosition() const
{
    return !m_window.controls.iSlider[kPositionSlider]->isHidden() &&
           m_window.sliders().SliderDrag() != kPositionSlider;
}

void EngineFace::showPosition(float part)
{
    m_window.sliders().SetSliderPos(kPositionSlider, part);
}

void EngineFace::showLights()
{
    m_window.ShowLights();
}

// As ShowLights has it; while a skin loads the light itself is hidden.
bool EngineFace::stoppedLightShown() const
{
    return !m_window.engine().IsPlaying();
}

bool EngineFace::hasButtonB() const
{
    return !m_window.controls.Btn[kButtonB]->isHidden();
}

void EngineFace::loadCover(const QString& path)
{
    m_window.LoadCover(path);
}

void EngineFace::loadTagCover(const QString& directory, TagRecord& tag)
{
    m_window.LoadTagCover(directory, tag);
}

void EngineFace::startModulePlayer()
{
    if (const auto module = bringToFront(QStringLiteral("MOD"))) {
        m_window.yield();
        typeBlank(*module);
    }
}

void EngineFace::reportError(const QString& text)
{
    m_window.tell(text);
}

void EngineFace::say(const QString& text)
{
    m_window.say(text);
}

// The program's other windows too. Not by a turn of the event loop: a command that came in the midst of
// another would find the devices half set up.
void EngineFace::paintMeanwhile()
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && !window->isMinimized())
            window->repaint();
}
