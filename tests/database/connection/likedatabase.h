// Is an empty database in memory, with the archive's LIKE or the engine's own.
#pragma once

#include "database/connection/likefunction.h"
#include "database/connection/sqlitestatement.h"

#include <QByteArray>

#include <gtest/gtest.h>
#include <sqlite3.h>

class LikeDatabase {
public:
    enum class Like { Ours, Engines };

    explicit LikeDatabase(Like like)
    {
        sqlite3_open(":memory:", &m_database);
        if (like == Like::Ours)
            registerArchiveLike(m_database);
    }
    ~LikeDatabase() { sqlite3_close(m_database); }
    LikeDatabase(const LikeDatabase&) = delete;
    LikeDatabase& operator=(const LikeDatabase&) = delete;

    // Returns the first columns of all rows, "-" for a null; or the error.
    QByteArray rows(const QByteArray& statement) const { return rowsOf(prepared(statement).get()); }

    StatementPtr prepared(const QByteArray& statement) const
    {
        return prepareStatement(m_database, statement);
    }

    QByteArray rowsOf(sqlite3_stmt* statement) const
    {
        QByteArray found;
        int code = SQLITE_ROW;
        while ((code = sqlite3_step(statement)) == SQLITE_ROW) {
            const auto* value = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
            found += value ? value : "-";
        }
        if (code != SQLITE_DONE)
            found += sqlite3_errmsg(m_database);
        sqlite3_reset(statement);
        return found;
    }

private:
    sqlite3* m_database = nullptr;
};

// Has both ways side by side.
class ArchiveLike : public testing::Test {
protected:
    QByteArray value(const QByteArray& expression) const { return ours.rows("select " + expression); }

    LikeDatabase ours{LikeDatabase::Like::Ours};
    LikeDatabase engines{LikeDatabase::Like::Engines};
};
