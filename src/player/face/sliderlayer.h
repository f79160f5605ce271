// Works the skin's sliders: 1 is the position, 2 the volume, 4 mirrors the volume. Values are from 0 to 1.
#pragma once

#include <QObject>
#include <QPoint>

#include <functional>

struct FaceControls;
struct SkinState;

enum SliderNumber : int { kPositionSlider = 1, kVolumeSlider = 2, kVolumeMirror = 4 };

class SliderLayer : public QObject {
    Q_OBJECT

public:
    struct Actions {
        std::function<void(int slider, float value)> SliderChanged; // while it is dragged
        std::function<void(float value)> playFrom;                  // the position slider was let go
    };

    SliderLayer(FaceControls& controls, const SkinState& state, Actions actions);

    void SetSliderPos(int slider, float value);
    void letGo(); // of what is dragged, without any effect

    bool hasSlider(int slider) const;               // the skin defines it
    int SliderDrag() const { return m_sliderDrag; } // 0: none

private:
    void iSlider_MouseDown(int slider, QPoint place);
    void iSlider_MouseMove(int slider, QPoint place);
    void iSlider_MouseUp(int slider);
    void step(int slider, float change);
    const QRect& track(int slider) const;

    FaceControls& m_controls;
    const SkinState& m_state;
    Actions m_actions;
    int m_sliderDrag = 0;
    QPoint m_grab{};         // of the pointer in the thumb
    QPoint m_thumb{};        // where it is
    float m_sliderValue = 0; // of the slider last moved
};
