// Gives what a skin needs while it is read besides its target: answers, messages, the event loop.
#pragma once

#include "player/skin/skintexts.h"

#include <QByteArray>
#include <QString>

#include <optional>

class SkinReader;
class SkinTarget;

// Tells where an import skin looks for the pictures of another program, as its file proposes it.
struct SkinImport {
    QString directory{};
    QString filter{}; // as FileQuestion has it
    QString file{};
};

class SkinHost {
public:
    virtual ~SkinHost() = default;

    // Returns the directory of the pictures, with a trailing backslash; nothing abandons the load.
    virtual std::optional<QString> importDirectory(const SkinImport& proposed) = 0;
    // Returns a text beside a set's pictures, and nothing when there is none, or none that a set could have.
    virtual std::optional<QByteArray> hints(const QString& path)
    {
        static_cast<void>(path);
        return std::nullopt;
    }
    virtual void chosen() = 0; // the bitmaps are there: from now on this is the player's skin
    virtual void message(const QString& text) = 0;

    virtual void yield() = 0;        // to the event loop; called at most every 33 ms
    virtual bool closed() const = 0; // the window, meanwhile: the load ends then
    // Tells that the user ended the load: it ends as one does that comes upon an error.
    virtual bool stopped() const { return false; }
};

// Gathers what the reading of a control file works on.
struct SkinSeams {
    SkinReader& reader;
    SkinTarget& target;
    SkinHost& host;
    SkinTexts& texts;
};
