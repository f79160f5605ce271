// The player's window. It has no look of its own: a skin gives its face, its outline and where everything is.
#pragma once

#include "platform/form.h"
#include "player/playercontext.h"
#include "player/playlist.h"
#include "player/playlistcommands.h"
#include "skin/bitmaptext.h"
#include "skin/facecontrols.h"
#include "skin/skinapplier.h"
#include "skin/skinloader.h"
#include "skin/skinstate.h"
#include "skin/statelights.h"

class FaceCanvas;
class QTimer;

class frmTonedeck : public Form {
    Q_OBJECT

public:
    explicit frmTonedeck(PlayerContext& context);
    ~frmTonedeck() override;

    FaceControls controls;
    QTimer* Timer1 = nullptr;

    // A skin file's name or full path. Silent: an imported skin's pictures come from where they were before.
    void LoadSkin(const QString& name, bool silent, SkinNotes* notes = nullptr);
    void SelectSkin();

    // Paints a display with its value; nothing where the skin has no such display.
    void SetDD(int item, const DisplayValue& value);
    void Form_Paint();
    void ShowLights();

    void PlAddFileFromEditor(const QString& path); // one entry

    // A command by its code, 1 to 50; any other does nothing.
    void DoIt(int code);

    const Playlist& playlist() const { return m_playlist; }
    const SkinState& skin() const { return m_skin; }
    const SkinLoader& skinLoader() const { return m_loader; }
    const QImage& face() const; // as it is composed, at the skin's pixels

protected:
    void Form_Load() override;
    void Form_Unload() override;
    void changeEvent(QEvent* event) override;

private:
    PlaylistSeams seams() const;
    QSize wantedSize() const; // in pixels, by the size mode
    SkinApplier::WindowHooks hooks();
    SkinScreen screenOfWindow();

    struct Command;
    static const std::vector<Command>& commands();

    void connectPlaylist();
    void connectButtons();
    void restorePlace();
    void loadFirstSkin();
    void restoreList();

    void placeByCode(int position);
    void applySize();
    void applyOutline();
    void nextSizeMode();
    void paintAnew();

    void playlistChanged();
    void withPlaylist(const std::function<void(PlaylistCommands&)>& command);
    void switchSkin(int button);
    DisplayClock clock() const;

    PlayerContext& m_context;
    FaceCanvas* m_canvas;
    SkinState m_skin;
    SkinApplier m_applier;
    SkinLoader m_loader;
    PlayerFlags m_flags;
    Playlist m_playlist;
    PlaylistModel* m_names;
    PlaylistModel* m_paths;
    NameScroll m_scroll;
    QStringList m_autoList;
    QString m_currentName; // of the entry that was last played
    qint32 m_shownMs = 0;
    bool m_centres = false; // when it gets its size
};
