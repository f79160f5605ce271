// The player's window. It has no look of its own: a skin gives its face, its outline and where everything is.
#pragma once

#include "player/displays/clocktick.h"
#include "player/displays/displaytext.h"
#include "player/displays/statelights.h"
#include "player/face/buttonlayer.h"
#include "player/face/facecontrols.h"
#include "player/face/skinstate.h"
#include "player/face/sliderlayer.h"
#include "player/playback/playbackengine.h"
#include "player/playback/playercontext.h"
#include "player/playback/playerkeeper.h"
#include "player/playback/volumelevel.h"
#include "player/playlist/playlist.h"
#include "player/playlist/playlistcommands.h"
#include "player/tonedeck/coverkeeper.h"
#include "player/tonedeck/desktopplayer.h"
#include "player/tonedeck/skinapplier.h"
#include "player/tonedeck/skinloader.h"
#include "player/tonedeck/tonedeckview.h"
#include "player/tonedeck/windowdrag.h"
#include "toolkit/widgets/form.h"

#include <QDateTime>

#include <array>

class FaceCanvas;
class QMenu;
class QTimer;
class StatusLine;
struct PlayerCommand;

class frmTonedeck : public Form {
    Q_OBJECT

public:
    explicit frmTonedeck(PlayerContext& context);
    ~frmTonedeck() override;

    FaceControls controls;
    QTimer* Timer1 = nullptr; // the playback, every 100 ms
    QTimer* Timer2 = nullptr; // clock, scrolling name, volume
    QMenu* mnuPopup = nullptr;
    bool KeysOff = false; // single keys are no commands

    // A skin file's name or full path. Silent: an imported skin's pictures come from where they were before.
    void LoadSkin(const QString& name, bool silent, SkinDiagnostics* notes = nullptr);
    void SelectSkin();

    // Paints a display with its value; nothing where the skin has no such display.
    void SetDD(DisplayItem item, const DisplayValue& value);
    void Form_Paint();
    void ShowLights();
    void ShowMarks(); // part of it: all that follows a file's facts
    void LoadCover(const QString& path);
    void LoadTagCover(const QString& directory, TagRecord& tag);
    void MakeDayStr();

    void PlAddFileFromEditor(const QString& path); // one entry
    void PlClear();
    void EjectDirect();
    // A file, a directory or a playlist: a path of the program or of this machine, or a file address. It is
    // added and played; before the window is loaded it waits for that.
    void openAndPlay(const QString& path);

    void DoIt(Command command);
    // By its code, 1 to 50; any other does nothing.
    void DoIt(int code);

    void ShowMixer();
    void changeVolume(float wished); // from 0 to 1; what lies beyond is brought there
    void changeVolumeBy(int percent);
    float volume() { return m_volume.value(); }
    bool muted() { return m_volume.muted(); }

    const Playlist& playlist() const { return m_playlist; }
    PlaybackEngine& engine() { return m_engine; }
    const SkinState& skin() const { return m_skin; }
    const SkinLoader& skinLoader() const { return m_loader; }
    SliderLayer& sliders() { return m_sliders; }
    ButtonLayer& buttons() { return m_buttons; }
    const PlayerContext& context() const { return m_context; }
    const QString& coverPath() const { return m_cover.path(); }
    QChar dayLetter() const { return m_dayLetter; } // of "UMTWRFS"
    const QImage& face() const;                     // as it is composed, at the skin's pixels

    bool yield();                   // to the event loop; false when the window was closed meanwhile
    void tell(const QString& text); // in a box
    void say(const QString& text);  // in the status line

    // What the screen has for the window.
    std::function<QRect()> workArea;
    // The time of the clock.
    std::function<QDateTime()> now = [] { return QDateTime::currentDateTime(); };
    // By which it is told how much time has passed: nobody sets it.
    std::function<std::chrono::steady_clock::time_point()> moment = std::chrono::steady_clock::now;
    void Timer1_Timer();
    void Timer2_Timer();

protected:
    void Form_Load() override;
    void Form_Unload() override;
    bool Form_KeyPress(QChar typed) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    PlaylistSeams seams() const;
    QSize faceSize(int sizeMode) const; // in pixels of its own
    FaceScale fittingScale() const;
    SkinApplier::WindowHooks hooks();
    SkinScreen screenOfWindow();
    SliderLayer::Actions sliderActions();

    void connectPlaylist();
    void connectPointer();
    void connectTimers();
    void restorePlace();
    void loadFirstSkin();
    void restoreList();
    void settleVolume(int pause);
    void takeStock();
    void keepChanges();
    void startPlaying();
    void playFirst();

    void placeByCode(int position);
    void applySize();
    void fitScreen();
    void applyOutline();
    void nextSizeMode();
    void shapeStatusLine();
    void paintAnew();
    void letGo();

    void wipeDisplay(DisplayItem item, const QRegion& painted);
    bool holds() const;

    void showAreas(bool on);
    void frameButtons(bool on);
    void showMenu(QPoint place);

    void playlistChanged();
    void markPlaying();
    void playEntry(int index);
    void withPlaylist(const std::function<void(PlaylistCommands&)>& command);
    bool takesSet(const QString& path);
    void loadPlaylist();
    void playFile(const QString& path);
    void playList(const QString& path, bool replaces);
    static bool isPlaylist(const QString& path); // by its name
    QString nameOfOpened(const QString& path) const;
    void switchSkin(Command command);
    void toggle(bool& mode);
    void toggleTime();
    void toggleMute();

    DisplayClock clock() const;
    void showClock();
    void showVolume();
    void placeVolume(float value);
    void tellVolume(int percent);
    PlayerFlags flags();

    friend struct PlayerCommand;

    PlayerContext& m_context;
    FaceCanvas* m_canvas;
    StatusLine* m_status;
    SkinState m_skin;
    SkinApplier m_applier;
    SkinLoader m_loader;
    Playlist m_playlist;
    PlaylistModel* m_names;
    PlaylistModel* m_paths;
    NameScroll m_scroll;
    std::array<QRegion, kDisplays + 1> m_painted; // the glyphs of each display, on the face

    std::array<std::unique_ptr<MediaElement>, 2> m_devices; // MMControl(0) and (1)
    std::unique_ptr<WaveVolume> m_waveVolume;
    VolumeLevel m_volume;
    TonedeckView m_engineFace;
    PlaybackEngine m_engine;
    CoverKeeper m_cover;
    PlayerKeeper m_keeper;
    ButtonLayer m_buttons;
    SliderLayer m_sliders;
    WindowDrag m_drag;
    DesktopPlayer m_desktop;

    MinuteWatch m_minute;
    QChar m_dayLetter;
    QStringList m_commandLine; // files that wait for the window
    QString m_droppedSet;      // of pictures
    float m_shownVolume = -1;
    int m_entriesTold = 0;  // to the desktop
    bool m_started = false; // it plays what it is given
    bool m_centres = false; // when it gets its size
    bool m_telling = false; // a box is open
    QString m_untold;       // for the next one
};
