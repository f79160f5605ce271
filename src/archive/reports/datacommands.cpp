#include "archive/reports/datacommands.h"

#include "archive/reports/blanksfirst.h"
#include "archive/reports/rowgroups.h"
#include "archive/reports/shapedcommand.h"
#include "database/connection/connection.h"
#include "database/cursor/resultset.h"

#include <algorithm>

namespace {

CommandRows fetch(Connection& connection, const QString& statement, const QString& blanksFirst = {})
{
    ResultSet fetched = fetchRowsToRead(connection, statement);
    if (!blanksFirst.isEmpty())
        putBlanksFirst(fetched.order, fetched.cells, columnOf(fetched.names, blanksFirst));
    if (!std::is_sorted(fetched.order.begin(), fetched.order.end()))
        fetched.cells.arrange(fetched.order);
    return {std::move(fetched.names), std::move(fetched.cells)};
}

CommandRows fetchShaped(Connection& connection, const ShapedCommand& command)
{
    CommandRows rows = fetch(connection, command.statement);
    std::vector<int> columns;
    for (const QString& name : command.by)
        columns.push_back(columnOf(rows.names, name));
    rows.groups = groupRows(rows.cells, columns);
    return rows;
}

} // namespace

DataCommand datacommands::FullListe_Grouping()
{
    return {QStringLiteral("FullListe_Grouping"), &ArchiveStore::DataEnvironment1,
            QStringLiteral(
                "SHAPE {SELECT * FROM `MP3`}  AS FullListe COMPUTE FullListe BY 'fldVolum','fldPath'")};
}

DataCommand datacommands::SelectAll()
{
    return {QStringLiteral("SelectAll"), &ArchiveStore::SelectData, QStringLiteral("SELECT * FROM MP3")};
}

DataCommand datacommands::SelectAllSortOnArtist()
{
    return {QStringLiteral("SelectAllSortOnArtist"), &ArchiveStore::SelectData,
            QStringLiteral("SELECT fldArtist, fldSong FROM MP3 ORDER BY fldArtist"),
            QStringLiteral("fldArtist")};
}

CommandRows rowsOfCommand(const DataCommand& command, ArchiveStore& store, Drives& drives)
{
    Connection connection(drives, &store.groups);
    connection.open((store.*command.environment).connectionText);
    if (isShapedCommand(command.text))
        return fetchShaped(connection, parseShapedCommand(command.text));
    return fetch(connection, command.text, command.blanksFirst);
}
