// Loads skins onto a face: finds the file, asks and tells the user, keeps what lasts.
#pragma once

#include "player/playback/command.h"
#include "player/playback/playercontext.h"
#include "player/skin/skinhost.h"
#include "player/tonedeck/pictureset.h"

#include <functional>

class SkinDiagnostics;
class SkinTarget;

// Gathers what the loader asks of the window and its screen.
struct SkinScreen {
    std::function<int()> width{};   // pixels
    std::function<bool()> closed{}; // the window, while a skin loads
};

class SkinLoader : private SkinHost {
public:
    SkinLoader(const PlayerContext& context, SkinTarget& target, SkinScreen screen);

    // Takes a skin's file name or full path, or that of a packed set of pictures. When it is silent it asks
    // for no directory of an import skin. All failures are told by messages. It does nothing while a load
    // runs.
    void LoadSkin(const QString& name, bool silent, SkinDiagnostics* notes = nullptr);
    void SelectSkin();
    void switchSkin(Command command); // to the one that this command loads, if it is named

    // Returns where LoadSkin would find it.
    std::optional<QString> find(const QString& name) const;
    bool loading() const { return m_loading; }
    // Ends the load that runs, at its next yield; the skin of the settings is the one before then.
    void stop() { m_stopped = true; }

    const QString& SkinDir() const { return m_skinDir; } // of the last skin, with a trailing backslash
    const QString& SkinInfoText() const { return m_texts.info; }
    QString switchName(Command command) const; // what PreviousSkin or NextSkin loads

private:
    std::optional<QString> importDirectory(const SkinImport& proposed) override;
    std::optional<QByteArray> hints(const QString& path) override;
    void chosen() override;
    void message(const QString& text) override;
    void yield() override;
    bool closed() const override;
    bool stopped() const override { return m_stopped; }

    QString wanted(const QString& name) const;
    std::optional<QString> found(const QString& wantedName) const;
    std::optional<QString> foundOrTold(const QString& file);
    void wear(const QString& set, SkinDiagnostics* notes);
    std::optional<QString> directoryOf(const QString& file) const;
    void load(const QString& path, SkinDiagnostics* notes);

    PlayerContext m_context;
    SkinTarget& m_target;
    const SkinScreen m_screen;
    const PictureSets m_sets;

    bool m_loading = false;
    bool m_silent = false;
    bool m_stopped = false;
    bool m_cancelled = false; // the question for an import skin's pictures
    QString m_skin{};         // the file in work
    QString m_skinDir{};
    SkinTexts m_texts{};
    std::optional<QString> m_set{}; // the directory of the set that is to be worn
};
