#include "player/face/facecontrols.h"

namespace {

template <typename Control>
Control* made(QWidget* parent, const QString& name)
{
    auto* control = new Control(parent);
    control->setObjectName(name);
    control->hide();
    return control;
}

// They paint nothing: a repaint of the window need not ask each of them.
template <typename Controls>
void leaveOutOfPainting(const Controls& controls)
{
    for (QWidget* control : controls)
        control->setUpdatesEnabled(false);
}

template <typename Control, int First, int Last, typename Name>
void makeAll(ControlArray<Control, First, Last, Name>& controls, QWidget* parent, const QString& kind)
{
    for (int number = First; number <= Last; ++number)
        controls[number] = made<Control>(parent, QStringLiteral("%1(%2)").arg(kind).arg(number));
}

void makeButtons(ControlArray<HotArea, 1, kButtons, Command>& buttons, QWidget* face)
{
    for (int number = 1; number <= kButtons; ++number) {
        buttons[number] = new HotArea(number, face);
        buttons[number]->setObjectName(QStringLiteral("Btn(%1)").arg(number));
        buttons[number]->hide();
    }
}

} // namespace

// They are made from the lowest to the highest.
void FaceControls::make(QWidget* face)
{
    makeAll(Dig, face, QStringLiteral("Dig"));
    makeAll(Light, face, QStringLiteral("Light"));
    makeAll(Mark, face, QStringLiteral("Mark"));
    makeAll(Img, face, QStringLiteral("Img"));
    makeAll(Lbl, face, QStringLiteral("Lbl"));
    iCover = made<CoverBox>(face, QStringLiteral("iCover"));
    makeButtons(Btn, face);
    makeAll(iSlider, face, QStringLiteral("iSlider"));
    TmpBtn = made<PictureBox>(face, QStringLiteral("TmpBtn"));
    PlNames = made<PlaylistBox>(face, QStringLiteral("PlNames"));
    PlPath = made<QListView>(face, QStringLiteral("PlPath"));
    makeAll(Pic, face, QStringLiteral("Pic"));
    ResBmp = made<PictureBox>(face, QStringLiteral("ResBmp"));
    leaveOutOfPainting(Dig);
    leaveOutOfPainting(faceItems());
    for (StateLight* light : Light)
        light->setAttribute(Qt::WA_TransparentForMouseEvents);
    for (PictureBox* mark : Mark)
        mark->setAttribute(Qt::WA_TransparentForMouseEvents);
    for (QWidget* display : Dig)
        display->setMouseTracking(true);
    iCover->setMouseTracking(true);
    for (const Label clickable : {Label::Time, Label::Name})
        Lbl[clickable]->setClickable();
}

void FaceControls::setScale(const FaceScale& wanted)
{
    const bool anew = wanted.factor() != scale.factor();
    scale = wanted;
    if (!anew)
        return;
    std::vector<OnFace*> all(Btn.begin(), Btn.end());
    all.insert(all.end(), Lbl.begin(), Lbl.end());
    all.insert(all.end(), Dig.begin(), Dig.end());
    for (FaceItem* item : faceItems())
        all.push_back(item);
    all.push_back(iCover);
    all.push_back(PlNames);
    for (OnFace* control : all)
        control->setScale(scale);
}

std::vector<FaceItem*> FaceControls::faceItems() const
{
    std::vector<FaceItem*> items(Light.begin(), Light.end());
    items.insert(items.end(), Mark.begin(), Mark.end());
    items.insert(items.end(), Img.begin(), Img.end());
    items.insert(items.end(), iSlider.begin(), iSlider.end());
    items.push_back(TmpBtn);
    return items;
}
