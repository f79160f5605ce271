#include "player/tonedeck/playlistpanel.h"

#include "player/face/face.h"
#include "player/playback/player.h"
#include "player/tonedeck/playerwindow.h"

#include <QSignalBlocker>

PlaylistPanel::PlaylistPanel(Face& face, Player& player, PlayerWindow& window)
    : m_face(face), m_player(player),
      m_names(new PlaylistModel(player.list(), PlaylistModel::Shows::Names, &face)),
      m_paths(new PlaylistModel(player.list(), PlaylistModel::Shows::Paths, &face))
{
    face.controls.PlNames->setModel(m_names);
    face.controls.PlPath->setModel(m_paths);
    connectBox(window);
}

void PlaylistPanel::connectBox(PlayerWindow& window)
{
    const PlaylistBox* box = m_face.controls.PlNames;
    QObject::connect(box, &PlaylistBox::rowChosen, &m_face,
                     [this, &window](int row) { window.guard([&] { m_player.list().select(row); }); });
    QObject::connect(box, &PlaylistBox::doubleClicked, &m_face, [this, &window](const QModelIndex& index) {
        window.guard([&] { m_player.playEntry(index.row()); });
    });
    QObject::connect(box, &PlaylistBox::deletePressed, &m_face,
                     [this, &window] { window.guard([this] { m_player.removeSelected(); }); });
}

void PlaylistPanel::showList()
{
    const Playlist& list = m_player.list();
    const QSignalBlocker itself(m_face.controls.PlNames); // where its rows come and go, it chooses none
    m_names->refresh();
    m_paths->refresh();
    markPlaying();
    m_face.controls.PlNames->showSelected(list.selected());
    m_face.caption(Label::EntryCount, list.entryCountText());
    m_face.caption(Label::ListName, list.name());
}

void PlaylistPanel::markPlaying()
{
    m_names->setPlaying(m_player.playingRow(), m_player.engine().IsPaused());
}
