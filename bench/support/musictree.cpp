#include "bench/support/musictree.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace {

constexpr int kDirectories = 7000;
constexpr int kFiles = 100'000;
constexpr int kArtists = 700;
constexpr int kFrames = 10;
constexpr std::size_t kFrameBytes = 417; // of MPEG-1 layer III at 128 kbit/s and 44,100 Hz

std::string padded(std::string text, std::size_t length)
{
    text.resize(length, ' ');
    return text;
}

std::string tagOf(int file, int album)
{
    return "TAG" + padded("Song title number " + std::to_string(file), 30) +
           padded("Artist \xE5\xF8 " + std::to_string(album % kArtists), 30) +
           padded("Album " + std::to_string(album), 30) + "1999" + padded("a comment", 29) + '\x05' + '\x11';
}

// They are silent frames with true headers: tools that look for the music find it at once.
std::string music()
{
    std::string frame("\xFF\xFB\x90\x64", 4);
    frame.resize(kFrameBytes, '\0');
    std::string all;
    for (int i = 0; i < kFrames; ++i)
        all += frame;
    return all;
}

void writeFile(const fs::path& path, int file, int album)
{
    std::ofstream out(path, std::ios::binary);
    static const std::string kMusic = music();
    out << kMusic;
    if (file % 5 != 0)
        out << tagOf(file, album);
}

} // namespace

std::string musicTree(const std::string& directory)
{
    const fs::path root = fs::path(directory) / "tree";
    const fs::path done = fs::path(directory) / "tree.done";
    if (fs::exists(done))
        return root;
    std::fprintf(stderr, "making %d files in %d directories ...\n", kFiles, kDirectories);
    for (int file = 0; file < kFiles; ++file) {
        const int album = file % kDirectories;
        const fs::path place =
            root / ("Artist " + std::to_string(album % kArtists)) / ("Album " + std::to_string(album));
        fs::create_directories(place);
        writeFile(place / ("Artist_" + std::to_string(album % kArtists) + " - Song_" + std::to_string(file) +
                           ".mp3"),
                  file, album);
    }
    std::ofstream(done) << "done\n";
    return root;
}
