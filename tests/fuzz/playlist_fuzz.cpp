// Takes any file as a playlist: what is read can be written, and then reads as the same paths.
#include "player/playlist/playlistfile.h"
#include "tests/fuzz/demand.h"
#include "tests/support/world.h"

#include <cstddef>
#include <cstdint>

namespace {

QStringList storedPaths(const Playlist& list)
{
    QStringList paths;
    for (const PlaylistEntry& entry : list.entries())
        if (!entry.path.isEmpty() && !entry.path.contains(u"**"_qs))
            paths += entry.path;
    return paths;
}

void tryAs(World& world, const PlaylistSeams& seams, const char* extension, const QByteArray& content)
{
    world.directory.write(QByteArray("disk/lists/in.") + extension, content);
    Playlist list;
    PlRead(list, u"D:\\lists\\in."_qs + QString::fromLatin1(extension), true, seams);
    demand(list.count() <= kMostEntries, "the list stays in its limit");
    demand(WritePL(list, u"D:\\lists\\out.m3u"_qs, seams), "what was read can be written");
    Playlist again;
    PlRead(again, u"D:\\lists\\out.m3u"_qs, true, seams);
    demand(storedPaths(again) == storedPaths(list), "what was written reads as the same paths");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static World world;
    static const PlaylistSeams seams{world.context.platform, world.fileNumbers, world.codePage};
    const QByteArray content(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    tryAs(world, seams, "m3u", content);
    tryAs(world, seams, "pls", content);
    return 0;
}
