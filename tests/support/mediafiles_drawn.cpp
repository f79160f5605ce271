// Makes media that are told how to sound or look, without samples.
#include "tests/support/bytes.h"
#include "tests/support/mediafiles.h"

namespace {

constexpr int kWidth = 32;
constexpr int kHeight = 24;

QByteArray chunk(quint16 type, const QByteArray& content)
{
    QByteArray bytes;
    addLittle(bytes, static_cast<quint32>(content.size() + 6));
    addLittle(bytes, type);
    return bytes + content;
}

QByteArray greyPalette()
{
    QByteArray bytes = QByteArray::fromHex("01000000"); // one packet, nothing skipped, 256 colours
    for (int grey = 0; grey < 256; ++grey)
        bytes += QByteArray(3, static_cast<char>(grey));
    return bytes;
}

QByteArray picture(int grey, bool first)
{
    QByteArray bytes;
    addLittle(bytes, quint16(first ? 2 : 1)); // chunks
    addField(bytes, {}, 8);
    if (first)
        bytes += chunk(4, greyPalette());
    return chunk(0xF1FA, bytes + chunk(16, QByteArray(kWidth * kHeight, static_cast<char>(grey))));
}

} // namespace

QByteArray midiFile(int notes)
{
    QByteArray track = QByteArray::fromHex("00FF510307A120"); // a beat lasts half a second
    for (int note = 0; note < notes; ++note)
        track += QByteArray::fromHex("00903C648360803C40"); // on, and off after 480 ticks
    track += QByteArray::fromHex("00FF2F00");
    QByteArray bytes("MThd");
    addBig(bytes, quint32(6));
    for (int number : {0, 1, 480}) // format, tracks, ticks a beat
        addBig(bytes, static_cast<quint16>(number));
    bytes += "MTrk";
    addBig(bytes, static_cast<quint32>(track.size()));
    return bytes + track;
}

QByteArray flcFile(int pictures, int millisecondsEach)
{
    QByteArray film;
    // The one after the last leads back to the first.
    for (int index = 0; index <= pictures; ++index)
        film += picture(index % pictures * 255 / pictures, index == 0);
    QByteArray bytes;
    addLittle(bytes, static_cast<quint32>(film.size() + 128));
    for (int number : {0xAF12, pictures, kWidth, kHeight, 8, 3})
        addLittle(bytes, static_cast<quint16>(number));
    addLittle(bytes, static_cast<quint32>(millisecondsEach));
    addField(bytes, {}, 60);
    addLittle(bytes, quint32(128)); // where the first picture is, and the second
    addLittle(bytes, static_cast<quint32>(128 + picture(0, true).size()));
    addField(bytes, {}, 40);
    return bytes + film;
}
