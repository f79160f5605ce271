// Shows the playlist's entries as a list box, with the model behind it.
#pragma once

#include "player/face/onface.h"
#include "player/skin/skinelements.h"

#include <QAbstractListModel>
#include <QListView>

class Playlist;
class QPainter;

class PlaylistModel : public QAbstractListModel {
    Q_OBJECT

public:
    enum class Shows { Names, Paths };

    PlaylistModel(const Playlist& list, Shows shows, QObject* parent = nullptr);

    // Has to be called when the playlist has changed.
    void refresh();
    // Marks the entry that is played or paused; -1 marks none.
    void setPlaying(int row, bool paused);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    const Playlist& m_list;
    Shows m_shows;
    int m_rows = 0; // as far as the view knows
    int m_playing = -1;
    bool m_paused = false;
};

// Belongs to the entries' data.
enum class EntryMark : int { None, Playing, Paused };
inline constexpr int kEntryMarkRole = Qt::UserRole;

class PlaylistBox : public QListView, public OnFace {
    Q_OBJECT

public:
    explicit PlaylistBox(QWidget* parent = nullptr);

    void setLook(const SkinPlaylist& look);
    void showSelected(int index);           // -1: none
    void setEmptyText(const QString& text); // where there is no entry
    QColor scrollBarColour() const;

Q_SIGNALS:
    void rowChosen(int index); // by the user
    void deletePressed();
    void pointerEntered();

protected:
    void takePlace() override;
    void enterEvent(QEnterEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    void paintFocus(QPainter& painter) const;

    SkinPlaylist m_look{};
    QString m_emptyText{};
    bool m_focusShown = false;
    bool m_showing = false;
};
