#include "player/face/buttonlayer.h"

#include "player/face/facecontrols.h"
#include "player/face/skinstate.h"

#include <utility>

namespace {

constexpr int kBorder = 1; // hover styles
constexpr int kPressed = 2;

} // namespace

ButtonLayer::ButtonLayer(FaceControls& controls, const SkinState& state, std::function<void(int)> doIt)
    : m_controls(controls), m_state(state), m_doIt(std::move(doIt))
{
    for (int number = 1; number <= kButtons; ++number) {
        HotArea* button = controls.Btn[number];
        connect(button, &HotArea::hovered, this, [this, number] { Btn_MouseMove(number); });
        connect(button, &HotArea::mousePressed, this, [this, number] { Btn_MouseDown(number); });
        connect(button, &HotArea::mouseReleased, this, [this, number] { ButtonUp(number); });
        // The keyboard, or what reads the screen, presses it this way.
        connect(button, &HotArea::pressed, this, [this, number] { Btn_MouseDown(number); });
        connect(button, &HotArea::released, controls.TmpBtn, &QWidget::hide);
        connect(button, &HotArea::clicked, this, [this, number] { ButtonUp(number); });
    }
    connect(controls.TmpBtn, &PictureBox::mousePressed, this, &ButtonLayer::TmpBtn_MouseDown);
    connect(controls.TmpBtn, &PictureBox::mouseReleased, this, &ButtonLayer::TmpBtn_MouseUp);
}

void ButtonLayer::setBorder(int number, bool on)
{
    if (number > 0)
        m_controls.Btn[number]->setBorder(on);
}

void ButtonLayer::Btn_MouseMove(int number)
{
    if (number == m_hoverBtn)
        return;
    if (m_state.HoverStyle == kBorder) {
        setBorder(m_hoverBtn, false);
        setBorder(number, true);
    } else if (m_state.HoverStyle == kPressed) {
        ButtonDown(number);
    }
    m_hoverBtn = number;
}

void ButtonLayer::bareFace()
{
    if (m_hoverBtn == 0)
        return;
    setBorder(std::exchange(m_hoverBtn, 0), false);
    m_controls.TmpBtn->hide();
}

void ButtonLayer::Btn_MouseDown(int number)
{
    ButtonDown(number);
    TmpBtn_MouseDown();
}

// A button of that style has its pressed picture already while the pointer is over it.
void ButtonLayer::TmpBtn_MouseDown()
{
    m_controls.TmpBtn->setSunk(m_state.HoverStyle == kPressed);
}

// Kept: whatever the origin is, 0, 0 shows the resource bitmap's corner.
void ButtonLayer::ButtonDown(int number)
{
    const HotArea& button = *m_controls.Btn[number];
    PictureBox& picture = *m_controls.TmpBtn;
    picture.hide();
    const QRect seen = button.place() & QRect({}, m_controls.scale.face());
    if (seen.isEmpty() || button.isHidden())
        return;
    const QPoint origin = m_state.buttons[static_cast<std::size_t>(number)].pressed;
    picture.setSunk(false);
    picture.setPlace(seen);
    picture.takePart(m_controls.ResBmp->picture(),
                     {origin + seen.topLeft() - button.place().topLeft(), seen.size()});
    picture.setToolTip(button.toolTip());
    picture.show();
    picture.parentWidget()->repaint(picture.geometry());
}

void ButtonLayer::ButtonUp(int number)
{
    m_controls.TmpBtn->hide();
    setBorder(number, false);
    m_hoverBtn = 0;
    m_doIt(number);
}

// It covers its button, so that the release lands here.
void ButtonLayer::TmpBtn_MouseUp()
{
    if (m_hoverBtn != 0)
        ButtonUp(m_hoverBtn);
}
