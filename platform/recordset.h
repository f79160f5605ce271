// A static, client-side cursor: the rows of one query as they were when it was opened.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

class Connection;

class Recordset {
public:
    // Throws RunTimeError as Connection does; a second statement in the text is refused.
    void open(const QString& statement, Connection& connection);

    int recordCount() const;
    const QStringList& fieldNames() const { return m_names; }
    int absolutePosition() const; // 1-based; 0 when there is no current row
    bool bof() const;
    bool eof() const;

    void moveFirst();
    void moveNext(); // throws RunTimeError 3021 at the end

    // Nothing for a null. Field names ignore case. Throws 3021 without a current row, 3265 for an unknown field.
    std::optional<QString> value(const QString& field) const;
    std::optional<QString> value(int column) const;

private:
    QStringList m_names;
    std::vector<std::optional<QString>> m_cells; // row by row
    int m_row = -1;
    int m_rows = 0;
};

inline constexpr int kNoCurrentRecord = 3021;
inline constexpr int kItemNotFound = 3265;
