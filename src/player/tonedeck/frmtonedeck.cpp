#include "player/tonedeck/frmtonedeck.h"

#include "platform/dialogs.h"
#include "platform/mediamachine.h"
#include "platform/program.h"
#include "player/face/faceaccess.h"
#include "player/face/facecanvas.h"
#include "player/face/statusline.h"
#include "player/playback/playersettings.h"
#include "player/playlist/modcommon.h"
#include "player/tonedeck/windowplacement.h"
#include "toolkit/widgets/windowing.h"

#include <QMenu>
#include <QTimer>
#include <QWindowStateChangeEvent>

#include <algorithm>
#include <utility>

namespace {

constexpr int kPlaybackTick = 100; // milliseconds
constexpr int kClockTick = 250;    // so that no second is missed
constexpr int kWhereItIs = 0;      // position code
constexpr int kSoon = 20;          // until the system may have told its volume
constexpr int kLater = 1000;       // where no sound server runs

} // namespace

frmTonedeck::frmTonedeck(PlayerContext& context)
    : Form(context.platform.dialogs, context.platform.program, "frmTonedeck", QStringLiteral("Tonedeck")),
      workArea([this] { return GetWorkArea(*this); }), m_context(context), m_canvas(new FaceCanvas(this)),
      m_status((controls.make(m_canvas), new StatusLine(m_canvas, *controls.Lbl[Label::Name]))),
      m_applier(controls, m_skin, context.fileNumbers, hooks()),
      m_loader(context, m_applier, screenOfWindow()), m_devices{context.media.makeDevice(),
                                                                context.media.makeDevice()},
      m_waveVolume(context.media.makeVolume()),
      m_volume(*m_waveVolume, context.platform.settings, context.platform.program), m_engineFace(*this),
      m_engine(m_playlist, m_engineFace,
               {context.platform,
                context.fileNumbers,
                context.codePage,
                context.settings,
                {m_devices[0].get(), m_devices[1].get()}}),
      m_cover(context, *controls.iCover),
      m_keeper(context.platform.settings, context.settings, m_playlist, seams()),
      m_buttons(controls, m_skin, [this](int number) { guard([&] { DoIt(number); }); }),
      m_sliders(controls, m_skin, sliderActions()), m_drag(*this, context.settings),
      m_desktop(*this, context.desktopControls)
{
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    setCentralWidget(m_canvas);
    m_canvas->setItems(controls.faceItems());
    mnuPopup = new QMenu(this);
    mnuPopup->setObjectName(QStringLiteral("mnuPopup"));
    offerFaceToReaders();
    setAcceptDrops(true);
    setKeyPreview();
    connectTimers();
    connectPlaylist();
    connectPointer();
}

// Many an end comes without unloading. The settings name the skin of a load that runs still, which nobody may
// have seen yet.
frmTonedeck::~frmTonedeck()
{
    if (!m_keeper.hasBegun() || m_loader.loading())
        return;
    takeStock();
    m_keeper.saveChanges();
}

void frmTonedeck::connectTimers()
{
    const auto timer = [this](const char* name, int interval, void (frmTonedeck::*tick)()) {
        auto* made = new QTimer(this);
        made->setObjectName(QLatin1String(name));
        made->setInterval(interval);
        connect(made, &QTimer::timeout, this, [this, made, tick] {
            // Begun anew: a tick may yield to what lasts (a dialog), and a timer of the toolkit's rests until
            // its last tick is over.
            made->start();
            guard([&] {
                if (!closing())
                    (this->*tick)();
            });
        });
        return made;
    };
    Timer1 = timer("Timer1", kPlaybackTick, &frmTonedeck::Timer1_Timer);
    Timer2 = timer("Timer2", kClockTick, &frmTonedeck::Timer2_Timer);
}

void frmTonedeck::connectPlaylist()
{
    m_names = new PlaylistModel(m_playlist, PlaylistModel::Shows::Names, this);
    m_paths = new PlaylistModel(m_playlist, PlaylistModel::Shows::Paths, this);
    controls.PlNames->setModel(m_names);
    controls.PlPath->setModel(m_paths);
    m_playlist.setObserver([this] { playlistChanged(); });
    connect(controls.PlNames, &PlaylistBox::rowChosen, this,
            [this](int row) { guard([&] { m_playlist.select(row); }); });
    connect(controls.PlNames, &PlaylistBox::doubleClicked, this,
            [this](const QModelIndex& index) { guard([&] { playEntry(index.row()); }); });
    connect(controls.PlNames, &PlaylistBox::deletePressed, this,
            [this] { guard([&] { m_playlist.remove(m_playlist.selected()); }); });
    playlistChanged();
}

// --- start and end --------------------------------------------------------------------------------

void frmTonedeck::Form_Load()
{
    PlayerSettings& settings = m_context.settings;
    m_keeper.loadOptions();
    restorePlace();
    SetOnTop(*this, settings.WinOnTop != 0);
    MakeDayStr();
    loadFirstSkin();
    if (closing())
        return;
    settleVolume(kSoon);
    Timer2->start();
    if (settings.StartMin != 0)
        setWindowState(windowState() | Qt::WindowMinimized);
    startPlaying();
}

// A file from outside comes before what is played by itself.
void frmTonedeck::startPlaying()
{
    const PlayerSettings& settings = m_context.settings;
    constexpr int kLastPlaylist = 1;
    constexpr int kStartFile = 2;
    if (settings.StartMd == kLastPlaylist)
        restoreList();
    else if (settings.StartMd == kStartFile)
        withPlaylist([&](PlaylistCommands& list) { list.addPath(settings.StartFile); });
    takeStock();
    m_keeper.begin();
    if (!m_keeper.unread().isEmpty())
        m_status->sayFirst(m_keeper.unread());
    // Once the window is there: a medium may take its time, or be reported.
    QTimer::singleShot(0, this, [this] { guard([this] { playFirst(); }); });
}

void frmTonedeck::playFirst()
{
    m_started = true;
    const QStringList files = std::exchange(m_commandLine, {});
    for (const QString& file : files)
        playFile(file);
    if (files.isEmpty() && m_context.settings.AutoPlay == 1 && !closing())
        m_engine.PlayIt();
}

// Where it was when its position was saved; else in the middle, once the first skin has told its size.
void frmTonedeck::restorePlace()
{
    PlayerSettings& settings = m_context.settings;
    constexpr float kNone = 1e9F; // nowhere: what the store does not have stays as it is
    settings.X = settings.Y = kNone;
    loadPosition(m_context.platform.settings, settings);
    m_centres = settings.X == kNone || settings.Y == kNone;
    if (m_centres) {
        settings.X = static_cast<float>(toTwips(x()));
        settings.Y = static_cast<float>(toTwips(y()));
    }
    placeHere();
    move(fromTwips(static_cast<int>(settings.X)), fromTwips(static_cast<int>(settings.Y)));
}

void frmTonedeck::loadFirstSkin()
{
    PlayerSettings& settings = m_context.settings;
    const QString standard =
        AddSlash(m_context.platform.program.directory()) + QStringLiteral("default.skin");
    const bool chosen = !settings.Skin.isEmpty();
    const bool there = chosen && FileExists(m_context.platform.files, settings.Skin);
    if (chosen && !there)
        dialogs().message(
            {.text =
                 QStringLiteral("Previously selected skin not found (%1)! Using default").arg(settings.Skin),
             .title = program().title()});
    // What fails in it must not end the start.
    guard([&] { LoadSkin(there ? settings.Skin : standard, true); });
    // Else nobody could see the window, nor choose another skin in it.
    if (there && m_skin.background.isNull() && !closing())
        LoadSkin(standard, true);
    placeByCode(kWhereItIs); // but on a screen that is there
}

void frmTonedeck::restoreList()
{
    m_keeper.restoreList(m_playlist);
    SetDD(DisplayItem::Track, static_cast<double>(m_playlist.CurTrack()));
    if (const QString cover = m_context.settings.LastCover; !cover.isEmpty())
        LoadCover(cover);
}

// What was there before a mute is known only once the system has told its volume.
void frmTonedeck::settleVolume(int pause)
{
    if (!m_volume.settle()) {
        QTimer::singleShot(pause, this, [this, pause] {
            guard([&] {
                if (!closing())
                    settleVolume(std::min(2 * pause, kLater));
            });
        });
    } else if (m_context.settings.StartMute != 0 && !m_volume.muted()) {
        toggleMute();
    }
    showVolume();
}

// --- what it keeps --------------------------------------------------------------------------------

void frmTonedeck::takeStock()
{
    PlayerSettings& settings = m_context.settings;
    settings.LastTrack = m_playlist.CurTrack();
    if (settings.WinSavePos == 0)
        return;
    settings.X = static_cast<float>(toTwips(x()));
    settings.Y = static_cast<float>(toTwips(y()));
}

// Not in the midst of a load: of a skin that never ends each start would begin to load it again.
void frmTonedeck::keepChanges()
{
    if (m_loader.loading())
        return;
    takeStock();
    if (const QString failure = m_keeper.look(moment()); !failure.isEmpty())
        say(failure);
}

void frmTonedeck::Form_Unload()
{
    Timer1->stop();
    Timer2->stop();
    m_engine.closeDevices();
    takeStock();
    m_keeper.saveAll();
}

void frmTonedeck::changeEvent(QEvent* event)
{
    Form::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange)
        return;
    const auto before = static_cast<QWindowStateChangeEvent*>(event)->oldState();
    if ((before & Qt::WindowMinimized) && !isMinimized())
        guard([this] { Form_Paint(); });
}
