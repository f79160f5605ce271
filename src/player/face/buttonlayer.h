// Answers to the pointer over the skin's buttons: hover, pressed picture, release. What a button does is its
// command.
#pragma once

#include <QObject>

#include <functional>

struct FaceControls;
struct SkinState;

class ButtonLayer : public QObject {
    Q_OBJECT

public:
    ButtonLayer(FaceControls& controls, const SkinState& state, std::function<void(int)> doIt);

    void ButtonDown(int number); // shows it pressed
    void ButtonUp(int number);   // releases it and runs its command
    void bareFace();             // the pointer is over no button any more

    int HoverBtn() const { return m_hoverBtn; } // 0: none

private:
    void Btn_MouseMove(int number);
    void Btn_MouseDown(int number);
    void TmpBtn_MouseDown();
    void TmpBtn_MouseUp();
    void setBorder(int number, bool on);

    FaceControls& m_controls;
    const SkinState& m_state;
    std::function<void(int)> m_doIt;
    int m_hoverBtn = 0;
};
