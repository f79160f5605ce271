// What the window's timers do: the playback, the clock, the date, the scrolling name, the volume.
#include "player/displays/daytexts.h"
#include "player/playback/playersettings.h"
#include "player/tonedeck/frmtonedeck.h"

#include <QTimer>

#include <algorithm>
#include <cmath>

namespace {

// As its display shows it, with the half of the day, or as many blanks.
QString clockText(const DisplayClock& clock)
{
    constexpr int kClockCells = 8;
    const DisplayText text = textOf(DisplayFont{.cells = kClockCells}, 0.0, clock);
    return clock.hours24 ? text.text + text.dayHalf : text.text + u' ' + text.dayHalf;
}

} // namespace

void frmTonedeck::Timer1_Timer()
{
    m_engine.Timer1_Timer();
    m_desktop.followPosition(moment());
}

void frmTonedeck::Timer2_Timer()
{
    const bool scrolls = m_context.settings.ScrollName == 1;
    controls.Lbl[Label::Name]->setScrolls(scrolls);
    if (scrolls)
        SetDD(DisplayItem::Name, m_engine.CurName());
    const ClockTick tick = m_minute.tick(now().time());
    if (tick.newMinute) {
        SetDD(DisplayItem::Clock, 0.0);
        showClock();
    }
    if (tick.newDay)
        MakeDayStr();
    showVolume();
    fitScreen();
    keepChanges();
}

DisplayClock frmTonedeck::clock() const
{
    return {.now = now().time(), .hours24 = m_context.settings.TimeFmt != 0};
}

void frmTonedeck::showClock()
{
    controls.Lbl[Label::Clock]->setCaption(clockText(clock()));
}

void frmTonedeck::MakeDayStr()
{
    const DayTexts texts = dayTexts(now().date());
    controls.Lbl[Label::Date]->setCaption(texts.date);
    controls.Lbl[Label::Day]->setCaption(texts.day);
    m_dayLetter = texts.letter;
}

// --- volume ---------------------------------------------------------------------------------------

// When somebody else has changed it, the text and the lights follow. What is read is a little less than what
// was set.
void frmTonedeck::showVolume()
{
    const float value = m_volume.value();
    placeVolume(value);
    if (value != m_shownVolume)
        tellVolume(static_cast<int>(std::lround(value * 100)));
}

void frmTonedeck::placeVolume(float value)
{
    if (m_sliders.SliderDrag() != kVolumeSlider)
        m_sliders.SetSliderPos(kVolumeSlider, value);
    if (m_sliders.SliderDrag() != kVolumeMirror)
        m_sliders.SetSliderPos(kVolumeMirror, value);
}

void frmTonedeck::tellVolume(int percent)
{
    m_shownVolume = m_volume.value();
    controls.Lbl[Label::Volume]->setCaption(QStringLiteral("%1%").arg(percent));
    ShowLights();
}

// The wish may come from outside, and be no number at all.
void frmTonedeck::changeVolume(float wished)
{
    const float value = wished > 0 ? std::min(wished, 1.0F) : 0.0F;
    m_volume.set(value);
    placeVolume(value);
    tellVolume(static_cast<int>(value * 100));
}

void frmTonedeck::changeVolumeBy(int percent)
{
    m_volume.step(percent);
    showVolume();
}

void frmTonedeck::toggleMute()
{
    m_volume.toggleMute();
    showVolume();
    ShowLights(); // also where there was no volume to take away
}
