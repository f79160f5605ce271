// Makes the first frame that tells a reader how many follow, as encoders of MP3 files put it before the
// sound.
#include "tests/support/bytes.h"
#include "tests/support/mediafiles.h"

namespace {

constexpr int kBitrates[] = {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
constexpr int kTagPlace = 36;     // behind the header and the side information of a stereo frame
constexpr int kTagBitrate = 0x90; // 128,000 bits a second, enough for the tag

int byteAt(const QByteArray& bytes, qsizetype place)
{
    return static_cast<unsigned char>(bytes.at(place));
}

// Returns the size of the 44,100 Hz frame of layer III that begins there.
int frameSize(const QByteArray& bytes, qsizetype place)
{
    const bool isFrame = bytes.mid(place, 2) == QByteArray::fromHex("FFFB") &&
                         (byteAt(bytes, place + 2) & 0x0C) == 0 && byteAt(bytes, place + 2) >> 4 != 0 &&
                         byteAt(bytes, place + 2) >> 4 != 15;
    if (!isFrame)
        throw std::runtime_error("not an MP3 frame");
    const int bitrate = kBitrates[byteAt(bytes, place + 2) >> 4];
    return 144000 * bitrate / kFramesPerSecond + (byteAt(bytes, place + 2) >> 1 & 1);
}

std::vector<qsizetype> framePlaces(const QByteArray& mp3)
{
    std::vector<qsizetype> places;
    for (qsizetype place = 0; place + 4 <= mp3.size(); place += frameSize(mp3, place))
        places.push_back(place);
    return places;
}

// Gives for each hundredth of the time the 256th of the file where it begins.
QByteArray tableOfContents(const std::vector<qsizetype>& places, qsizetype tagSize, qsizetype wholeSize)
{
    QByteArray table;
    for (std::size_t part = 0; part < 100; ++part)
        table += static_cast<char>((places[part * places.size() / 100] + tagSize) * 256 / wholeSize);
    return table;
}

} // namespace

QByteArray withCountOfFrames(const QByteArray& mp3, bool variable)
{
    const std::vector<qsizetype> places = framePlaces(mp3);
    QByteArray tag = mp3.left(4);
    tag[2] = static_cast<char>(kTagBitrate);
    const int size = frameSize(tag, 0);
    addField(tag, {}, kTagPlace - 4);
    tag += variable ? "Xing" : "Info";
    addBig(tag, quint32(7)); // with the numbers of frames and bytes and the table
    addBig(tag, static_cast<quint32>(places.size()));
    addBig(tag, static_cast<quint32>(mp3.size() + size));
    tag += tableOfContents(places, size, mp3.size() + size);
    addField(tag, {}, size - static_cast<int>(tag.size()));
    return tag + mp3;
}
