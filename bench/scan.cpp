// Measures a scan of 100,000 files of 7,000 directories into the rows of the result window, against loops
// that only read the same bytes, and against a tool that lists tags.
#include "bench/support/bench_world.h"
#include "bench/support/measure.h"
#include "bench/support/musictree.h"
#include "toolkit/grids/flexgrid.h"

#include <QApplication>
#include <QDirIterator>
#include <QFile>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace {

constexpr int kRounds = 5;
constexpr int kColdRounds = 2;
constexpr qint64 kTail = 256;

double scanOnce(const std::string& work, const std::string& tree)
{
    BenchWorld world(work, tree);
    frmResult* result = nullptr;
    const double time = milliseconds([&] { result = world.scan(); });
    if (result->MSFlexGrid1->Rows() != 100'000)
        std::exit((std::fprintf(stderr, "scan found %d rows\n", result->MSFlexGrid1->Rows()), 1));
    delete result;
    return time;
}

double qtLoop(const std::string& tree)
{
    return milliseconds([&] {
        qint64 read = 0;
        QDirIterator files(QString::fromStdString(tree), {QStringLiteral("*.mp3")}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            if (file.open(QIODevice::ReadOnly) && file.size() > kTail && file.seek(file.size() - kTail - 1))
                read += file.read(kTail).size();
        }
        if (read < 1000)
            std::exit(1);
    });
}

long bareLoop(const std::string& path)
{
    DIR* directory = opendir(path.c_str());
    if (!directory)
        return 0;
    long read = 0;
    while (const dirent* entry = readdir(directory)) {
        const std::string name = entry->d_name;
        if (name == "." || name == "..")
            continue;
        const std::string full = path + '/' + name;
        if (entry->d_type == DT_DIR) {
            read += bareLoop(full);
            continue;
        }
        const int file = open(full.c_str(), O_RDONLY | O_CLOEXEC);
        struct stat status = {};
        char tail[kTail];
        if (file >= 0 && fstat(file, &status) == 0 && status.st_size > kTail)
            read += pread(file, tail, kTail, status.st_size - kTail - 1);
        close(file);
    }
    closedir(directory);
    return read;
}

bool dropCaches()
{
    sync();
    std::ofstream caches("/proc/sys/vm/drop_caches");
    caches << "3\n";
    return caches.flush().good();
}

double tagTool(const std::string& tree)
{
    const std::string command =
        "find '" + tree + "' -name '*.mp3' -print0 | xargs -0 id3v2 -l > /dev/null 2>&1";
    return milliseconds([&] {
        if (std::system(command.c_str()) < 0)
            std::exit(1);
    });
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const std::string work = argc > 1 ? argv[1] : "build/bench";
    const std::string tree = musicTree(work);
    const auto ours = [&] { return scanOnce(work, tree); };
    bareLoop(tree); // warm
    report("scan 100,000 files of 7,000 directories, warm, rows in the grid",
           "QDirIterator + QFile reading 256 bytes", best(kRounds, ours, [&] { return qtLoop(tree); }));
    if (argc > 2 && std::string(argv[2]) == "--warm")
        return 0;
    report("the same", "find -print0 \\| xargs -0 id3v2 -l", best(2, ours, [&] { return tagTool(tree); }));
    if (!dropCaches()) {
        std::puts("| the same, cold | readdir, open, fstat, pread, close | not measured: caches cannot be "
                  "dropped | | |");
        return 0;
    }
    report("the same, cold caches", "readdir, open, fstat, pread, close",
           best(
               kColdRounds, [&] { return dropCaches() ? ours() : 0; },
               [&] { return dropCaches() ? milliseconds([&] { bareLoop(tree); }) : 0; }));
}
