// Answers to what the pointer, the keyboard and dropped files do to the window.
#include "player/face/playerkeys.h"
#include "player/packedsets/packedset.h"
#include "player/playlist/modcommon.h"
#include "player/tonedeck/frmtonedeck.h"
#include "player/tonedeck/playermenu.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>

#include <map>
#include <utility>

namespace {

const QString kFileList = QStringLiteral("text/uri-list");

// It copies whatever was proposed: after a move the other program might remove the files.
void acceptCopy(QDropEvent& event)
{
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

} // namespace

void frmTonedeck::connectPointer()
{
    connect(&m_face, &FaceCanvas::pressed, this, [this](QPoint place) { m_drag.press(place); });
    connect(&m_face, &FaceCanvas::moved, this, [this](QPoint place) {
        m_drag.move(place);
        if (!m_drag.Dragging())
            buttons().bareFace();
    });
    connect(&m_face, &FaceCanvas::released, this, [this] { m_drag.release(); });
    connect(&m_face, &FaceCanvas::movedFree, this, [this] { loseHold(); });
}

// A dialog or a menu that came in between has had the release.
void frmTonedeck::loseHold()
{
    m_drag.release();
    sliders().letGo();
}

// --- keyboard -------------------------------------------------------------------------------------

bool frmTonedeck::Form_KeyPress(QChar typed)
{
    const KeyAction action = keyAction(typed, skin(), KeysOff);
    if (m_loader.loading() && action.kind == KeyAction::HideAids) {
        m_loader.stop();
        return true;
    }
    switch (action.kind) {
    case KeyAction::None:
        return false;
    case KeyAction::Command:
        DoIt(action.button);
        return true;
    case KeyAction::HideAids:
        m_face.showAreas(false);
        m_face.frameButtons(false);
        return true;
    case KeyAction::ShowAreas:
        m_face.showAreas(true);
        return true;
    case KeyAction::FrameButtons:
        m_face.frameButtons(true);
        return true;
    }
    return false;
}

// The keyboard's own keys for players come here where no desktop has taken them.
void frmTonedeck::keyPressEvent(QKeyEvent* event)
{
    static const std::map<int, Command> commands = {
        {Qt::Key_MediaPlay, Command::PlayOrPause}, {Qt::Key_MediaTogglePlayPause, Command::PlayOrPause},
        {Qt::Key_MediaPause, Command::Pause},      {Qt::Key_MediaStop, Command::Stop},
        {Qt::Key_MediaNext, Command::Next},        {Qt::Key_MediaPrevious, Command::Previous},
        {Qt::Key_AudioForward, Command::Forward},  {Qt::Key_AudioRewind, Command::Back}};
    const auto command = commands.find(event->key());
    if (command == commands.end())
        return Form::keyPressEvent(event);
    guard([&] { DoIt(command->second); });
}

// --- menu -----------------------------------------------------------------------------------------

// The left button holds it, and a menu would take the release from that.
bool frmTonedeck::holds() const
{
    return m_drag.Dragging() || m_face.sliders().SliderDrag() != 0 ||
           (QGuiApplication::mouseButtons() & Qt::LeftButton);
}

void frmTonedeck::contextMenuEvent(QContextMenuEvent* event)
{
    if (holds())
        return;
    guard([&] { showMenu(event->globalPos()); });
}

void frmTonedeck::showMenu(QPoint place)
{
    fillPlayerMenu(*mnuPopup, m_parts);
    mnuPopup->popup(place);
}

// --- dropped files --------------------------------------------------------------------------------

void frmTonedeck::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasFormat(kFileList))
        acceptCopy(*event);
}

// A set holds pictures, which are worn and not played.
bool frmTonedeck::isSet(const QString& path) const
{
    return packedset::isName(path) && FileExists(context().platform.files, path);
}

void frmTonedeck::dropEvent(QDropEvent* event)
{
    const QByteArray list = event->mimeData()->data(kFileList);
    acceptCopy(*event);
    guard([&] {
        QString set; // of several the last one
        m_player.addDropped(list, [&](const QString& path) {
            if (isSet(path))
                set = path;
            return isSet(path);
        });
        if (!set.isEmpty() && !closing())
            LoadSkin(set, false);
    });
}
