#include "archive/reports/storedrows.h"

#include "base/runtimeerror.h"

int columnOf(const QStringList& names, const QString& name)
{
    for (int column = 0; column < names.size(); ++column)
        if (names[column].compare(name, Qt::CaseInsensitive) == 0)
            return column;
    throw RunTimeError(kItemNotFound, QStringLiteral("There is no field ") + name);
}

StoredRows::StoredRows(CommandRows rows, const QStringList& columns) : m_rows(std::move(rows))
{
    for (const QString& name : columns)
        m_columns.push_back(columnOf(m_rows.names, name));
}

QString StoredRows::text(int row, int column) const
{
    const Cell value = cell(row, column);
    return value ? QString::fromUtf8(*value) : QString();
}
