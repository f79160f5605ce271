// Says what a face asks of the window round it, and what it tells that window.
#pragma once

#include "player/displays/displaytext.h"

#include <QSize>

class FaceHost {
public:
    virtual ~FaceHost() = default;

    // --- what it asks ---

    virtual QSize room() const = 0; // of the screen, in toolkit pixels
    virtual DisplayClock clock() const = 0;
    virtual bool scrollsName() const = 0;

    // --- what becomes of it ---

    virtual void skinLoads(bool begins) = 0; // or has ended
    virtual void faceSized() = 0;            // to controls.scale.window()
    virtual void placeByCode(int position) = 0;
    virtual void outlineChanged() = 0;
    virtual void Form_Paint() = 0; // the face is bare: it wants its values
    virtual void ShowLights() = 0;

    // --- what its user wants ---

    virtual void command(int code) = 0;
    virtual void volumeWished(float value) = 0;  // from 0 to 1
    virtual void positionWished(float part) = 0; // likewise, of the entry
};
