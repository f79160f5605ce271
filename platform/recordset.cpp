#include "platform/recordset.h"

#include "base/runtimeerror.h"
#include "platform/connection.h"
#include "platform/sqlitecheck.h"
#include "platform/sqlitestatement.h"

#include <sqlite3.h>

namespace {

[[noreturn]] void throwNoCurrentRow()
{
    throw RunTimeError(kNoCurrentRecord, QStringLiteral("There is no current row."));
}

[[noreturn]] void throwNoField(const QString& field)
{
    throw RunTimeError(kItemNotFound, QStringLiteral("There is no field ") + field);
}

QStringList columnNames(sqlite3_stmt* statement)
{
    QStringList names;
    for (int column = 0; column < sqlite3_column_count(statement); ++column)
        names.append(QString::fromUtf8(sqlite3_column_name(statement, column)));
    return names;
}

std::optional<QByteArrayView> cellOf(sqlite3_stmt* statement, int column)
{
    if (sqlite3_column_type(statement, column) == SQLITE_NULL)
        return std::nullopt;
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return QByteArrayView(text, sqlite3_column_bytes(statement, column));
}

RowStore fetchRows(sqlite3* database, sqlite3_stmt* statement, int columns)
{
    RowStore rows(columns);
    while (checked(database, sqlite3_step(statement)) == SQLITE_ROW) {
        rows.beginRow();
        for (int column = 0; column < columns; ++column)
            rows.addCell(cellOf(statement, column));
    }
    return rows;
}

} // namespace

void Recordset::open(const QString& statement, Connection& connection)
{
    sqlite3* const database = connection.handle();
    StatementBytes bytes;
    const StatementPtr prepared = prepareStatement(database, bytes.of(statement));
    const QStringList names = columnNames(prepared.get());
    if (names.isEmpty())
        throwStatementError(QStringLiteral("it returns no rows"));
    m_rows = fetchRows(database, prepared.get(), static_cast<int>(names.size()));
    m_names = names;
    m_row = 0;
}

int Recordset::recordCount() const
{
    return m_rows.rows();
}

int Recordset::absolutePosition() const
{
    return eof() ? 0 : m_row + 1;
}

bool Recordset::bof() const
{
    return m_rows.rows() == 0; // there is no way yet to stand before the first of several
}

bool Recordset::eof() const
{
    return m_row >= m_rows.rows();
}

void Recordset::moveFirst()
{
    if (m_rows.rows() == 0)
        throwNoCurrentRow();
    m_row = 0;
}

void Recordset::moveNext()
{
    if (eof())
        throwNoCurrentRow();
    ++m_row;
}

int Recordset::columnOf(const QString& field) const
{
    for (int column = 0; column < m_names.size(); ++column)
        if (m_names[column].compare(field, Qt::CaseInsensitive) == 0)
            return column;
    throwNoField(field);
}

std::optional<QString> Recordset::value(const QString& field) const
{
    return value(columnOf(field));
}

std::optional<QString> Recordset::value(int column) const
{
    if (column < 0 || column >= m_names.size())
        throwNoField(QString::number(column));
    if (eof())
        throwNoCurrentRow();
    const std::optional<QByteArrayView> cell = m_rows.cell(m_row, column);
    if (!cell)
        return std::nullopt;
    return textOfBytes(*cell);
}
