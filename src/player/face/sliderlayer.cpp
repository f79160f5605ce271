#include "player/face/sliderlayer.h"

#include "player/displays/sliderrules.h"
#include "player/face/facecontrols.h"
#include "player/face/skinstate.h"

#include <algorithm>
#include <cmath>
#include <utility>

SliderLayer::SliderLayer(FaceControls& controls, const SkinState& state, Actions actions)
    : m_controls(controls), m_state(state), m_actions(std::move(actions))
{
    for (int slider = 1; slider <= kSliders; ++slider) {
        SliderThumb* thumb = controls.iSlider[slider];
        connect(thumb, &PictureBox::mousePressed, this,
                [this, slider](QPoint place) { iSlider_MouseDown(slider, place); });
        connect(thumb, &PictureBox::mouseMoved, this,
                [this, slider](QPoint place) { iSlider_MouseMove(slider, place); });
        connect(thumb, &PictureBox::mouseReleased, this, [this, slider] { iSlider_MouseUp(slider); });
        connect(thumb, &SliderThumb::stepped, this, [this, slider](float change) { step(slider, change); });
    }
}

const QRect& SliderLayer::track(int slider) const
{
    return m_state.sliders[static_cast<std::size_t>(slider)].track;
}

bool SliderLayer::hasSlider(int slider) const
{
    return track(slider).width() + track(slider).height() > 0;
}

void SliderLayer::SetSliderPos(int slider, float value)
{
    SliderThumb& thumb = *m_controls.iSlider[slider];
    thumb.setValue(value);
    thumb.setPlace({thumbPlace(track(slider), value), thumb.place().size()});
}

void SliderLayer::iSlider_MouseDown(int slider, QPoint place)
{
    if (m_sliderDrag != 0)
        return;
    m_grab = place;
    m_thumb = m_controls.iSlider[slider]->place().topLeft();
    // It begins at the value, not at the pixel that the thumb was rounded to: a click alone moves nothing.
    m_sliderValue = std::clamp(m_controls.iSlider[slider]->value(), 0.0F, 1.0F);
    m_sliderDrag = slider;
}

void SliderLayer::iSlider_MouseMove(int slider, QPoint place)
{
    if (m_sliderDrag != slider)
        return;
    const ThumbDrag drag = draggedThumb(track(slider), m_thumb, m_controls.scale.onFace(place - m_grab));
    m_thumb = drag.place;
    m_sliderValue = drag.fraction;
    SetSliderPos(slider, m_sliderValue);
    m_actions.SliderChanged(slider, m_sliderValue);
}

// The thumb is no longer held while it acts, which may unload the window.
void SliderLayer::iSlider_MouseUp(int slider)
{
    if (m_sliderDrag != slider)
        return;
    m_sliderDrag = 0;
    if (slider == kPositionSlider)
        m_actions.playFrom(m_sliderValue);
}

// It acts as if the thumb had been dragged there and let go.
void SliderLayer::step(int slider, float change)
{
    // It takes whole hundredths: what is read back of a volume is a little less than what was set.
    const float wanted = std::round((m_controls.iSlider[slider]->value() + change) * 100) / 100;
    const float value = std::clamp(wanted, 0.0F, 1.0F);
    SetSliderPos(slider, value);
    m_actions.SliderChanged(slider, value);
    if (slider == kPositionSlider)
        m_actions.playFrom(value);
}

void SliderLayer::letGo()
{
    m_sliderDrag = 0;
}
