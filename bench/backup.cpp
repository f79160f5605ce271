// Measures a backup of an archive of 1,000,000 rows, safely on the disk, against cp and sync of that file.
#include "bench/support/archivedata.h"
#include "bench/support/measure.h"
#include "database/connection/archivecopy.h"
#include "database/connection/opengroups.h"

#include <QCoreApplication>

#include <filesystem>

namespace fs = std::filesystem;

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const std::string work = argc > 1 ? argv[1] : "build/bench";
    const BenchArchive archive(work);
    const fs::path target = fs::absolute(work) / "Songbin.Bck";
    const auto timed = [&](const std::function<void()>& copy) {
        fs::remove(target);
        const double time = milliseconds(copy);
        if (fs::file_size(target) != fs::file_size(archive.file()))
            endWith("the copy is not whole");
        return time;
    };
    const auto ours = [&] {
        OpenGroups groups;
        backUpArchive(QByteArray::fromStdString(archive.file()), QByteArray::fromStdString(target), groups);
    };
    const auto rival = [&] {
        runCommand("cp '" + archive.file() + "' '" + target.string() + "' && sync '" + target.string() + "'");
    };
    constexpr int kRounds = 7;
    const std::string megabytes = std::to_string(fs::file_size(archive.file()) >> 20);
    report("back up an archive of 1,000,000 rows, " + megabytes + " MB", "`cp` and `sync` of the same file",
           best(
               kRounds, [&] { return timed(ours); }, [&] { return timed(rival); }));
    fs::remove(target);
}
