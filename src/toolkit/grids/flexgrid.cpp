#include "toolkit/grids/flexgrid.h"

#include "toolkit/grids/gridlook.h"

#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>

TextTableModel::TextTableModel(int columns, QObject* parent) : QAbstractTableModel(parent), m_table(columns)
{
}

int TextTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_shown;
}

int TextTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_table.columns();
}

QVariant TextTableModel::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole)
        return {};
    return gridlook::shownText(m_table.text(index.row(), index.column()));
}

QVariant TextTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || (role != Qt::DisplayRole && role != Qt::AccessibleTextRole))
        return {};
    return m_headings.value(section);
}

void TextTableModel::showGrowth()
{
    if (m_table.rows() == m_shown)
        return;
    beginInsertRows({}, m_shown, m_table.rows() - 1);
    m_shown = m_table.rows();
    endInsertRows();
}

void TextTableModel::changed(int row, int column)
{
    if (row < m_shown)
        Q_EMIT dataChanged(index(row, column), index(row, column));
}

void TextTableModel::clear()
{
    beginResetModel();
    m_table.clear();
    m_shown = 0;
    endResetModel();
}

FlexGrid::FlexGrid(int columns, QWidget* parent)
    : QTableView(parent), m_model(new TextTableModel(columns, this)),
      m_sizedByUser(static_cast<std::size_t>(columns))
{
    setModel(m_model);
    gridlook::setUp(*this);
}

void FlexGrid::setHeadings(QHeaderView* headings, const QStringList& captions)
{
    m_model->setHeadings(captions);
    gridlook::setHeadings(*this, headings);
    connect(headings, &QHeaderView::sectionResized, this, [this](int column) {
        if (!m_fitting)
            m_sizedByUser[static_cast<std::size_t>(column)] = true;
    });
}

int FlexGrid::Rows() const
{
    return m_model->table().rows();
}

int FlexGrid::Cols() const
{
    return m_model->table().columns();
}

void FlexGrid::setRow(int row)
{
    m_row = row;
    select();
}

void FlexGrid::setCol(int col)
{
    m_col = col;
    select();
}

void FlexGrid::select()
{
    if (!m_redraw)
        return;
    m_selecting = true;
    setCurrentIndex(m_model->index(m_row, m_col));
    m_selecting = false;
}

QString FlexGrid::Text() const
{
    return textAt(m_row, m_col);
}

QString FlexGrid::textAt(int row, int col) const
{
    return m_model->table().text(row, col);
}

void FlexGrid::setText(const QString& text)
{
    m_model->table().setText(m_row, m_col, text);
    m_model->changed(m_row, m_col);
}

void FlexGrid::setRedraw(bool on)
{
    m_redraw = on;
    setUpdatesEnabled(on);
    if (on)
        select();
}

void FlexGrid::addItem(const QStringList& values)
{
    m_model->table().append(values);
}

void FlexGrid::showGrowth()
{
    const int before = m_model->rowCount();
    m_model->showGrowth();
    if (m_model->rowCount() > before)
        fitColumns(before, std::min(Rows(), before + gridlook::kMeasuredRows));
}

bool FlexGrid::isFull() const
{
    return rowAt(viewport()->height() - 1) >= 0;
}

void FlexGrid::fitColumns(int firstNewRow, int endRow)
{
    m_fitting = true;
    for (int col = 0; col < Cols(); ++col) {
        if (m_sizedByUser[static_cast<std::size_t>(col)])
            continue;
        const int width = gridlook::columnWidth(*this, col, firstNewRow, endRow,
                                                [this](int row, int column) { return textAt(row, column); });
        setColumnWidth(col, firstNewRow > 0 ? std::max(width, columnWidth(col)) : width);
    }
    m_fitting = false;
}

void FlexGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    if (m_selecting || !m_redraw || !current.isValid())
        return;
    m_row = current.row();
    m_col = current.column();
}

void FlexGrid::mouseDoubleClickEvent(QMouseEvent* event)
{
    QTableView::mouseDoubleClickEvent(event);
    if (m_redraw && event->button() == Qt::LeftButton && indexAt(event->position().toPoint()).isValid())
        Q_EMIT cellActivated();
}

void FlexGrid::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    const bool activates = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_F2;
    if (activates && m_redraw && currentIndex().isValid())
        Q_EMIT cellActivated();
    else
        QTableView::keyPressEvent(event);
}

bool FlexGrid::viewportEvent(QEvent* event)
{
    const QEvent::Type type = event->type();
    const bool mouse = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    if (mouse && !m_redraw)
        return true;
    return QTableView::viewportEvent(event);
}
