// The grid paints itself, because the toolkit's own way lays out and draws each cell for itself, which takes
// six times as long: too long to follow a scroll bar that is dragged through a million rows.
#include "toolkit/grids/datagrid.h"

#include "database/cursor/recordset.h"
#include "toolkit/grids/gridlook.h"

#include <QHeaderView>
#include <QPaintEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>

#include <algorithm>

namespace {

constexpr int kCellMargin = 4;

} // namespace

// Tells what there is to paint.
struct DataGrid::Cells {
    struct Column {
        int number;
        int left;
        int width;
    };

    QRect area;
    std::vector<Column> columns;
    int firstRow;
    int endRow;
    int rowHeight;
    QColor lineColour;
};

DataGrid::Cells DataGrid::cellsIn(const QRect& area) const
{
    const int last = rowAt(area.bottom());
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const auto line = static_cast<QRgb>(style()->styleHint(QStyle::SH_Table_GridLineColor, &option, this));
    Cells cells{.area = area,
                .columns = {},
                .firstRow = std::max(rowAt(area.top()), 0),
                .endRow = last < 0 ? model()->rowCount() : last + 1,
                .rowHeight = verticalHeader()->defaultSectionSize(),
                .lineColour = QColor::fromRgba(line)};
    for (int column = 0; column < model()->columnCount(); ++column) {
        const int left = columnViewportPosition(column);
        if (left <= area.right() && left + columnWidth(column) > area.left())
            cells.columns.push_back({column, left, columnWidth(column)});
    }
    return cells;
}

void DataGrid::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    if (!m_source || model()->rowCount() == 0)
        return;
    if (!m_quickText)
        m_quickText.emplace(font());
    const Cells cells = cellsIn(event->rect());
    painter.setPen(palette().color(QPalette::Text));
    int top = rowViewportPosition(cells.firstRow);
    for (int row = cells.firstRow; row < cells.endRow; ++row, top += cells.rowHeight)
        paintRow(painter, cells, row, top);
    for (const Cells::Column& column : cells.columns)
        painter.fillRect(QRect(column.left + column.width - 1, cells.area.top(), 1, top - cells.area.top()),
                         cells.lineColour);
    m_quickText->draw(painter);
}

void DataGrid::paintRow(QPainter& painter, const Cells& cells, int row, int top)
{
    const bool current = row == currentIndex().row();
    const QPalette::ColorGroup group = isActiveWindow() ? QPalette::Active : QPalette::Inactive;
    const QRect line(cells.area.left(), top, cells.area.width(), cells.rowHeight);
    if (current)
        painter.fillRect(line, palette().color(group, QPalette::Highlight));
    else if (row % 2 == 1)
        painter.fillRect(line, palette().color(QPalette::AlternateBase));
    painter.fillRect(QRect(line.left(), line.bottom(), line.width(), 1), cells.lineColour);
    if (current) {
        m_quickText->draw(painter); // the rows above it have another colour
        painter.setPen(palette().color(group, QPalette::HighlightedText));
    }
    for (const Cells::Column& column : cells.columns) {
        const QString text = gridlook::shownText(m_source->valueAt(row, column.number).value_or(QString()));
        paintCell(
            painter, text,
            QRect(column.left, top, column.width, cells.rowHeight).adjusted(kCellMargin, 0, -kCellMargin, 0));
    }
    if (!current)
        return;
    m_quickText->draw(painter);
    if (hasFocus())
        paintFocus(painter, line);
    painter.setPen(palette().color(QPalette::Text));
}

void DataGrid::paintFocus(QPainter& painter, const QRect& line)
{
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.rect = QRect(0, line.top(), viewport()->width(), line.height() - 1);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

void DataGrid::paintCell(QPainter& painter, const QString& text, const QRect& place)
{
    if (text.isEmpty() || place.width() <= 0)
        return;
    const QFontMetrics metrics = fontMetrics();
    const int above = (place.height() - metrics.height()) / 2;
    const qreal baseLine = place.top() + above + metrics.ascent();
    if (!m_quickText->add(text, QPointF(place.left(), baseLine), place.width()))
        painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         metrics.elidedText(text, Qt::ElideRight, place.width()));
}

bool DataGrid::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::FontChange)
        m_quickText.reset();
    return QTableView::viewportEvent(event);
}
