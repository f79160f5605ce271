#include "player/playback/mpegfacts.h"

#include "base/codepage.h"
#include "base/runtimeerror.h"
#include "base/textrules.h"
#include "platform/filenumbers.h"
#include "player/playlist/modcommon.h"

#include <algorithm>

namespace {

// Kept: these are the program's own tables, used for every version and layer, and not the standard's.
constexpr QStringView kBitRates = u"144 16  32  48  56  64  80  96  112 128 160 192 224 256 320 ";
constexpr QStringView kSamplings = u"44 48 32 ?? ";
constexpr QStringView kModes = u"stereo  jstereo dualch  mono    ";

constexpr int kTail = 256;

quint8 byteAt(FileNumbers& numbers, int number, qint64 position)
{
    const QByteArray byte = numbers.get(number, position, 1);
    if (byte.isEmpty()) // the file was cut in the meantime
        throw RunTimeError(ErrorNumber::InputPastEnd);
    return static_cast<quint8>(byte[0]);
}

// Kept: the header is taken for the file's first four bytes, whatever they are.
void readHeader(MpegFacts& facts, FileNumbers& numbers, int number)
{
    const quint8 third = byteAt(numbers, number, 3);
    const quint8 fourth = byteAt(numbers, number, 4);
    facts.bitRate = BitCell(third, 4, 7, 4, kBitRates);
    facts.bitRateValue = textrules::val(facts.bitRate);
    facts.sampling = BitCell(third, 2, 3, 3, kSamplings);
    facts.samplingValue = textrules::val(facts.sampling);
    facts.mode = BitCell(fourth, 6, 7, 8, kModes);
    facts.read = true;
}

qsizetype markerIn(const QByteArray& tail)
{
    return tail.toLower().indexOf("tag"); // ASCII alone changes
}

TagRecord tagAt(QByteArrayView tag, const CodePage& codePage)
{
    const auto field = [&](qsizetype offset, qsizetype width) {
        const qsizetype start = std::min(offset, tag.size());
        return codePage.toText(tag.sliced(start, std::min(width, tag.size() - start))).leftJustified(width);
    };
    return {.title = field(id3v1::kTitleOffset, id3v1::kTextLength),
            .artist = field(id3v1::kArtistOffset, id3v1::kTextLength),
            .album = field(id3v1::kAlbumOffset, id3v1::kTextLength),
            .year = field(id3v1::kYearOffset, id3v1::kYearLength),
            .comment = field(id3v1::kCommentOffset, id3v1::kCommentLength),
            .track = field(id3v1::kTrackOffset, 1),
            .genre = field(id3v1::kGenreOffset, 1)};
}

} // namespace

MpegFacts GetMP3Info(const QString& path, Files& files, FileNumbers& numbers, const CodePage& codePage)
{
    MpegFacts facts;
    if (!FileExists(files, path))
        return facts;
    resumeNext([&] { numbers.closeAll(); });
    int number = 0;
    const auto read = [&] {
        number = numbers.freeFile();
        numbers.openBinary(number, path);
        const qint64 length = numbers.length(number);
        if (length < kTail)
            return;
        readHeader(facts, numbers, number);
        const QByteArray tail = numbers.get(number, length - kTail + 1, kTail);
        if (const qsizetype marker = markerIn(tail); marker >= 0)
            facts.tag = tagAt(QByteArrayView(tail).sliced(marker), codePage);
    };
    resumeNext(read, [&] { numbers.close(number); });
    return facts;
}
