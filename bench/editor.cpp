// Measures the record editor's result, 1,000,000 rows in the order of their artists, against the sqlite3
// shell.
#include "bench/support/archivedata.h"
#include "bench/support/measure.h"

#include <QCoreApplication>

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    BenchArchive archive(argc > 1 ? argv[1] : "build/bench");
    const QString statement =
        QStringLiteral("select fldArtist,fldPath,fldSong,fldVolum from MP3 Order by fldArtist");
    constexpr int kRounds = 3;
    report("open the record editor's 1,000,000 rows, sorted by artist",
           "the `sqlite3` shell, `ORDER BY fldArtist COLLATE NOCASE`, to /dev/null",
           best(
               kRounds, [&] { return archive.openResult(statement); },
               [&] { return archive.openByShell(statement + QStringLiteral(" COLLATE NOCASE")); }));
}
