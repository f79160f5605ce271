#include "database/cursor/resultset.h"

#include "base/runtimeerror.h"
#include "database/connection/connection.h"
#include "database/connection/sqlitecheck.h"
#include "database/connection/sqlitestatement.h"
#include "database/cursor/roworder.h"
#include "database/cursor/tablereader.h"
#include "database/sql/selectshape.h"

#include <sqlite3.h>

#include <algorithm>
#include <functional>
#include <numeric>
#include <string_view>

namespace {

constexpr std::size_t kHashOfNull = 2; // another one than an empty text's

RowStore::Cell cellOf(sqlite3_stmt* statement, int column)
{
    if (sqlite3_column_type(statement, column) == SQLITE_NULL)
        return std::nullopt;
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return QByteArrayView(text, sqlite3_column_bytes(statement, column));
}

// The row's number and the columns that are not shown stand before the columns when there is one.
class Query {
public:
    Query(sqlite3* database, StatementPtr statement) : m_database(database), m_statement(std::move(statement))
    {
    }
    Query(sqlite3* database, StatementPtr statement, qsizetype rest)
        : m_database(database), m_statement(std::move(statement)), m_first(1 + static_cast<int>(rest))
    {
    }

    int columns() const { return sqlite3_column_count(m_statement.get()) - m_first; }

    QStringList names() const
    {
        QStringList names;
        for (int column = 0; column < columns(); ++column)
            names.append(QString::fromUtf8(sqlite3_column_name(m_statement.get(), m_first + column)));
        return names;
    }

    // Each column is one of the table's, under its own name, and nothing is computed.
    bool isOfTableOnly() const
    {
        if (!m_statement)
            return false;
        for (int column = 0; column < columns(); ++column) {
            const char* origin = sqlite3_column_origin_name(m_statement.get(), m_first + column);
            const char* name = sqlite3_column_name(m_statement.get(), m_first + column);
            if (!origin || qstricmp(origin, name) != 0)
                return false;
        }
        return true;
    }

    void fetch(ResultSet& rows)
    {
        std::vector<RowStore::Cell> cells(static_cast<std::size_t>(columns()));
        std::vector<RowStore::Cell> rest(static_cast<std::size_t>(std::max(m_first - 1, 0)));
        rows.cells = RowStore(columns());
        while (checked(m_database, sqlite3_step(m_statement.get())) == SQLITE_ROW) {
            for (int column = 0; column < columns(); ++column)
                cells[static_cast<std::size_t>(column)] = cellOf(m_statement.get(), m_first + column);
            rows.cells.append(cells);
            if (m_first == 0)
                continue;
            rows.rowNumbers.push_back(sqlite3_column_int64(m_statement.get(), 0));
            for (std::size_t i = 0; i < rest.size(); ++i)
                rest[i] = cellOf(m_statement.get(), 1 + static_cast<int>(i));
            rows.rests.push_back(restOf(rest));
        }
    }

private:
    sqlite3* m_database;
    StatementPtr m_statement;
    int m_first = 0;
};

// Returns the column of the result by which the rows are ordered, where we can do that quicker than SQLite,
// -1 for none.
int orderedColumn(const SelectShape& shape, const QStringList& names)
{
    if (shape.orderAt < 0)
        return -1;
    const QString wanted = QString::fromUtf8(shape.orderColumn);
    for (int column = 0; column < names.size(); ++column)
        if (names[column].compare(wanted, Qt::CaseInsensitive) == 0)
            return column;
    return -1;
}

// Makes the same statement with the row's number before its columns, and without the order where we order
// ourselves.
QByteArray numberedText(QByteArrayView text, const SelectShape& shape, bool ordered, const QStringList& rest)
{
    const qsizetype end = ordered ? shape.orderAt : text.size();
    QByteArray added = " rowid,";
    for (const QString& name : rest)
        added += '"' + name.toUtf8().replace('"', "\"\"") + "\",";
    return text.first(shape.columnsAt).toByteArray() + added +
           text.sliced(shape.columnsAt, end - shape.columnsAt).toByteArray();
}

// Is null when the table's rows have no numbers, as those of a view.
StatementPtr preparedIfPossible(sqlite3* database, const QByteArray& text)
{
    try {
        return prepareStatement(database, QByteArrayView(text.constData(), text.size()));
    } catch (const RunTimeError&) {
        return nullptr;
    }
}

// The table's columns in their order.
bool showsAll(const RowSearch& search)
{
    std::vector<std::size_t> all(search.shown().size());
    std::iota(all.begin(), all.end(), std::size_t{0});
    return search.others().empty() && search.shown() == all;
}

// Carries out a search of this program's own, without SQLite's way from row to row. It gives nothing when it
// is none, or the table is one that only SQLite can read.
std::optional<ResultSet> fetchSearch(sqlite3* database, QByteArrayView text, bool changeable)
{
    std::optional<RowSearch> search = RowSearch::read(text);
    const TableReader table(database);
    if (!search || !search->resolve(table.columns()))
        return std::nullopt;
    ResultSet rows;
    rows.changeable = changeable;
    rows.cells = RowStore(static_cast<int>(search->shown().size()));
    std::vector<RowStore::Cell> shown(search->shown().size());
    std::vector<RowStore::Cell> rest(search->others().size());
    const bool isWhole = !changeable && showsAll(*search);
    const bool whole = table.read([&](std::int64_t number, const std::vector<RowStore::Cell>& cells) {
        if (!search->fits(cells))
            return;
        if (isWhole)
            return rows.cells.append(cells);
        for (std::size_t i = 0; i < shown.size(); ++i)
            shown[i] = cells[search->shown()[i]];
        rows.cells.append(shown);
        if (!changeable)
            return;
        for (std::size_t i = 0; i < rest.size(); ++i)
            rest[i] = cells[search->others()[i]];
        rows.rowNumbers.push_back(number);
        rows.rests.push_back(restOf(rest));
    });
    return whole ? std::optional(std::move(rows)) : std::nullopt;
}

std::optional<ResultSet> fetchNumbered(sqlite3* database, const QByteArray& text, qsizetype rest)
{
    Query query(database, preparedIfPossible(database, text), rest);
    if (!query.isOfTableOnly())
        return std::nullopt;
    ResultSet rows;
    rows.changeable = true;
    query.fetch(rows);
    return rows;
}

QStringList otherColumns(sqlite3* database, const QStringList& names)
{
    QStringList others;
    for (const QByteArray& column : TableReader(database).columns())
        if (const QString name = QString::fromUtf8(column); !names.contains(name, Qt::CaseInsensitive))
            others += name;
    return others;
}

std::optional<ResultSet> fetchChangeable(sqlite3* database, QByteArrayView text, const QStringList& names)
{
    const std::optional<SelectShape> shape = shapeOfSelect(text);
    if (!shape)
        return std::nullopt;
    const int orderColumn = orderedColumn(*shape, names);
    std::optional<ResultSet> rows =
        fetchSearch(database, orderColumn >= 0 ? text.first(shape->orderAt) : text, true);
    const QStringList rest = otherColumns(database, names);
    if (!rows)
        rows = fetchNumbered(database, numberedText(text, *shape, orderColumn >= 0, rest), rest.size());
    if (rows)
        rows->restNames = rest;
    if (rows && orderColumn >= 0)
        rows->order = rowsInOrder(rows->cells, orderColumn);
    return rows;
}

ResultSet fetchPlain(Query& query)
{
    ResultSet rows;
    query.fetch(rows);
    return rows;
}

QByteArray wholeTableText(const QStringList& names)
{
    return "SELECT " + names.join(u',').toUtf8() + " FROM MP3";
}

// Gives nothing when the rows cannot be ordered here, nor quicker be fetched than SQLite does.
std::optional<ResultSet> fetchPlainOfTable(sqlite3* database, QByteArrayView text, const Query& query)
{
    const std::optional<SelectShape> shape = shapeOfSelect(text);
    if (!shape || !query.isOfTableOnly())
        return std::nullopt;
    const QStringList names = query.names();
    const int orderColumn = orderedColumn(*shape, names);
    const QByteArray unordered = shape->isWhole
                                     ? wholeTableText(names)
                                     : (orderColumn >= 0 ? text.first(shape->orderAt) : text).toByteArray();
    std::optional<ResultSet> rows = fetchSearch(database, unordered, false);
    if (!rows && orderColumn >= 0) {
        Query all(database, prepareStatement(database, unordered));
        rows = fetchPlain(all);
    }
    if (rows && orderColumn >= 0)
        rows->order = rowsInOrder(rows->cells, orderColumn);
    return rows;
}

// Kept: Qt's hash is not asked. On processors with wide vectors it mixes two kinds of vector instructions for
// less than 16 bytes, which takes 120 nanoseconds instead of 3: half the time of a result of 1,000,000 rows.
std::size_t hashOf(RowStore::Cell cell)
{
    if (!cell)
        return kHashOfNull;
    return std::hash<std::string_view>()({cell->data(), static_cast<std::size_t>(cell->size())});
}

} // namespace

std::size_t restOf(const std::vector<RowStore::Cell>& cells)
{
    std::size_t rest = cells.size();
    for (const RowStore::Cell& cell : cells)
        rest = rest * 31 + hashOf(cell);
    return rest;
}

namespace {

using Fetch = std::function<ResultSet(sqlite3*, QByteArrayView, Query&)>;

ResultSet fetchBy(Connection& connection, const QString& statement, const Fetch& fetch)
{
    sqlite3* const database = connection.handle();
    StatementBytes bytes;
    const QByteArrayView text = bytes.of(statement);
    Query query(database, prepareStatement(database, text));
    const QStringList names = query.names();
    if (names.isEmpty())
        throwStatementError(QStringLiteral("it returns no rows"));

    ResultSet rows = fetch(database, text, query);
    rows.names = names;
    rows.fileNumber = connection.fileNumber();
    if (rows.order.empty()) {
        rows.order.resize(static_cast<std::size_t>(rows.cells.rows()));
        std::iota(rows.order.begin(), rows.order.end(), 0);
    }
    return rows;
}

} // namespace

ResultSet fetchRows(Connection& connection, const QString& statement)
{
    return fetchBy(connection, statement, [](sqlite3* database, QByteArrayView text, Query& query) {
        std::optional<ResultSet> changeable = fetchChangeable(database, text, query.names());
        return changeable ? std::move(*changeable) : fetchPlain(query);
    });
}

ResultSet fetchRowsToRead(Connection& connection, const QString& statement)
{
    return fetchBy(connection, statement, [](sqlite3* database, QByteArrayView text, Query& query) {
        std::optional<ResultSet> plain = fetchPlainOfTable(database, text, query);
        return plain ? std::move(*plain) : fetchPlain(query);
    });
}
