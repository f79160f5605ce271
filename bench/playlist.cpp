// Measures reading a playlist file of as many entries as are read, against a loop that only reads and splits
// its lines; and the walk that fills a playlist from a disk, against the walk of a scan.
#include "player/playlist/playlist.h"
#include "archive/scan/scanner.h"
#include "bench/support/bench_world.h"
#include "bench/support/madeuprows.h"
#include "bench/support/measure.h"
#include "bench/support/musictree.h"
#include "player/playlist/playlistfile.h"
#include "player/playlist/walkdirectory.h"

#include <QApplication>

#include <fstream>
#include <utility>
#include <vector>

namespace {

constexpr int kReadRounds = 25;
constexpr int kWalkRounds = 7;
constexpr int kFiles = 100'000;

// Writes lines as a collection's lists have them, which come from other programs of this system, the player
// itself, lists beside the music.
QByteArray lineOf(const QByteArray& path, int entry)
{
    const QByteArray below = path.sliced(3); // without "D:\"
    switch (entry % 10) {
    case 0:
    case 1:
    case 2:
        return "/home/listener/Music/" + QByteArray(below).replace('\\', '/');
    case 3:
        return "file:///home/listener/Music/" + QByteArray(below).replace('\\', '/').toPercentEncoding("/");
    case 4:
        return '\\' + below;
    case 5:
    case 6:
        return below;
    default:
        return path;
    }
}

void makeList(const std::string& file)
{
    MadeUpRows rows;
    std::ofstream out(file, std::ios::binary);
    for (int entry = 0; entry < kMostEntries; ++entry)
        out << lineOf(rows.next()[1], entry).toStdString() << "\r\n";
}

double readOnce(BenchWorld& world)
{
    const PlaylistSeams seams{world.context.platform, world.fileNumbers, world.codePage};
    Playlist list;
    const double time = milliseconds([&] { PlRead(list, QStringLiteral("P:\\list.m3u"), true, seams); });
    if (list.count() != kMostEntries)
        endWith("the list holds " + std::to_string(list.count()) + " entries");
    return time;
}

double splitOnce(const std::string& file)
{
    std::vector<std::pair<std::string, std::string>> list;
    const double time = milliseconds([&] {
        std::ifstream in(file);
        for (std::string line; std::getline(in, line);) {
            const std::size_t name = line.rfind('\\') + 1;
            list.emplace_back(line.substr(0, name), line.substr(name));
        }
    });
    if (list.size() != kMostEntries)
        endWith("the lines are not there");
    return time;
}

double walkOnce(BenchWorld& world)
{
    const WalkOptions options{.extensions = validExtensions(QString())};
    WalkCounters counters;
    QStringList found;
    const double time = milliseconds([&] {
        WalkDirectory(world.files, world.program, QStringLiteral("D:\\"), options, counters,
                      [&](const QString& path) {
                          found += path;
                          return true;
                      });
    });
    if (found.size() != kFiles)
        endWith("the walk found " + std::to_string(found.size()) + " files");
    return time;
}

// Takes what is found as the walk for the playlist has it, and shows nothing.
class FoundFiles : public ScanView {
public:
    void clearFiles() override { m_files.clear(); }
    void addFile(const QString& path) override { m_files += path; }
    int fileCount() const override { return static_cast<int>(m_files.size()); }
    void addRow(const QStringList&) override { endWith("a tag was read"); }
    void setLabel1(const QString&) override {}
    void setLabel5(const QString&) override {}
    void showProgress() override {}
    bool closing() const override { return false; }

private:
    QStringList m_files;
};

class NoRows : public WholeTree {
public:
    QString customExt() const override { return {}; }
};

double scanWalkOnce(BenchWorld& world)
{
    NoRows setup;
    FoundFiles view;
    Scanner scanner(
        world.context, [&]() -> ScanSetup& { return setup; }, view);
    QString directory = QStringLiteral("D:\\");
    const double time = milliseconds([&] { scanner.FilesSearch(directory, QStringLiteral("*.MP3")); });
    if (view.fileCount() != kFiles)
        endWith("the scan's walk found " + std::to_string(view.fileCount()) + " files");
    return time;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const std::string work = argc > 1 ? argv[1] : "build/bench";
    BenchWorld world(work, musicTree(work));
    const std::string list = work + "/list.m3u";
    makeList(list);
    report("read an M3U of 32,766 entries", "std::getline, split at the last backslash",
           best(
               kReadRounds, [&] { return readOnce(world); }, [&] { return splitOnce(list); }));
    scanWalkOnce(world); // warm
    report("walk 100,000 files for the playlist", "the scan's walk of the same tree, no tags read",
           best(
               kWalkRounds, [&] { return walkOnce(world); }, [&] { return scanWalkOnce(world); }));
}
