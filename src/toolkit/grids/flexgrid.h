// Is a grid of texts without fixed rows or columns. Rows that are added, and texts that are set, show at
// showGrowth(); while redraw is off the view stands still, takes no clicks, and the current cell is the
// code's alone.
#pragma once

#include "platform/grid.h"
#include "toolkit/grids/texttable.h"

#include <QAbstractTableModel>
#include <QTableView>

class TextTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    TextTableModel(int columns, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void setHeadings(const QStringList& captions) { m_headings = captions; }

    TextTable& table() { return m_table; }
    const TextTable& table() const { return m_table; }
    void showGrowth();
    void changed(int row, int column);
    void clear();

private:
    TextTable m_table;
    QStringList m_headings;
    int m_shown = 0;
};

class FlexGrid : public QTableView, public Grid {
    Q_OBJECT

public:
    FlexGrid(int columns, QWidget* parent = nullptr);

    int Rows() const override;
    int Cols() const override;
    int Row() const override { return m_row; }
    int Col() const override { return m_col; }
    void setRow(int row) override;
    void setCol(int col) override;
    QString Text() const override;
    void setText(const QString& text) override;
    void setRedraw(bool on) override;
    void addItem(const QStringList& values) override;

    void setHeadings(QHeaderView* headings, const QStringList& captions);
    QString textAt(int row, int col) const;
    void showGrowth();
    bool isFull() const; // further rows would lie below the visible ones

Q_SIGNALS:
    void cellActivated(); // double click, Enter or F2 on the current cell

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void fitColumns(int firstNewRow, int endRow);
    void select();

    TextTableModel* m_model;
    int m_row = 0;
    int m_col = 0;
    bool m_redraw = true;
    bool m_selecting = false;
    bool m_fitting = false;
    std::vector<bool> m_sizedByUser; // such a column is left as it is
};
