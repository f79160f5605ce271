#include "database/cursor/recordset.h"

#include "base/runtimeerror.h"
#include "database/connection/connection.h"
#include "database/connection/sqlitestatement.h"
#include "database/cursor/findcriterion.h"
#include "database/cursor/rowwriter.h"

#include <algorithm>

namespace {

constexpr int kBookmarkBits = 32; // for the row; above them the generation

[[noreturn]] void fail(int number, const QString& text)
{
    throw RunTimeError(number, text);
}

std::optional<QString> textOf(RowStore::Cell cell)
{
    return cell ? std::optional(textOfBytes(*cell)) : std::nullopt;
}

} // namespace

void Recordset::open(const QString& statement, Connection& connection)
{
    ResultSet rows = fetchRows(connection, statement);
    m_connection = &connection;
    m_statement = statement;
    take(std::move(rows));
}

void Recordset::requery()
{
    if (!m_connection)
        fail(kObjectClosed, QStringLiteral("The recordset is closed."));
    leave();
    take(fetchRows(*m_connection, m_statement));
}

void Recordset::take(ResultSet rows)
{
    m_rows = std::move(rows);
    ++m_generation;
    m_row = 0;
    m_onGap = false;
    endEdit();
    Q_EMIT rowsReset();
    Q_EMIT moveComplete();
}

int Recordset::recordCount() const
{
    return rowCount();
}

bool Recordset::hasCurrent() const
{
    return m_mode == EditMode::Add || (!m_onGap && m_row >= 0 && m_row < rowCount());
}

void Recordset::requireCurrent() const
{
    if (!hasCurrent())
        fail(kNoCurrentRecord, QStringLiteral("There is no current row."));
}

void Recordset::requireRows() const
{
    if (rowCount() == 0)
        fail(kNoCurrentRecord, QStringLiteral("There is no current row: there are no rows."));
}

void Recordset::requireChangeable() const
{
    if (!m_rows.changeable)
        fail(kNotChangeable, QStringLiteral("The rows of this statement cannot be changed."));
}

bool Recordset::bof() const
{
    return m_mode != EditMode::Add && (rowCount() == 0 || m_row < 0);
}

bool Recordset::eof() const
{
    return m_mode != EditMode::Add && !m_onGap && m_row >= rowCount();
}

int Recordset::absolutePosition() const
{
    if (m_mode == EditMode::Add)
        return rowCount() + 1;
    return hasCurrent() ? m_row + 1 : 0;
}

// A new row that nothing was typed into is dropped: there is nothing to save.
void Recordset::leave()
{
    const bool untouched =
        std::none_of(m_pending.begin(), m_pending.end(),
                     [](const std::optional<QString>& value) { return value.has_value(); });
    if (m_mode == EditMode::Add && untouched)
        cancelUpdate();
    else
        update();
}

void Recordset::standOn(int row)
{
    m_row = row;
    m_onGap = false;
    Q_EMIT moveComplete();
}

void Recordset::moveFirst()
{
    leave();
    requireRows();
    standOn(0);
}

void Recordset::moveLast()
{
    leave();
    requireRows();
    standOn(rowCount() - 1);
}

void Recordset::moveNext()
{
    leave();
    if (eof())
        fail(kNoCurrentRecord, QStringLiteral("There is no row behind the last one."));
    standOn(m_onGap ? m_row : m_row + 1);
}

void Recordset::movePrevious()
{
    leave();
    if (bof())
        fail(kNoCurrentRecord, QStringLiteral("There is no row before the first one."));
    standOn(m_row - 1);
}

void Recordset::setAbsolutePosition(int position)
{
    leave();
    if (position < 1 || position > rowCount())
        fail(kBadCriterion, QStringLiteral("There is no row %1.").arg(position));
    standOn(position - 1);
}

Recordset::Bookmark Recordset::bookmark() const
{
    requireCurrent();
    const int row = m_mode == EditMode::Add ? m_rows.cells.rows() : rowAt(m_row);
    return (Bookmark{m_generation} << kBookmarkBits) + row + 1;
}

void Recordset::setBookmark(Bookmark bookmark)
{
    leave();
    const Bookmark row = (bookmark & 0xFFFFFFFF) - 1;
    const auto place = std::find(m_rows.order.begin(), m_rows.order.end(), row);
    if (bookmark >> kBookmarkBits != m_generation || place == m_rows.order.end())
        fail(kInvalidBookmark, QStringLiteral("The bookmark's row is not there."));
    standOn(static_cast<int>(place - m_rows.order.begin()));
}

int Recordset::columnOf(const QString& field) const
{
    for (int column = 0; column < m_rows.names.size(); ++column)
        if (m_rows.names[column].compare(field, Qt::CaseInsensitive) == 0)
            return column;
    fail(kItemNotFound, QStringLiteral("There is no field ") + field);
}

std::optional<QString> Recordset::value(const QString& field) const
{
    return value(columnOf(field));
}

std::optional<QString> Recordset::value(int column) const
{
    if (column < 0 || column >= m_rows.names.size())
        fail(kItemNotFound, QStringLiteral("There is no field ") + QString::number(column));
    requireCurrent();
    const auto index = static_cast<std::size_t>(column);
    if (m_mode != EditMode::None && m_pending[index])
        return m_pending[index];
    return m_mode == EditMode::Add ? std::nullopt : valueAt(m_row, column);
}

std::optional<QString> Recordset::valueAt(int position, int column) const
{
    return textOf(m_rows.cells.cell(rowAt(position), column));
}

void Recordset::begin(EditMode mode)
{
    m_mode = mode;
    m_pending.assign(static_cast<std::size_t>(m_rows.names.size()), std::nullopt);
}

void Recordset::endEdit()
{
    m_mode = EditMode::None;
    m_pending.clear();
}

void Recordset::setValue(const QString& field, const QString& value)
{
    const int column = columnOf(field);
    requireCurrent();
    requireChangeable();
    if (m_mode == EditMode::None)
        begin(EditMode::InProgress);
    // An empty text is a value too, other than none.
    m_pending[static_cast<std::size_t>(column)] = value.isNull() ? QString(QLatin1String("")) : value;
}

void Recordset::addNew()
{
    leave();
    requireChangeable();
    m_rowBeforeAdd = m_row;
    begin(EditMode::Add);
    Q_EMIT moveComplete();
}

void Recordset::cancelUpdate()
{
    const EditMode mode = m_mode;
    endEdit();
    if (mode == EditMode::InProgress)
        Q_EMIT fieldsChanged();
    if (mode == EditMode::Add)
        standOn(m_rowBeforeAdd);
}

void Recordset::askBeforeChange() const
{
    if (willChangeRecord && !willChangeRecord())
        fail(kOperationCancelled, QStringLiteral("The change was refused."));
}

std::vector<NewValue> Recordset::newValues() const
{
    std::vector<NewValue> values;
    for (std::size_t column = 0; column < m_pending.size(); ++column)
        if (m_pending[column])
            values.push_back({m_rows.names[static_cast<qsizetype>(column)], m_pending[column]->toUtf8()});
    return values;
}

KnownRow Recordset::known(int row) const
{
    KnownRow result{m_rows.rowNumbers[static_cast<std::size_t>(row)], m_rows.fileNumber, m_rows.names, {}};
    result.restNames = m_rows.restNames;
    result.rest = m_rows.rests[static_cast<std::size_t>(row)];
    for (int column = 0; column < m_rows.names.size(); ++column) {
        const RowStore::Cell cell = m_rows.cells.cell(row, column);
        result.values.push_back(cell ? std::optional(cell->toByteArray()) : std::nullopt);
    }
    return result;
}

void Recordset::update()
{
    if (m_mode == EditMode::None)
        return;
    askBeforeChange();
    m_mode == EditMode::Add ? saveNew() : saveChange();
}

// A value that was set to what it is anyway is not written.
void Recordset::saveChange()
{
    const int row = rowAt(m_row);
    const KnownRow old = known(row);
    std::vector<std::optional<QByteArray>> values = old.values;
    std::vector<NewValue> changes = newValues();
    std::erase_if(changes, [&](const NewValue& change) {
        auto& value = values[static_cast<std::size_t>(columnOf(change.name))];
        const bool same = value == change.value;
        value = change.value;
        return same;
    });
    if (!changes.empty()) {
        m_rows.rowNumbers[static_cast<std::size_t>(row)] = RowWriter(*m_connection).update(old, changes);
        m_rows.cells.replace(row, {values.begin(), values.end()});
    }
    endEdit();
    Q_EMIT rowChanged(m_row);
    m_connection->confirm();
}

void Recordset::saveNew()
{
    const std::vector<NewValue> values = newValues();
    if (values.empty())
        fail(kEmptyRow,
             QStringLiteral("An empty row cannot be added: at least one field must hold a value."));
    const StoredRow row = RowWriter(*m_connection).insert(values, m_rows.names, m_rows.restNames);
    m_rows.cells.append({row.values.begin(), row.values.end()});
    m_rows.rowNumbers.push_back(row.number);
    m_rows.rests.push_back(row.rest);
    m_rows.order.push_back(m_rows.cells.rows() - 1);
    m_row = rowCount() - 1;
    m_onGap = false;
    endEdit();
    Q_EMIT rowAdded(m_row);
    m_connection->confirm();
}

void Recordset::deleteRecord()
{
    requireCurrent();
    requireChangeable();
    if (m_mode == EditMode::Add)
        fail(kNoCurrentRecord, QStringLiteral("The new row is not in the archive yet."));
    askBeforeChange();
    RowWriter(*m_connection).remove(known(rowAt(m_row)));
    endEdit();
    m_rows.order.erase(m_rows.order.begin() + m_row);
    m_onGap = true;
    Q_EMIT rowRemoved(m_row);
    m_connection->confirm();
}

void Recordset::find(const QString& criterion)
{
    const FindCriterion wanted = parseFindCriterion(criterion);
    const int column = columnOf(wanted.field);
    leave();
    requireCurrent();
    int row = m_row;
    while (row < rowCount() && !wanted.fits(m_rows.cells.cell(rowAt(row), column)))
        ++row;
    standOn(row);
}
