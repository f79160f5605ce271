// Told of whatever a maker of skins would want to know and the player keeps to itself.
#pragma once

#include <QString>

class SkinNotes {
public:
    virtual ~SkinNotes() = default;
    virtual void note(int line, const QString& text) = 0; // lines count from 1
};
