#include "bench/support/archivedata.h"

#include "archiveschema.h" // of assets/songbin.sql
#include "bench/support/madeuprows.h"
#include "bench/support/measure.h"
#include "database/connection/connection.h"
#include "database/cursor/recordset.h"

#include <sqlite3.h>

#include <cstdio>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

constexpr const char* kFileName = "million_1.mdb"; // another number for other rows: archives are kept

void require(sqlite3* database, bool done)
{
    if (!done)
        endWith(std::string("archive for the benchmarks: ") + sqlite3_errmsg(database));
}

void run(sqlite3* database, const std::string& script)
{
    require(database, sqlite3_exec(database, script.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK);
}

void insertRows(sqlite3* database)
{
    sqlite3_stmt* insert = nullptr;
    require(database, sqlite3_prepare_v2(database, "INSERT INTO MP3 VALUES (?,?,?,?,?,?,?)", -1, &insert,
                                         nullptr) == SQLITE_OK);
    MadeUpRows rows;
    for (int i = 0; i < BenchArchive::kRows; ++i) {
        const MadeUpRows::Row row = rows.next();
        int column = 0;
        for (const QByteArray& value : row)
            sqlite3_bind_text(insert, ++column, value.isNull() ? nullptr : value.constData(),
                              static_cast<int>(value.size()), SQLITE_STATIC);
        require(database, sqlite3_step(insert) == SQLITE_DONE && sqlite3_reset(insert) == SQLITE_OK);
    }
    sqlite3_finalize(insert);
}

void makeArchive(const fs::path& file)
{
    std::fprintf(stderr, "making an archive of %d rows ...\n", BenchArchive::kRows);
    const fs::path unfinished = file.string() + ".new";
    fs::remove(unfinished);
    sqlite3* database = nullptr;
    require(database, sqlite3_open(unfinished.c_str(), &database) == SQLITE_OK);
    run(database, kArchiveSchema);
    run(database, "BEGIN");
    insertRows(database);
    run(database, "COMMIT");
    sqlite3_close(database);
    fs::rename(unfinished, file);
}

// Its drive P: is the directory.
DriveSetup setup(const std::string& directory)
{
    const auto place = [&](const char* name) { return QByteArray::fromStdString(directory + name); };
    return {.user = {.home = place("/home"),
                     .config = place("/config"),
                     .state = place("/state"),
                     .data = place("/data")},
            .declared = "P=" + QByteArray::fromStdString(directory)};
}

} // namespace

BenchArchive::BenchArchive(const std::string& directory)
    : m_file(fs::absolute(fs::path(directory) / kFileName)), m_drives(setup(fs::absolute(directory)))
{
    fs::create_directories(directory);
    if (!fs::exists(m_file))
        makeArchive(m_file);
}

QString BenchArchive::connectionText() const
{
    return QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=P:\\%1;")
        .arg(QString::fromUtf8(kFileName));
}

double BenchArchive::openResult(const QString& statement)
{
    return milliseconds([&] {
        Connection connection(m_drives);
        connection.open(connectionText());
        Recordset records;
        records.open(statement, connection);
        if (records.recordCount() == 0)
            endWith("no row for " + statement.toStdString());
    });
}

double BenchArchive::openByShell(const QString& statement) const
{
    const std::string command = "sqlite3 '" + m_file + "' \"" + statement.toStdString() + "\" > /dev/null";
    return milliseconds([&] { runCommand(command); });
}
