// Takes what the searches of this program ask for from their statement, "SELECT <columns> FROM MP3 [WHERE
// <column> LIKE '<pattern>' AND ... OR ...]" with parentheses, ended by a semicolon or not.
//
// Such a statement is carried out without SQLite's virtual machine, see database/cursor/tablereader.h.
#pragma once

#include "database/sql/likepattern.h"

#include <QByteArray>
#include <QByteArrayView>

#include <optional>
#include <vector>

class RowSearch {
public:
    using Cell = std::optional<QByteArrayView>; // nothing stands for a null

    // Gives nothing for any other statement. Whether the columns exist is not looked at.
    static std::optional<RowSearch> read(QByteArrayView statement);

    const std::vector<QByteArray>& columns() const { return m_columns; } // to be shown, as they are written

    // Names the table's columns, in their order; false when one that is asked for is not among them.
    bool resolve(const std::vector<QByteArray>& tableColumns);
    const std::vector<std::size_t>& shown() const { return m_shown; }   // of the table's columns
    const std::vector<std::size_t>& others() const { return m_others; } // those that are not shown

    // Tells whether a row fits, given one cell for each of the table's columns. A null fits no pattern.
    bool fits(const std::vector<Cell>& cells) const;

private:
    struct Condition {
        enum Kind { Like, All, Any } kind = All;
        QByteArray column;
        std::size_t cell = 0;
        std::vector<LikePattern> pattern; // one for Like
        std::vector<Condition> parts;     // for the others
    };
    class Reader;

    static bool fits(const Condition& condition, const std::vector<Cell>& cells);
    static bool resolve(Condition& condition, const std::vector<QByteArray>& tableColumns);

    std::vector<QByteArray> m_columns;
    std::vector<std::size_t> m_shown;
    std::vector<std::size_t> m_others;
    Condition m_condition; // none of all: every row
};
