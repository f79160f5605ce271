// Measures a search of 1,000,000 rows from the texts of the search form to the whole result, against the
// sqlite3 shell with the same statement. The shell's LIKE ignores case for the letters of ASCII only.
#include "bench/support/archivedata.h"
#include "bench/support/measure.h"

#include <QCoreApplication>

namespace {

constexpr int kRounds = 15; // many, as the times are short

const QString kAnd = QStringLiteral(
    "select fldArtist,fldPath,fldSong,fldVolum, fldAlbum, fldYear, fldComment from MP3 where fldArtist like "
    "'%sjø%' And fldpath Like '%%' And fldSong Like '%%' And fldVolum Like '%%' And fldAlbum Like '%%' And "
    "fldYear Like '%%' And fldComment Like '%%' And fldpath Like '%.MP3%'");
const QString kOr = QStringLiteral(
    "select fldArtist,fldPath,fldSong,fldVolum, fldAlbum, fldYear, fldComment from MP3 where (fldArtist like "
    "'%sjø%' Or fldpath Like '%¤%' Or fldSong Like '%край%' Or fldVolum Like '%¤%' Or fldAlbum Like "
    "'%øst%' Or fldYear Like '%¤%' Or fldComment Like '%¤%') And (fldpath Like '%.MP3%')");

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    BenchArchive archive(argc > 1 ? argv[1] : "build/bench");
    const auto compare = [&](const std::string& work, const QString& statement) {
        report(work, "the `sqlite3` shell, same statement, to /dev/null",
               best(
                   kRounds, [&] { return archive.openResult(statement); },
                   [&] { return archive.openByShell(statement); }));
    };
    compare("search 1,000,000 rows for one text, criteria joined by And", kAnd);
    compare("search 1,000,000 rows for three texts, criteria joined by Or", kOr);
}
