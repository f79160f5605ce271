#include "database/cursor/rowwriter.h"

#include "base/runtimeerror.h"
#include "database/connection/connection.h"
#include "database/connection/sqlitecheck.h"
#include "database/connection/sqlitestatement.h"
#include "database/cursor/resultset.h"

#include <sqlite3.h>

namespace {

const QStringList kRecordFields{QStringLiteral("fldVolum"),  QStringLiteral("fldPath"),
                                QStringLiteral("fldArtist"), QStringLiteral("fldSong"),
                                QStringLiteral("fldAlbum"),  QStringLiteral("fldYear"),
                                QStringLiteral("fldComment")};

[[noreturn]] void throwNotFound()
{
    throw RunTimeError(
        kRowNotFound,
        QStringLiteral(
            "The row cannot be found in the archive: it was changed or deleted since it was read."));
}

QByteArray quoted(const QString& name)
{
    return '"' + name.toUtf8().replace('"', "\"\"") + '"';
}

QByteArrayList quoted(const QStringList& names)
{
    QByteArrayList result;
    for (const QString& name : names)
        result += quoted(name);
    return result;
}

class Statement {
public:
    Statement(sqlite3* database, const QByteArray& text)
        : m_database(database), m_statement(prepareStatement(database, {text.constData(), text.size()}))
    {
    }

    void bind(const QByteArray& value)
    {
        checked(m_database, sqlite3_bind_text64(m_statement.get(), ++m_parameter, value.constData(),
                                                static_cast<sqlite3_uint64>(value.size()), SQLITE_TRANSIENT,
                                                SQLITE_UTF8));
    }
    void bind(const std::optional<QByteArray>& value)
    {
        if (value)
            bind(*value);
        else
            ++m_parameter; // a parameter that is not bound is null
    }
    void bind(std::int64_t number)
    {
        checked(m_database, sqlite3_bind_int64(m_statement.get(), ++m_parameter, number));
    }

    bool step() { return checked(m_database, sqlite3_step(m_statement.get())) == SQLITE_ROW; }
    std::int64_t number() const { return sqlite3_column_int64(m_statement.get(), 0); }
    RowStore::Cell cell(int column) const
    {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m_statement.get(), column));
        return text ? RowStore::Cell(QByteArrayView(text, sqlite3_column_bytes(m_statement.get(), column)))
                    : std::nullopt;
    }
    std::size_t rest(qsizetype first, qsizetype columns) const
    {
        std::vector<RowStore::Cell> cells;
        for (qsizetype column = first; column < first + columns; ++column)
            cells.push_back(cell(static_cast<int>(column)));
        return restOf(cells);
    }
    int changes() const { return sqlite3_changes(m_database); }

private:
    sqlite3* m_database;
    StatementPtr m_statement;
    int m_parameter = 0;
};

// Compares byte by byte, whatever the column's own rule of equality is, and as text, because the cursor read
// it so.
QByteArray oldValuesCondition(const KnownRow& row)
{
    QByteArrayList terms;
    for (const QString& name : row.names)
        terms += "CAST(" + quoted(name) + " AS TEXT) IS ? COLLATE BINARY";
    return terms.join(" AND ");
}

void bindOldValues(Statement& statement, const KnownRow& row)
{
    for (const std::optional<QByteArray>& value : row.values)
        statement.bind(value);
}

bool hasSameRest(sqlite3* database, const KnownRow& row)
{
    if (row.restNames.isEmpty())
        return true;
    Statement statement(database, "SELECT " + quoted(row.restNames).join(", ") + " FROM MP3 WHERE rowid = ?");
    statement.bind(row.number);
    return statement.step() && statement.rest(0, row.restNames.size()) == row.rest;
}

bool isThere(sqlite3* database, const KnownRow& row)
{
    Statement statement(database, "SELECT 1 FROM MP3 WHERE " + oldValuesCondition(row) + " AND rowid = ?");
    bindOldValues(statement, row);
    statement.bind(row.number);
    return statement.step() && hasSameRest(database, row);
}

bool areEqualInEveryField(sqlite3* database, const KnownRow& row)
{
    Statement statement(database, "SELECT count(*) FROM (SELECT DISTINCT " +
                                      quoted(kRecordFields).join(" COLLATE BINARY, ") +
                                      " COLLATE BINARY FROM MP3 WHERE " + oldValuesCondition(row) + ")");
    bindOldValues(statement, row);
    return statement.step() && statement.number() == 1;
}

std::int64_t numberByValues(sqlite3* database, const KnownRow& row)
{
    Statement statement(database,
                        "SELECT rowid FROM MP3 WHERE " + oldValuesCondition(row) + " ORDER BY rowid LIMIT 2");
    bindOldValues(statement, row);
    if (!statement.step())
        throwNotFound();
    const std::int64_t first = statement.number();
    if (statement.step() && !areEqualInEveryField(database, row))
        throwNotFound();
    return first;
}

std::int64_t numberOf(sqlite3* database, const KnownRow& row, int fileNumber)
{
    if (row.fileNumber != fileNumber)
        return numberByValues(database, row);
    // The row is not looked for by its values alone, because a row that was changed may have an equal one
    // beside it.
    if (!isThere(database, row))
        throwNotFound();
    return row.number;
}

void finish(Statement& statement)
{
    statement.step();
    if (statement.changes() != 1)
        throwNotFound();
}

void insertValues(sqlite3* database, const std::vector<NewValue>& values)
{
    QByteArrayList names;
    QByteArrayList places;
    for (const NewValue& value : values) {
        names += quoted(value.name);
        places += "?";
    }
    Statement statement(database,
                        "INSERT INTO MP3 (" + names.join(", ") + ") VALUES (" + places.join(", ") + ')');
    for (const NewValue& value : values)
        statement.bind(value.value);
    finish(statement);
}

void fillNulls(sqlite3* database, std::int64_t number, const QStringList& columns)
{
    QByteArrayList terms;
    for (const QString& name : columns)
        if (kRecordFields.contains(name, Qt::CaseInsensitive))
            terms += quoted(name) + " = ifnull(" + quoted(name) + ", ' ')";
    if (terms.isEmpty())
        return;
    Statement statement(database, "UPDATE MP3 SET " + terms.join(", ") + " WHERE rowid = ?");
    statement.bind(number);
    finish(statement);
}

StoredRow storedRow(sqlite3* database, std::int64_t number, const QStringList& names,
                    const QStringList& restNames)
{
    Statement statement(database,
                        "SELECT " + quoted(names + restNames).join(", ") + " FROM MP3 WHERE rowid = ?");
    statement.bind(number);
    if (!statement.step())
        throwNotFound();
    StoredRow row{number, {}, statement.rest(names.size(), restNames.size())};
    for (int column = 0; column < names.size(); ++column) {
        const RowStore::Cell cell = statement.cell(column);
        row.values.push_back(cell ? std::optional(cell->toByteArray()) : std::nullopt);
    }
    return row;
}

} // namespace

StoredRow RowWriter::insert(const std::vector<NewValue>& values, const QStringList& names,
                            const QStringList& restNames)
{
    StoredRow row{};
    m_connection.runTransaction([&](sqlite3* database) {
        insertValues(database, values);
        const std::int64_t number = sqlite3_last_insert_rowid(database);
        fillNulls(database, number, names + restNames);
        row = storedRow(database, number, names, restNames);
    });
    return row;
}

std::int64_t RowWriter::update(const KnownRow& row, const std::vector<NewValue>& values)
{
    QByteArrayList terms;
    for (const NewValue& value : values)
        terms += quoted(value.name) + " = ?";
    std::int64_t number = 0;
    m_connection.runTransaction([&](sqlite3* database) {
        number = numberOf(database, row, m_connection.fileNumber());
        Statement statement(database, "UPDATE MP3 SET " + terms.join(", ") + " WHERE rowid = ?");
        for (const NewValue& value : values)
            statement.bind(value.value);
        statement.bind(number);
        finish(statement);
    });
    return number;
}

void RowWriter::remove(const KnownRow& row)
{
    m_connection.runTransaction([&](sqlite3* database) {
        Statement statement(database, "DELETE FROM MP3 WHERE rowid = ?");
        statement.bind(numberOf(database, row, m_connection.fileNumber()));
        finish(statement);
    });
}
