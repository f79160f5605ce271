#include "player/tonedeck/clockpanel.h"

#include "player/displays/daytexts.h"
#include "player/face/face.h"
#include "player/playback/playersettings.h"

namespace {

// Writes the time as its display shows it, with the half of the day, or as many blanks.
QString clockText(const DisplayClock& clock)
{
    constexpr int kClockCells = 8;
    const DisplayText text = textOf(DisplayFont{.cells = kClockCells}, 0.0, clock);
    return clock.hours24 ? text.text + text.dayHalf : text.text + u' ' + text.dayHalf;
}

} // namespace

void ClockPanel::tick()
{
    const ClockTick tick = m_minute.tick(now().time());
    if (tick.newMinute) {
        m_face.SetDD(DisplayItem::Clock, 0.0);
        showClock();
    }
    if (tick.newDay)
        MakeDayStr();
}

DisplayClock ClockPanel::clock() const
{
    return {.now = now().time(), .hours24 = m_settings.TimeFmt != 0};
}

void ClockPanel::showClock()
{
    m_face.caption(Label::Clock, clockText(clock()));
}

void ClockPanel::MakeDayStr()
{
    const DayTexts texts = dayTexts(now().date());
    m_face.caption(Label::Date, texts.date);
    m_face.caption(Label::Day, texts.day);
    m_dayLetter = texts.letter;
}
