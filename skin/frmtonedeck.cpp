#include "skin/frmtonedeck.h"

#include "platform/dialogs.h"
#include "platform/program.h"
#include "platform/windowing.h"
#include "player/modcommon.h"
#include "player/playersettings.h"
#include "player/startlist.h"
#include "player/windowplace.h"
#include "skin/facecanvas.h"
#include "skin/skinbitmap.h"

#include <QTimer>
#include <QWindowStateChangeEvent>

namespace {

constexpr int kTick = 100; // milliseconds

} // namespace

frmTonedeck::frmTonedeck(PlayerContext& context)
    : Form(context.platform.dialogs, context.platform.program, "frmTonedeck", QStringLiteral("Tonedeck")),
      m_context(context), m_canvas(new FaceCanvas(this)),
      m_applier(controls, m_skin, context.fileNumbers, hooks()),
      m_loader(context, m_applier, screenOfWindow())
{
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    setCentralWidget(m_canvas);
    controls.make(m_canvas);
    m_canvas->setItems(controls.faceItems());
    Timer1 = new QTimer(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(kTick);
    connectPlaylist();
    connectButtons();
}

frmTonedeck::~frmTonedeck() = default;

void frmTonedeck::connectPlaylist()
{
    m_names = new PlaylistModel(m_playlist, PlaylistModel::Shows::Names, this);
    m_paths = new PlaylistModel(m_playlist, PlaylistModel::Shows::Paths, this);
    controls.PlNames->setModel(m_names);
    controls.PlPath->setModel(m_paths);
    m_playlist.setObserver([this] { playlistChanged(); });
    connect(controls.PlNames, &PlaylistBox::rowChosen, this,
            [this](int row) { guard([&] { m_playlist.select(row); }); });
    playlistChanged();
}

void frmTonedeck::connectButtons()
{
    for (int number = 1; number <= kButtons; ++number)
        connect(controls.Btn[number], &HotArea::clicked, this,
                [this, number] { guard([&] { DoIt(number); }); });
}

// --- start and end --------------------------------------------------------------------------------

void frmTonedeck::Form_Load()
{
    loadSettings(m_context.platform.settings, m_context.settings);
    m_autoList = readAutoList(m_context.settings.Auto != 0, seams());
    restorePlace();
    loadFirstSkin();
    if (m_context.settings.StartMd == 1)
        restoreList();
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
    LoadSkin(there ? settings.Skin : standard, true);
}

void frmTonedeck::restoreList()
{
    PlayerSettings& settings = m_context.settings;
    loadLast(m_context.platform.settings, settings);
    readStartList(m_playlist, settings.LastTrack, settings.FriendlyNames != 0, seams());
    if (!settings.LastCover.isEmpty())
        if (const auto cover = loadSkinBitmap(m_context.fileNumbers, settings.LastCover))
            controls.iCover->setPicture(*cover);
}

// In this order: whatever fails leaves the rest saved.
void frmTonedeck::Form_Unload()
{
    PlayerSettings& settings = m_context.settings;
    UserSettings& store = m_context.platform.settings;
    saveSettings(store, settings);
    if (settings.WinSavePos != 0) {
        settings.X = static_cast<float>(toTwips(x()));
        settings.Y = static_cast<float>(toTwips(y()));
        savePosition(store, settings);
    }
    writeAutoList(settings.Auto != 0, m_autoList, seams());
    settings.LastTrack = m_playlist.CurTrack();
    saveLast(store, settings);
    writeStartList(m_playlist, seams());
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

// --- the playlist ---------------------------------------------------------------------------------

PlaylistSeams frmTonedeck::seams() const
{
    return {m_context.platform, m_context.fileNumbers, m_context.codePage};
}

void frmTonedeck::playlistChanged()
{
    m_names->refresh();
    m_paths->refresh();
    controls.PlNames->showSelected(m_playlist.selected());
    controls.Lbl[8]->setCaption(m_playlist.entryCountText());
    controls.Lbl[14]->setCaption(m_playlist.name());
}

void frmTonedeck::withPlaylist(const std::function<void(PlaylistCommands&)>& command)
{
    PlayerSettings& settings = m_context.settings;
    PlaylistOptions options{
        .friendlyNames = settings.FriendlyNames != 0, .validExt = settings.ValidExt, .path = settings.Path};
    PlaylistCommands commands(m_playlist, options, seams());
    command(commands);
    settings.Path = options.path;
}

void frmTonedeck::PlAddFileFromEditor(const QString& path)
{
    withPlaylist([&path](PlaylistCommands& list) { list.PlAddFileFromEditor(path); });
}
