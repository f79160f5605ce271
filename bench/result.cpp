// Measures a result of all 1,000,000 rows, time and memory, against a QSqlQueryModel that has fetched them
// all. Each runs in a process of its own, so that neither finds memory that the other left.
#include "bench/support/archivedata.h"
#include "bench/support/measure.h"
#include "database/connection/connection.h"
#include "database/cursor/recordset.h"

#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlQueryModel>

#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <limits>

namespace {

constexpr int kRounds = 3;
const QString kStatement =
    QStringLiteral("select fldArtist,fldPath,fldSong,fldVolum, fldAlbum, fldYear, fldComment from MP3");

// Prints the milliseconds and the bytes that the opening took; the rows are still there then.
void tell(const std::function<int()>& open)
{
    malloc_trim(0);
    const long before = residentBytes();
    int rows = 0;
    const double time = milliseconds([&] { rows = open(); });
    malloc_trim(0);
    if (rows != BenchArchive::kRows)
        endWith("a result of " + std::to_string(rows) + " rows");
    std::printf("%.3f %ld\n", time, residentBytes() - before);
}

void openRecordset(BenchArchive& archive)
{
    Connection connection(archive.drives());
    Recordset records;
    tell([&] {
        connection.open(archive.connectionText());
        records.open(kStatement, connection);
        return records.recordCount();
    });
}

void openQueryModel(const BenchArchive& archive)
{
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"));
    database.setDatabaseName(QString::fromStdString(archive.file()));
    QSqlQueryModel model;
    tell([&] {
        if (!database.open())
            endWith("QSQLITE cannot open the archive");
        model.setQuery(QSqlQuery(kStatement, database));
        while (model.canFetchMore())
            model.fetchMore();
        return model.rowCount();
    });
}

// Returns the milliseconds; the bytes become the least so far.
double runChild(const std::string& command, double& leastBytes)
{
    FILE* child = popen(command.c_str(), "r");
    double time = 0;
    double bytes = 0;
    const bool isTold = child && std::fscanf(child, "%lf %lf", &time, &bytes) == 2;
    if (!child || pclose(child) != 0 || !isTold)
        endWith("failed: " + command);
    leastBytes = std::min(leastBytes, bytes);
    return time;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const std::string work = argc > 1 ? argv[1] : "build/bench";
    BenchArchive archive(work);
    if (argc > 2) {
        std::string(argv[2]) == "ours" ? openRecordset(archive) : openQueryModel(archive);
        return 0;
    }
    const std::string self = "'" + std::string(argv[0]) + "' '" + work + "' ";
    constexpr double kMost = std::numeric_limits<double>::max();
    Pair bytes{kMost, kMost};
    const Pair time = best(
        kRounds, [&] { return runChild(self + "ours", bytes.ours); },
        [&] { return runChild(self + "rival", bytes.rival); });
    constexpr double kMegabyte = 1024.0 * 1024.0;
    const std::string rival = "a QSqlQueryModel that has fetched all";
    report("open a result of 1,000,000 rows", rival, time);
    report("its memory", rival, {bytes.ours / kMegabyte, bytes.rival / kMegabyte}, "MB");
}
