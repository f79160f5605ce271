#include "skin/playlistbox.h"

#include "player/playlist.h"
#include "skin/faceitems.h"
#include "skin/facetext.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>

namespace {

constexpr int kAboveAndBelow = 2; // of an entry's text

class EntryDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // No more than there may be room for: a name can be millions of characters long.
    QString displayText(const QVariant& value, const QLocale& locale) const override
    {
        constexpr int kMostCharacters = 4000;
        return QStyledItemDelegate::displayText(value.toString().left(kMostCharacters), locale);
    }
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override
    {
        return {1, option.fontMetrics.height() + 2 * kAboveAndBelow};
    }
};

// Slim and without arrows: it has to fit any skin.
QString scrollBarStyle(const QColor& handle, const QColor& pointed)
{
    return QStringLiteral(
               "QScrollBar:vertical { background: transparent; width: 10px; margin: 0; border: 0 }"
               "QScrollBar::handle:vertical { background: %1; min-height: 24px; border-radius: 3px;"
               " margin: 2px }"
               "QScrollBar::handle:vertical:hover { background: %2 }"
               "QScrollBar::add-line, QScrollBar::sub-line { height: 0 }"
               "QScrollBar::add-page, QScrollBar::sub-page { background: transparent }")
        .arg(handle.name(), pointed.name());
}

QColor between(const QColor& a, const QColor& b, int percentOfB)
{
    const auto part = [percentOfB](int x, int y) { return (x * (100 - percentOfB) + y * percentOfB) / 100; };
    return QColor(part(a.red(), b.red()), part(a.green(), b.green()), part(a.blue(), b.blue()));
}

// The scroll bar's too: a skin gives two colours, everything else lies between them.
QPalette paletteOf(const QColor& text, const QColor& back)
{
    QPalette palette;
    palette.setColor(QPalette::Base, back);
    palette.setColor(QPalette::AlternateBase, back);
    palette.setColor(QPalette::Window, between(back, text, 8));
    palette.setColor(QPalette::Button, between(back, text, 25));
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::Highlight, between(back, text, 85));
    palette.setColor(QPalette::HighlightedText, back);
    return palette;
}

} // namespace

PlaylistModel::PlaylistModel(const Playlist& list, Shows shows, QObject* parent)
    : QAbstractListModel(parent), m_list(list), m_shows(shows)
{
    refresh();
}

// Wherever entries came or went, the last rows do and the others change: the view stays where it is.
void PlaylistModel::refresh()
{
    const int rows = m_list.count();
    if (rows > m_rows) {
        beginInsertRows({}, m_rows, rows - 1);
        m_rows = rows;
        endInsertRows();
    } else if (rows < m_rows) {
        beginRemoveRows({}, rows, m_rows - 1);
        m_rows = rows;
        endRemoveRows();
    }
    if (rows > 0)
        Q_EMIT dataChanged(index(0), index(rows - 1));
}

int PlaylistModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows;
}

QVariant PlaylistModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_list.count())
        return {};
    const PlaylistEntry& entry = m_list.entries()[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole)
        return m_shows == Shows::Names ? entry.name : entry.path;
    return {};
}

PlaylistBox::PlaylistBox(QWidget* parent) : QListView(parent), OnFace(static_cast<QWidget&>(*this))
{
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideRight);
    setVerticalScrollMode(ScrollPerPixel);
    setItemDelegate(new EntryDelegate(this));
}

void PlaylistBox::setLook(const SkinPlaylist& look)
{
    const QColor text = colourOf(look.textColour);
    const QColor back = colourOf(look.backColour);
    setPalette(paletteOf(text, back));
    verticalScrollBar()->setStyleSheet(scrollBarStyle(between(back, text, 35), between(back, text, 60)));
    m_look = look;
    setToolTip(shownToolTip(look.toolTip));
    setAccessibleName(look.toolTip.left(kMostOfToolTip));
    setPlace(look.place);
    show();
}

void PlaylistBox::takePlace()
{
    setFont(skinFont(m_look.font, m_look.fontSize, factor()));
    OnFace::takePlace();
}

void PlaylistBox::showSelected(int row)
{
    m_showing = true;
    if (row != currentIndex().row())
        setCurrentIndex(row < 0 ? QModelIndex() : model()->index(row, 0));
    m_showing = false;
}

void PlaylistBox::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QListView::currentChanged(current, previous);
    if (!m_showing && current.isValid())
        Q_EMIT rowChosen(current.row());
}

void PlaylistBox::enterEvent(QEnterEvent* event)
{
    Q_EMIT pointerEntered();
    QListView::enterEvent(event);
}

void PlaylistBox::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Delete)
        Q_EMIT deletePressed();
    else
        QListView::keyPressEvent(event);
}
