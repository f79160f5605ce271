// Is a flexible grid of texts as the code that only reads and fills it sees it. Rows and columns count from
// 0.
#pragma once

#include <QString>
#include <QStringList>

class Grid {
public:
    virtual ~Grid() = default;

    virtual int Rows() const = 0;
    virtual int Cols() const = 0;
    virtual int Row() const = 0;
    virtual int Col() const = 0;
    virtual void setRow(int row) = 0;
    virtual void setCol(int col) = 0;
    // These are about the current cell.
    virtual QString Text() const = 0;
    virtual void setText(const QString& text) = 0;
    virtual void setRedraw(bool on) = 0;
    // Adds a row at the end; a value may hold any character, tabs and line ends included.
    virtual void addItem(const QStringList& values) = 0;
};
