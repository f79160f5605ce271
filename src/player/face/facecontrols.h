// Holds the controls that a skin moves, colours, fills and shows. All exist before any skin is loaded.
#pragma once

#include "player/displays/displaytext.h"
#include "player/face/faceitems.h"
#include "player/face/facetext.h"
#include "player/face/hotarea.h"
#include "player/face/playlistbox.h"
#include "player/face/sliderthumb.h"
#include "player/playback/command.h"
#include "player/skin/skinmarks.h"

#include <array>
#include <type_traits>

// Holds the controls of one kind by their numbers, some of which have names.
template <typename Control, int First, int Last, typename Name = int>
class ControlArray {
public:
    static constexpr int kFirst = First;
    static constexpr int kLast = Last;

    Control*& operator[](int number) { return m_controls[static_cast<std::size_t>(number - First)]; }
    Control* operator[](int number) const { return m_controls[static_cast<std::size_t>(number - First)]; }
    Control* operator[](Name name) const requires(!std::is_same_v<Name, int>)
    {
        return (*this)[static_cast<int>(name)];
    }
    auto begin() const { return m_controls.begin(); }
    auto end() const { return m_controls.end(); }

private:
    std::array<Control*, Last - First + 1> m_controls{};
};

struct FaceControls {
    FaceScale scale{};
    ControlArray<HotArea, 1, kButtons, Command> Btn;
    ControlArray<FaceLabel, 1, kLabels, Label> Lbl;
    ControlArray<StateLight, 1, kLights> Light;
    ControlArray<PictureBox, 1, kMarks> Mark;
    ControlArray<SliderThumb, 1, kSliders> iSlider;
    ControlArray<DisplayMark, 1, kDisplays, DisplayItem> Dig;
    ControlArray<PictureBox, 0, kWorkPictures - 1> Pic;
    ControlArray<PictureBox, 1, 1> Img;
    PictureBox* ResBmp = nullptr;
    PictureBox* TmpBtn = nullptr;
    CoverBox* iCover = nullptr;
    PlaylistBox* PlNames = nullptr;
    QListView* PlPath = nullptr;

    // Makes them hidden, below `face`, and names them by their kinds and numbers: "Btn(1)".
    void make(QWidget* face);
    void setScale(const FaceScale& scale); // all of them go to their places on the window
    // Returns what is composed with the face, from the lowest to the highest.
    std::vector<FaceItem*> faceItems() const;
};
