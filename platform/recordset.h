// A static, client-side cursor: the rows of one query as they were when it was opened.
#pragma once

#include "platform/rowstore.h"

#include <QString>
#include <QStringList>

#include <optional>

class Connection;

class Recordset {
public:
    // Stands on the first row then. Throws RunTimeError as Connection does, and stays as it was; a second
    // statement in the text, or one that returns no columns, is refused before it runs (kStatementError).
    void open(const QString& statement, Connection& connection);

    int recordCount() const;
    const QStringList& fieldNames() const { return m_names; }
    int absolutePosition() const; // 1-based; 0 when there is no current row
    bool bof() const;             // before the first row, and always without rows
    bool eof() const;             // behind the last row, and always without rows

    void moveFirst(); // throws RunTimeError 3021 without rows
    void moveNext();  // throws RunTimeError 3021 at the end

    // Nothing for a null. Field names ignore case. Throws 3021 without a current row, 3265 for an unknown
    // field.
    std::optional<QString> value(const QString& field) const;
    std::optional<QString> value(int column) const;

private:
    int columnOf(const QString& field) const;

    QStringList m_names;
    RowStore m_rows;
    int m_row = 0; // counts from 0; the number of rows behind the last one
};

inline constexpr int kNoCurrentRecord = 3021;
inline constexpr int kItemNotFound = 3265;
