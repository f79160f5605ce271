// Is a grid over a recordset: it shows the recordset's rows, and its current row is the recordset's. It
// changes nothing itself: a row that the user chooses is told, and shown as current when the recordset has
// gone there.
#pragma once

#include "toolkit/grids/textpainter.h"

#include <QAbstractTableModel>
#include <QTableView>

#include <optional>

class Recordset;

class RecordsetModel : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void setSource(Recordset* source);
    void setHeadings(const QStringList& captions) { m_headings = captions; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void reset();

    Recordset* m_source = nullptr;
    QStringList m_headings;
    int m_rows = 0; // as far as the view knows
};

class DataGrid : public QTableView {
    Q_OBJECT

public:
    explicit DataGrid(QWidget* parent = nullptr);

    // The recordset has to live as long as the grid shows it; null means none. Columns without a heading are
    // called as their fields.
    void setDataSource(Recordset* source, const QStringList& headings = {});

    // Tells what is scrolled into view, in part too. Rows and columns count from 0.
    int FirstRow() const;
    void setFirstRow(int row); // scrolls
    int VisibleRows() const;
    int FirstCol() const;
    int VisibleCols() const;
    QString textAt(int row, int column) const;   // whole; empty for a null
    QString lineText(int row, int column) const; // the same on one line: line breaks and tabs are blanks

    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    void keyboardSearch(const QString& search) override;

Q_SIGNALS:
    void rowChosen(int row); // by the user; counts from 0
    void rowActivated();     // double click or Enter on the current row

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end) override;
    void paintEvent(QPaintEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Cells;

    void fitColumns();
    void makeHeadings(const QStringList& fields, const QStringList& captions);
    void follow();
    Cells cellsIn(const QRect& area) const;
    void paintRow(QPainter& painter, const Cells& cells, int row, int top);
    void paintFocus(QPainter& painter, const QRect& line);
    void paintCell(QPainter& painter, const QString& text, const QRect& place);

    RecordsetModel* m_model;
    Recordset* m_source = nullptr;
    std::optional<TextPainter> m_quickText; // for the present font
    bool m_following = false;
};
