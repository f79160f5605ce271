// Measures an import of 100,000 rows from the result window, durable, with trace file and progress label,
// against the sqlite3 shell running the same statements in one transaction.
#include "archiveschema.h" // of assets/songbin.sql
#include "bench/support/bench_world.h"
#include "bench/support/measure.h"
#include "bench/support/musictree.h"
#include "toolkit/grids/flexgrid.h"
#include "toolkit/widgets/progresslabel.h"

#include <QApplication>

#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace {

constexpr int kRounds = 3;

void makeArchive(const std::string& file)
{
    fs::remove(file);
    runCommand("sqlite3 '" + file + "' <<'END'\n" + kArchiveSchema + "\nEND");
}

void writeStatements(const FlexGrid& grid, const std::string& file)
{
    std::ofstream out(file);
    out << "BEGIN;\n";
    for (int row = 0; row < grid.Rows(); ++row) {
        QStringList values;
        for (int col = 0; col < grid.Cols(); ++col)
            values += grid.textAt(row, col);
        out << " INSERT INTO MP3 (fldVolum,fldPath,fldArtist,fldSong,fldAlbum,fldYear,fldComment) VALUES ("
            << valueList(values).toStdString() << ");\n";
    }
    out << "COMMIT;\n";
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const std::string work = argc > 1 ? argv[1] : "build/bench";
    const std::string archive = work + "/Songbin.mdb";
    const std::string statements = work + "/ins.sql";
    const std::string tree = musicTree(work);
    BenchWorld world(work, tree);
    frmResult* result = world.scan();
    writeStatements(*result->MSFlexGrid1, statements);

    const auto ours = [&] {
        makeArchive(archive);
        const double time =
            milliseconds([&] { InsertGridRows(world.context, *result->MSFlexGrid1, *result); });
        if (!world.dialogs.said(-1).endsWith(u"|100000 Records is added to Songbin"))
            endWith("import said: " + (world.dialogs.said(-1) + world.dialogs.lastError).toStdString());
        return time;
    };
    const auto rival = [&] {
        makeArchive(work + "/rival.mdb");
        return milliseconds([&] { runCommand("sqlite3 '" + work + "/rival.mdb' < '" + statements + "'"); });
    };
    report("import 100,000 rows, durable, with trace and label", "sqlite3 db < ins.sql, one transaction",
           best(kRounds, ours, rival));
    delete result;
}
