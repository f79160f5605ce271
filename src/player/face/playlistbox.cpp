#include "player/face/playlistbox.h"

#include "player/face/faceitems.h"
#include "player/face/facetext.h"
#include "player/playlist/playlist.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kAboveAndBelow = 2;     // of an entry's text
constexpr qsizetype kMostShown = 500; // characters; a name may have millions

// It draws a triangle, or two bars, as high as a small letter.
void drawMark(QPainter& painter, const QRectF& place, EntryMark mark, const QColor& colour)
{
    painter.setRenderHint(QPainter::Antialiasing, mark == EntryMark::Playing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    if (mark == EntryMark::Playing) {
        painter.drawPolygon(
            QPolygonF({place.topLeft(), {place.right(), place.center().y()}, place.bottomLeft()}));
    } else if (mark == EntryMark::Paused) {
        const qreal bar = std::max(1.0, std::floor(place.width() / 3));
        painter.drawRect(QRectF(place.left(), place.top(), bar, place.height()));
        painter.drawRect(QRectF(place.left() + 2 * bar, place.top(), bar, place.height()));
    }
}

// A file's name may hold a line's end, and would reach over the entry below it.
QString onOneLine(QString name)
{
    const auto isNoLetter = [](QChar c) {
        return c < u' ' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
    };
    std::replace_if(name.begin(), name.end(), isNoLetter, QChar(u' '));
    return name;
}

// Each entry has room for the mark before its name, so that names stand below each other.
class EntryDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // It returns no more than there may be room for: a name can be millions of characters long.
    QString displayText(const QVariant& value, const QLocale& locale) const override
    {
        constexpr int kMostCharacters = 4000;
        return QStyledItemDelegate::displayText(onOneLine(value.toString().left(kMostCharacters)), locale);
    }
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override
    {
        return {1, option.fontMetrics.height() + 2 * kAboveAndBelow};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& item, const QModelIndex& index) const override
    {
        QStyleOptionViewItem option = item;
        initStyleOption(&option, index);
        const QWidget& list = *option.widget;
        list.style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, &list);
        const bool selected = option.state.testFlag(QStyle::State_Selected);
        const QColor colour = option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
        const int side = option.fontMetrics.xHeight() | 1;
        const QRect& row = option.rect;
        painter->save();
        drawMark(*painter, QRect(row.left() + side / 2, row.center().y() - side / 2, side, side),
                 static_cast<EntryMark>(index.data(kEntryMarkRole).toInt()), colour);
        painter->setFont(option.font);
        painter->setPen(colour);
        const QRect place = row.adjusted(2 * side + 1, 0, -2, 0);
        painter->drawText(
            place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
            option.fontMetrics.elidedText(option.text.left(kMostShown), Qt::ElideRight, place.width()));
        painter->restore();
    }
};

// The scroll bar is slim and without arrows: it has to fit any skin.
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

// These are the scroll bar's too: a skin gives two colours, everything else lies between them.
QPalette paletteOf(const QColor& text, const QColor& back)
{
    QPalette palette;
    palette.setColor(QPalette::Base, back);
    palette.setColor(QPalette::AlternateBase, back);
    palette.setColor(QPalette::Window, between(back, text, 8));
    palette.setColor(QPalette::Button, between(back, text, 25));
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::PlaceholderText, between(back, text, 85));
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

void PlaylistModel::setPlaying(int row, bool paused)
{
    if (m_playing == row && m_paused == paused)
        return;
    const int before = std::exchange(m_playing, row);
    m_paused = paused;
    for (const int changed : {before, row})
        if (changed >= 0 && changed < m_rows)
            Q_EMIT dataChanged(index(changed), index(changed));
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
    if (index.row() != m_playing || m_shows != Shows::Names)
        return {};
    if (role == kEntryMarkRole)
        return static_cast<int>(m_paused ? EntryMark::Paused : EntryMark::Playing);
    if (role == Qt::AccessibleDescriptionRole)
        return m_paused ? QStringLiteral("paused") : QStringLiteral("playing");
    if (role == Qt::FontRole) {
        QFont bold;
        bold.setBold(true);
        return bold;
    }
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
    m_look = look;
    verticalScrollBar()->setStyleSheet(scrollBarStyle(scrollBarColour(), between(back, text, 75)));
    setToolTip(shownToolTip(look.toolTip));
    setAccessibleName(look.toolTip.left(kMostOfToolTip));
    setPlace(look.place);
    show();
}

QColor PlaylistBox::scrollBarColour() const
{
    return between(colourOf(m_look.backColour), colourOf(m_look.textColour), 55);
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

void PlaylistBox::setEmptyText(const QString& text)
{
    m_emptyText = text;
    viewport()->update();
}

// It goes round the list, as round a button that the keyboard has come to.
void PlaylistBox::paintFocus(QPainter& painter) const
{
    const QRect edge = viewport()->rect().adjusted(0, 0, -1, -1);
    painter.setPen(Qt::black);
    painter.drawRect(edge);
    painter.setPen(Qt::white);
    painter.drawRect(edge.adjusted(1, 1, -1, -1));
}

void PlaylistBox::paintEvent(QPaintEvent* event)
{
    QListView::paintEvent(event);
    QPainter painter(viewport());
    if (model() && model()->rowCount() == 0) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.setFont(font());
        painter.drawText(viewport()->rect().adjusted(8, 4, -8, -4), Qt::AlignCenter | Qt::TextWordWrap,
                         m_emptyText);
    }
    if (m_focusShown)
        paintFocus(painter);
}

void PlaylistBox::focusInEvent(QFocusEvent* event)
{
    m_focusShown = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    QListView::focusInEvent(event);
    viewport()->update();
}

void PlaylistBox::focusOutEvent(QFocusEvent* event)
{
    m_focusShown = false;
    QListView::focusOutEvent(event);
    viewport()->update();
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
