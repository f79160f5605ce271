// Makes a skin visible as the player's face. It shows values, and tells which command, volume and position
// its user wants; it knows no player.
#pragma once

#include "player/displays/statelights.h"
#include "player/face/buttonlayer.h"
#include "player/face/facecanvas.h"
#include "player/face/facecontrols.h"
#include "player/face/skinapplier.h"
#include "player/face/skinstate.h"
#include "player/face/sliderlayer.h"

class FaceHost;
class FileNumbers;
class StatusLine;

class Face : public FaceCanvas {
    Q_OBJECT

public:
    Face(FaceHost& host, FileNumbers& numbers, QWidget* parent = nullptr);

    FaceControls controls;

    SkinTarget& skinTarget() { return m_applier; } // a skin is loaded onto it
    const SkinState& skin() const { return m_skin; }
    ButtonLayer& buttons() { return m_buttons; }
    SliderLayer& sliders() { return m_sliders; }
    StatusLine& status() { return *m_status; }

    // --- values ---

    void caption(Label label, const QString& text);
    // Paints a display with its value, and nothing where the skin has no such display.
    void SetDD(DisplayItem item, const DisplayValue& value);
    void showLights(const PlayerFlags& flags); // and the marks
    void showMarks(const PlayerFlags& flags);
    void paintAnew(); // from the bare background on

    // --- size and outline ---

    bool fits() const; // it is as large as the screen has room for
    void fit();
    void nextSizeMode();
    // Returns rectangles of the window; without any the window is whole.
    std::vector<QRect> outline() const;
    // Tells what the window is cut to, nothing when it is empty. The status line keeps within it.
    void setCut(const QRegion& cut);

    // --- for whoever makes a skin ---

    void showAreas(bool on); // buttons and labels become visible
    void frameButtons(bool on);

private:
    static FaceControls madeOn(QWidget* face);
    SkinApplier::Hooks hooks();
    SliderLayer::Actions sliderActions();
    void connectControls();
    void letGo();

    QSize faceSize(int sizeMode) const; // in pixels of its own
    FaceScale fittingScale() const;
    void takeSize();
    void shapeStatusLine();
    void wipeDisplay(int number, const QRegion& painted);

    FaceHost& m_host;
    StatusLine* m_status;
    SkinState m_skin;
    SkinApplier m_applier;
    ButtonLayer m_buttons;
    SliderLayer m_sliders;
    NameScroll m_scroll;
    std::array<QRegion, kDisplays + 1> m_painted; // the glyphs of each display, on the face
    QRegion m_cut;
};
