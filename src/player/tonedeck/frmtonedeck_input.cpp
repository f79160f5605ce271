// What the pointer, the keyboard and dropped files do to the window.
#include "player/face/facecanvas.h"
#include "player/tonedeck/frmtonedeck.h"
#include "player/tonedeck/playercommand.h"
#include "player/tonedeck/playerkeys.h"
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

// Whatever was proposed: after a move the other program might remove the files.
void acceptCopy(QDropEvent& event)
{
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

} // namespace

void frmTonedeck::connectPointer()
{
    connect(m_canvas, &FaceCanvas::pressed, this, [this](QPoint place) { m_drag.press(place); });
    connect(m_canvas, &FaceCanvas::moved, this, [this](QPoint place) {
        m_drag.move(place);
        if (!m_drag.Dragging())
            m_buttons.bareFace();
    });
    connect(m_canvas, &FaceCanvas::released, this, [this] { m_drag.release(); });
    connect(m_canvas, &FaceCanvas::left, this, [this] { m_buttons.bareFace(); });
    connect(controls.PlNames, &PlaylistBox::pointerEntered, &m_buttons, &ButtonLayer::bareFace);
    // A dialog or a menu that came in between has had the release.
    const auto loseHold = [this] {
        m_drag.release();
        m_sliders.letGo();
    };
    connect(m_canvas, &FaceCanvas::movedFree, this, loseHold);
    for (PictureBox* slider : controls.iSlider) {
        connect(slider, &PictureBox::mouseMoved, &m_buttons, &ButtonLayer::bareFace);
        connect(slider, &PictureBox::mouseMovedFree, this, loseHold);
    }
    connect(controls.Lbl[Label::Time], &FaceLabel::clicked, this,
            [this] { guard([this] { toggleTime(); }); });
    connect(controls.Lbl[Label::Name], &FaceLabel::clicked, this,
            [this] { guard([this] { DoIt(Command::TagEditor); }); });
}

// --- keyboard -------------------------------------------------------------------------------------

bool frmTonedeck::Form_KeyPress(QChar typed)
{
    const KeyAction action = keyAction(typed, m_skin, KeysOff);
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
        showAreas(false);
        frameButtons(false);
        return true;
    case KeyAction::ShowAreas:
        showAreas(true);
        return true;
    case KeyAction::FrameButtons:
        frameButtons(true);
        return true;
    }
    return false;
}

void frmTonedeck::showAreas(bool on)
{
    for (HotArea* button : controls.Btn)
        button->setOpaque(on);
    for (FaceLabel* label : controls.Lbl)
        label->setOpaque(on);
}

void frmTonedeck::frameButtons(bool on)
{
    for (HotArea* button : controls.Btn)
        button->setBorder(on);
}

// The keyboard's own keys for players, where no desktop has taken them.
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

// By the left button, which a menu would take the release from.
bool frmTonedeck::holds() const
{
    return m_drag.Dragging() || m_sliders.SliderDrag() != 0 ||
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
    fillPlayerMenu(*mnuPopup, *this);
    mnuPopup->popup(place);
}

// --- dropped files --------------------------------------------------------------------------------

void frmTonedeck::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasFormat(kFileList))
        acceptCopy(*event);
}

void frmTonedeck::dropEvent(QDropEvent* event)
{
    const QByteArray list = event->mimeData()->data(kFileList);
    acceptCopy(*event);
    guard([&] {
        withPlaylist([&list](PlaylistCommands& commands) { commands.addUriList(list); });
        const QString set = std::exchange(m_droppedSet, {});
        if (!set.isEmpty() && !closing())
            LoadSkin(set, false);
    });
}
