// Is told of whatever a maker of skins would want to know and the player keeps to itself.
#pragma once

#include <QString>

class SkinDiagnostics {
public:
    virtual ~SkinDiagnostics() = default;
    virtual void note(int line, const QString& text) = 0; // lines count from 1

    // These are no faults of the skin: what it took from the directory of its work pictures, and the last of
    // the names that it asked for before it went on without a picture.
    virtual void used(const QString& path) { static_cast<void>(path); }
    virtual void lacks(const QString& path) { static_cast<void>(path); }
};
