// Is the player's window. It has no look of its own: a skin gives its face, its outline and where everything
// is. It puts the parts of the player together and keeps the order in which they are loaded and unloaded.
#pragma once

#include "player/face/face.h"
#include "player/face/facehost.h"
#include "player/playback/player.h"
#include "player/tonedeck/clockpanel.h"
#include "player/tonedeck/coverkeeper.h"
#include "player/tonedeck/desktopplayer.h"
#include "player/tonedeck/onebox.h"
#include "player/tonedeck/playerwindow.h"
#include "player/tonedeck/playlistpanel.h"
#include "player/tonedeck/skinloader.h"
#include "player/tonedeck/tonedeckview.h"
#include "player/tonedeck/volumepanel.h"
#include "player/tonedeck/windowdrag.h"
#include "toolkit/widgets/form.h"

class QMenu;

class frmTonedeck : public Form, private PlayerWindow, private FaceHost {
    Q_OBJECT

    Face& m_face; // a child of this window

public:
    explicit frmTonedeck(PlayerContext& context);
    ~frmTonedeck() override;

    FaceControls& controls = m_face.controls;
    QTimer* Timer1; // the playback, every 100 ms
    QTimer* Timer2; // clock, scrolling name, volume
    QMenu* mnuPopup;
    bool KeysOff = false; // single keys are no commands

    // Returns what the screen has for the window.
    std::function<QRect()> workArea;
    // Tells how much time has passed: nobody sets this clock.
    std::function<std::chrono::steady_clock::time_point()> moment = std::chrono::steady_clock::now;

    // Takes a skin file's name or full path. When it is silent, an imported skin's pictures come from where
    // they were before.
    void LoadSkin(const QString& name, bool silent, SkinDiagnostics* notes = nullptr);

    void SelectSkin() { m_loader.SelectSkin(); }
    void DoIt(Command command) { ::DoIt(m_parts, command); }
    void DoIt(int code) { ::DoIt(m_parts, code); }

    void SetDD(DisplayItem item, const DisplayValue& value) { m_face.SetDD(item, value); }
    void Form_Paint() override;
    void ShowLights() override { m_view.showLights(); }
    void ShowMarks() { m_view.ShowMarks(); }
    void MakeDayStr() { m_clock.MakeDayStr(); }
    void LoadCover(const QString& path) { m_view.loadCover(path); }
    void LoadTagCover(const QString& directory, TagRecord& tag) { m_cover.LoadTagCover(directory, tag); }

    void PlAddFileFromEditor(const QString& path) { m_player.PlAddFileFromEditor(path); }
    void PlClear() { m_player.PlClear(); }
    void EjectDirect() { m_player.EjectDirect(); }
    void openAndPlay(const QString& path) { m_player.openAndPlay(path); }

    void ShowMixer() { m_volume.ShowMixer(); }
    void changeVolume(float wished) { m_volume.changeVolume(wished); }
    void changeVolumeBy(int percent) { m_volume.changeVolumeBy(percent); }
    float volume() const { return m_volume.volume(); }
    bool muted() const { return m_volume.muted(); }

    Player& player() { return m_player; }
    const Playlist& playlist() const { return m_player.list(); }
    PlaybackEngine& engine() { return m_player.engine(); }
    const PlayerContext& context() const { return m_player.context(); }
    const SkinState& skin() const { return m_face.skin(); }
    const SkinLoader& skinLoader() const { return m_loader; }
    SliderLayer& sliders() { return m_face.sliders(); }
    ButtonLayer& buttons() { return m_face.buttons(); }
    const Parts& parts() const { return m_parts; }
    const QString& coverPath() const { return m_cover.path(); }
    QChar dayLetter() const { return m_clock.dayLetter(); }
    const QImage& face() const { return m_face.composed(); } // at the skin's pixels
    void tell(const QString& text) { m_box.tell(text); }
    void say(const QString& text) { m_view.say(text); }

    void guard(const std::function<void()>& handler) override { Form::guard(handler); }
    bool yield() override;
    void unload() override { Form::unload(); }

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
    // --- what its parts ask ---

    bool isClosing() const override { return closing(); }
    void bringToFront() override { showForm(); }
    void minimise() override { showMinimized(); }

    QSize room() const override { return workArea().size(); }
    DisplayClock clock() const override { return m_clock.clock(); }
    bool scrollsName() const override;
    void skinLoads(bool begins) override;
    void faceSized() override;
    void placeByCode(int position) override;
    void outlineChanged() override;
    void command(int code) override;
    void volumeWished(float value) override;
    void positionWished(float part) override;

    // --- start and end ---

    QTimer* makeTimer(const char* name, int interval, void (frmTonedeck::*tick)());
    void connectPointer();
    void restorePlace();
    void loadFirstSkin();
    void startPlaying();
    void takeStock();
    void keepChanges();

    // --- while it is there ---

    void fitScreen();
    bool holds() const;
    void loseHold();
    void showMenu(QPoint place);
    bool isSet(const QString& path) const;

    OneBox m_box;
    TonedeckView m_view;
    Player m_player;
    SkinLoader m_loader;
    CoverKeeper m_cover;
    ClockPanel m_clock;
    VolumePanel m_volume;
    PlaylistPanel m_list;
    Parts m_parts;
    WindowDrag m_drag;
    DesktopPlayer m_desktop;
    bool m_centres = false; // when it gets its size

public:
    std::function<QDateTime()>& now = m_clock.now; // the time of the clock
};
