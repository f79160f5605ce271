#include "player/tonedeck/frmtonedeck.h"

#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/program.h"
#include "player/face/statusline.h"
#include "player/playback/playersettings.h"
#include "player/playlist/modcommon.h"
#include "player/tonedeck/windowplacement.h"
#include "toolkit/widgets/windowing.h"

#include <QMenu>
#include <QScreen>
#include <QTimer>
#include <QWindowStateChangeEvent>

namespace {

constexpr int kPlaybackTick = 100; // milliseconds
constexpr int kClockTick = 250;    // so that no second is missed
constexpr int kWhereItIs = 0;      // position code

} // namespace

frmTonedeck::frmTonedeck(PlayerContext& context)
    : Form(context.platform.dialogs, context.platform.program, "frmTonedeck", QStringLiteral("Tonedeck")),
      m_face(*new Face(*this, context.fileNumbers, this)),
      Timer1(makeTimer("Timer1", kPlaybackTick, &frmTonedeck::Timer1_Timer)),
      Timer2(makeTimer("Timer2", kClockTick, &frmTonedeck::Timer2_Timer)), mnuPopup(new QMenu(this)),
      workArea([this] { return GetWorkArea(*this); }), m_box(context.platform, *this),
      m_view({m_face, m_player, m_list, m_cover, m_desktop, m_box, *this, *Timer1}),
      m_player(context, m_view), m_loader(context, m_face.skinTarget(),
                                          {.width = [this] { return screen()->geometry().width(); },
                                           .closed = [this] { return closing(); }}),
      m_cover(context, *controls.iCover), m_clock(m_face, context.settings),
      m_volume(m_face, m_player, m_view, *this),
      m_list(m_face, m_player, *this), m_parts{m_player, m_face, m_loader, m_volume, *this},
      m_drag(*this, context.settings), m_desktop(m_parts, m_cover, context.desktopControls)
{
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    setCentralWidget(&m_face);
    mnuPopup->setObjectName(QStringLiteral("mnuPopup"));
    setAcceptDrops(true);
    setKeyPreview();
    m_player.list().setObserver([this] { m_view.showList(); });
    m_view.showList();
    connectPointer();
}

// Many an end comes without unloading. The settings name the skin of a load that runs still, which nobody may
// have seen yet.
frmTonedeck::~frmTonedeck()
{
    if (!m_player.keeper().hasBegun() || m_loader.loading())
        return;
    takeStock();
    m_player.keeper().saveChanges();
}

QTimer* frmTonedeck::makeTimer(const char* name, int interval, void (frmTonedeck::*tick)())
{
    auto* made = new QTimer(this);
    made->setObjectName(QLatin1String(name));
    made->setInterval(interval);
    connect(made, &QTimer::timeout, this, [this, made, tick] {
        // It is begun anew: a tick may yield to what lasts (a dialog), and a timer of the toolkit's rests
        // until its last tick is over.
        made->start();
        guard([&] {
            if (!closing())
                (this->*tick)();
        });
    });
    return made;
}

// --- start and end --------------------------------------------------------------------------------

void frmTonedeck::Form_Load()
{
    const PlayerSettings& settings = m_player.settings();
    m_player.keeper().loadOptions();
    restorePlace();
    SetOnTop(*this, settings.WinOnTop != 0);
    MakeDayStr();
    loadFirstSkin();
    if (closing())
        return;
    m_volume.settle();
    Timer2->start();
    if (settings.StartMin != 0)
        setWindowState(windowState() | Qt::WindowMinimized);
    startPlaying();
}

// A file from outside comes before what is played by itself.
void frmTonedeck::startPlaying()
{
    m_player.restore();
    m_view.showTrack();
    takeStock();
    PlayerKeeper& keeper = m_player.keeper();
    keeper.begin();
    if (!keeper.unread().isEmpty())
        m_face.status().sayFirst(keeper.unread());
    // It waits until the window is there: a medium may take its time, or be reported.
    QTimer::singleShot(0, this, [this] { guard([this] { m_player.playFirst(); }); });
}

// The window goes where it was when its position was saved, or else to the middle, once the first skin has
// told its size.
void frmTonedeck::restorePlace()
{
    PlayerSettings& settings = m_player.settings();
    constexpr float kNone = 1e9F; // nowhere: what the store does not have stays as it is
    settings.X = settings.Y = kNone;
    loadPosition(context().platform.settings, settings);
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
    const QString& skin = m_player.settings().Skin;
    const QString standard = AddSlash(program().directory()) + QStringLiteral("default.skin");
    const bool chosen = !skin.isEmpty();
    const bool there = chosen && FileExists(context().platform.files, skin);
    if (chosen && !there)
        dialogs().message(
            {.text = QStringLiteral("Previously selected skin not found (%1)! Using default").arg(skin),
             .title = program().title()});
    // What fails in it must not end the start.
    guard([&] { LoadSkin(there ? QString(skin) : standard, true); });
    // Without a face nobody could see the window, nor choose another skin in it.
    if (there && m_face.skin().background.isNull() && !closing())
        LoadSkin(standard, true);
    placeByCode(kWhereItIs); // but on a screen that is there
}

void frmTonedeck::LoadSkin(const QString& name, bool silent, SkinDiagnostics* notes)
{
    m_loader.LoadSkin(name, silent, notes);
}

void frmTonedeck::takeStock()
{
    PlayerSettings& settings = m_player.settings();
    settings.LastTrack = playlist().CurTrack();
    if (settings.WinSavePos == 0)
        return;
    settings.X = static_cast<float>(toTwips(x()));
    settings.Y = static_cast<float>(toTwips(y()));
}

// It keeps nothing in the midst of a load: of a skin that never ends each start would begin to load it again.
void frmTonedeck::keepChanges()
{
    if (m_loader.loading())
        return;
    takeStock();
    if (const QString failure = m_player.keeper().look(moment()); !failure.isEmpty())
        say(failure);
}

void frmTonedeck::Form_Unload()
{
    Timer1->stop();
    Timer2->stop();
    engine().closeDevices();
    takeStock();
    m_player.keeper().saveAll();
}

// --- while it is there ----------------------------------------------------------------------------

void frmTonedeck::Timer1_Timer()
{
    engine().Timer1_Timer();
    m_desktop.followPosition(moment());
}

void frmTonedeck::Timer2_Timer()
{
    const bool scrolls = m_player.settings().ScrollName == 1;
    controls.Lbl[Label::Name]->setScrolls(scrolls);
    if (scrolls)
        SetDD(DisplayItem::Name, engine().CurName());
    m_clock.tick();
    m_volume.showVolume();
    fitScreen();
    keepChanges();
}

bool frmTonedeck::yield()
{
    program().yield();
    return !closing();
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
