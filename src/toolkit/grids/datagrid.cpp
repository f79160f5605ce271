#include "toolkit/grids/datagrid.h"

#include "database/cursor/recordset.h"
#include "toolkit/grids/gridlook.h"
#include "toolkit/grids/headinglabels.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

void RecordsetModel::setSource(Recordset* source)
{
    if (m_source)
        m_source->disconnect(this);
    m_source = source;
    reset();
    if (!source)
        return;
    connect(source, &Recordset::rowsReset, this, &RecordsetModel::reset);
    connect(source, &Recordset::rowChanged, this,
            [this](int row) { Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1)); });
    connect(source, &Recordset::rowAdded, this, [this](int row) {
        beginInsertRows({}, row, row);
        ++m_rows;
        endInsertRows();
    });
    connect(source, &Recordset::rowRemoved, this, [this](int row) {
        beginRemoveRows({}, row, row);
        --m_rows;
        endRemoveRows();
    });
}

void RecordsetModel::reset()
{
    beginResetModel();
    m_rows = m_source ? m_source->recordCount() : 0;
    endResetModel();
}

int RecordsetModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows;
}

int RecordsetModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() || !m_source ? 0 : static_cast<int>(m_source->fieldNames().size());
}

QVariant RecordsetModel::data(const QModelIndex& index, int role) const
{
    if ((role != Qt::DisplayRole && role != Qt::AccessibleTextRole) || index.row() >= m_source->recordCount())
        return {};
    return gridlook::shownText(m_source->valueAt(index.row(), index.column()).value_or(QString()));
}

QVariant RecordsetModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || (role != Qt::DisplayRole && role != Qt::AccessibleTextRole) ||
        !m_source)
        return {};
    return m_headings.value(section, m_source->fieldNames().value(section));
}

DataGrid::DataGrid(QWidget* parent) : QTableView(parent), m_model(new RecordsetModel(this))
{
    setModel(m_model);
    gridlook::setUp(*this);
    setSelectionBehavior(SelectRows);
}

void DataGrid::makeHeadings(const QStringList& fields, const QStringList& captions)
{
    std::vector<HeadingLabels::Heading> headings;
    for (qsizetype column = 0; column < fields.size(); ++column)
        headings.push_back({"", captions.value(column, fields[column])});
    gridlook::setHeadings(*this, new HeadingLabels(headings, this));
}

void DataGrid::setDataSource(Recordset* source, const QStringList& headings)
{
    if (m_source)
        m_source->disconnect(this);
    m_source = source;
    m_following = true;
    m_model->setHeadings(headings);
    makeHeadings(source ? source->fieldNames() : QStringList(), headings);
    m_model->setSource(source);
    m_following = false;
    if (!source)
        return;
    connect(source, &Recordset::moveComplete, this, &DataGrid::follow);
    fitColumns();
    follow();
}

void DataGrid::follow()
{
    m_following = true;
    const int row = m_source->absolutePosition() - 1;
    const int column = std::max(currentIndex().column(), 0);
    setCurrentIndex(row < m_model->rowCount() ? m_model->index(row, column) : QModelIndex());
    m_following = false;
}

// Walking through the rows never scrolls sideways.
void DataGrid::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    const int left = horizontalScrollBar()->value();
    QTableView::scrollTo(index, hint);
    if (m_following)
        horizontalScrollBar()->setValue(left);
}

void DataGrid::fitColumns()
{
    const int rows = std::min(m_model->rowCount(), gridlook::kMeasuredRows);
    for (int column = 0; column < m_model->columnCount(); ++column)
        setColumnWidth(column, gridlook::columnWidth(*this, column, 0, rows,
                                                     [this](int row, int col) { return textAt(row, col); }));
}

int DataGrid::FirstRow() const
{
    return std::max(rowAt(0), 0);
}

int DataGrid::VisibleRows() const
{
    const int last = rowAt(viewport()->height() - 1);
    return (last < 0 ? m_model->rowCount() : last + 1) - FirstRow();
}

int DataGrid::FirstCol() const
{
    return std::max(columnAt(0), 0);
}

int DataGrid::VisibleCols() const
{
    const int last = columnAt(viewport()->width() - 1);
    return (last < 0 ? m_model->columnCount() : last + 1) - FirstCol();
}

QString DataGrid::textAt(int row, int column) const
{
    return m_source->valueAt(row, column).value_or(QString());
}

QString DataGrid::lineText(int row, int column) const
{
    QString text = textAt(row, column);
    for (QChar& c : text)
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
            c == QChar::ParagraphSeparator)
            c = u' ';
    return text;
}

void DataGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    if (!m_following && current.isValid() && current.row() != previous.row())
        Q_EMIT rowChosen(current.row());
}

// The view chooses another current row then, and not the user.
void DataGrid::rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end)
{
    m_following = true;
    QTableView::rowsAboutToBeRemoved(parent, start, end);
    m_following = false;
}

void DataGrid::setFirstRow(int row)
{
    verticalScrollBar()->setValue(row);
}

// Letters choose nothing here.
void DataGrid::keyboardSearch(const QString&) {}

void DataGrid::mouseDoubleClickEvent(QMouseEvent* event)
{
    QTableView::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton && indexAt(event->position().toPoint()).isValid())
        Q_EMIT rowActivated();
}

void DataGrid::keyPressEvent(QKeyEvent* event)
{
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && currentIndex().isValid())
        Q_EMIT rowActivated();
    else
        QTableView::keyPressEvent(event);
}
