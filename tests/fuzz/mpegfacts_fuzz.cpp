// Takes any file as MPEG sound: the facts are cells of their tables, the fields of the tag have their widths.
#include "player/playback/mpegfacts.h"
#include "tests/fuzz/demand.h"
#include "tests/support/world.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static World world;
    world.directory.write("disk/a.mp3",
                          QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    const MpegFacts facts = GetMP3Info(u"D:\\a.mp3"_qs, world.files, world.fileNumbers, world.codePage);
    demand(facts.read == (size >= 256), "a file of 256 bytes or more is read");
    demand(facts.bitRate.size() <= 3 && facts.sampling.size() <= 2 && facts.mode.size() <= 7,
           "cells of tables");
    demand(facts.bitRateValue >= 0 && facts.bitRateValue <= 320, "a bit rate of the table");
    demand(facts.tag.title.size() == 30 && facts.tag.artist.size() == 30 && facts.tag.album.size() == 30,
           "texts of 30 characters");
    demand(facts.tag.year.size() == 4 && facts.tag.comment.size() == 29, "texts of 4 and 29 characters");
    demand(facts.tag.track.size() == 1 && facts.tag.genre.size() == 1, "single characters");
    return 0;
}
