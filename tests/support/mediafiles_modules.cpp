// Each module has one pattern whose every fourth row strikes a looped square wave. Rows last 120 ms (speed 6,
// tempo 125); the last row of twenty breaks the pattern off.
#include "tests/support/bytes.h"
#include "tests/support/mediafiles.h"

namespace {

constexpr int kRowsPlayed = kModuleLength / 120;
constexpr int kRowsOfPattern = 64;

bool isStruck(int row)
{
    return row % 4 == 0;
}

QByteArray squareWave()
{
    return QByteArray(16, char(100)) + QByteArray(16, char(-100));
}

constexpr quint32 kWaveLength = 32;

QByteArray modPattern()
{
    QByteArray pattern(kRowsOfPattern * 4 * 4, '\0');
    for (int row = 0; row < kRowsPlayed; ++row)
        if (isStruck(row))
            pattern.replace(row * 16, 4, QByteArray::fromHex("01AC1000")); // sample 1 with the period 428
    pattern.replace((kRowsPlayed - 1) * 16, 4, QByteArray::fromHex("00000D00"));
    return pattern;
}

// Returns rows of the packed patterns: what strikes, and what breaks off.
QByteArray packedRows(const QByteArray& note, const QByteArray& last)
{
    QByteArray rows;
    for (int row = 0; row < kRowsOfPattern; ++row) {
        if (isStruck(row))
            rows += note;
        if (row == kRowsPlayed - 1)
            rows += last;
        rows += '\0';
    }
    return rows;
}

// Pads to a multiple of sixteen, where the pointers of that format point.
void align(QByteArray& bytes)
{
    while (bytes.size() % 16 != 0)
        bytes += '\0';
}

QByteArray s3mInstrument(quint32 wavePlace)
{
    QByteArray bytes(1, char(1));
    addField(bytes, "square", 12);
    bytes += '\0';
    addLittle(bytes, static_cast<quint16>(wavePlace / 16));
    addLittle(bytes, kWaveLength);
    addLittle(bytes, quint32(0)); // the loop
    addLittle(bytes, kWaveLength);
    bytes += QByteArray::fromHex("40000001"); // volume, unpacked, looped
    addLittle(bytes, quint32(8363));
    addField(bytes, {}, 12);
    addField(bytes, "square", 28);
    return bytes + "SCRS";
}

QByteArray itSample(quint32 wavePlace)
{
    QByteArray bytes("IMPS");
    addField(bytes, "square", 13);
    bytes += QByteArray::fromHex("401140"); // global volume, with a looped sample, volume
    addField(bytes, "square", 26);
    bytes += QByteArray::fromHex("0120"); // signed, in the middle
    for (quint32 number : {kWaveLength, 0U, kWaveLength, 8363U, 0U, 0U, wavePlace, 0U})
        addLittle(bytes, number);
    return bytes;
}

} // namespace

QByteArray modFile()
{
    QByteArray bytes;
    addField(bytes, "square", 20);
    addField(bytes, "square", 22);
    addBig(bytes, quint16(kWaveLength / 2));
    bytes += QByteArray::fromHex("0040"); // no fine tune, full volume
    addBig(bytes, quint16(0));            // the loop
    addBig(bytes, quint16(kWaveLength / 2));
    for (int sample = 1; sample < 31; ++sample)
        bytes += QByteArray(28, '\0') + QByteArray::fromHex("0001");
    bytes += QByteArray::fromHex("017F"); // one pattern
    addField(bytes, {}, 128);
    return bytes + "M.K." + modPattern() + squareWave();
}

QByteArray s3mFile()
{
    QByteArray bytes;
    addField(bytes, "square", 28);
    bytes += QByteArray::fromHex("1A100000");
    for (int number : {2, 1, 1, 0, 0x1320, 1}) // orders, instruments, patterns, flags, maker, signed samples
        addLittle(bytes, static_cast<quint16>(number));
    bytes += "SCRM" + QByteArray::fromHex("40067DB01000"); // volumes, speed, tempo
    addField(bytes, {}, 10);
    bytes += '\0' + QByteArray(31, char(0xFF)); // the first channel is there
    bytes += QByteArray::fromHex("00FF");       // orders
    addLittle(bytes, quint16(112 / 16));
    addLittle(bytes, quint16(224 / 16));
    align(bytes);
    bytes += s3mInstrument(192);
    align(bytes);
    bytes += squareWave();
    const QByteArray rows = packedRows(QByteArray::fromHex("204001"), QByteArray::fromHex("800300"));
    addLittle(bytes, static_cast<quint16>(rows.size() + 2));
    return bytes + rows;
}

QByteArray xmFile()
{
    QByteArray bytes("Extended Module: ");
    addField(bytes, "square", 20);
    bytes += char(0x1A);
    addField(bytes, "tests", 20);
    addLittle(bytes, quint16(0x0104));
    addLittle(bytes, quint32(276));
    for (int number : {1, 0, 1, 1, 1, 1, 6, 125}) // orders, restart, channels, patterns, instruments, ...
        addLittle(bytes, static_cast<quint16>(number));
    addField(bytes, {}, 256);
    QByteArray rows;
    for (int row = 0; row < kRowsPlayed; ++row)
        rows += isStruck(row) ? QByteArray::fromHex("833101") : QByteArray(1, char(0x80));
    addLittle(bytes, quint32(9));
    bytes += '\0';
    addLittle(bytes, quint16(kRowsPlayed)); // this format has patterns of any length
    addLittle(bytes, static_cast<quint16>(rows.size()));
    bytes += rows;
    addLittle(bytes, quint32(263));
    addField(bytes, "square", 23);
    addLittle(bytes, quint16(1));
    addLittle(bytes, quint32(40));
    addField(bytes, {}, 263 - 33);
    for (quint32 number : {kWaveLength, 0U, kWaveLength})
        addLittle(bytes, number);
    bytes += QByteArray::fromHex("400001800000"); // volume, fine tune, looped, in the middle
    addField(bytes, "square", 22);
    const QByteArray wave = squareWave();
    char last = 0;
    for (char level : wave) {
        bytes += static_cast<char>(level - last); // differences
        last = level;
    }
    return bytes;
}

QByteArray itFile()
{
    QByteArray bytes("IMPM");
    addField(bytes, "square", 26);
    for (int number : {0x1004, 2, 0, 1, 1, 0x0214, 0x0200, 9, 0}) // ..., orders, no instruments, samples, ...
        addLittle(bytes, static_cast<quint16>(number));
    bytes += QByteArray::fromHex("8030067D8000"); // volumes, speed, tempo
    addField(bytes, {}, 10);
    bytes += QByteArray(64, char(32)) + QByteArray(64, char(64)); // channels: place, volume
    bytes += QByteArray::fromHex("00FF");                         // orders
    const auto samplePlace = static_cast<quint32>(bytes.size() + 8);
    const quint32 wavePlace = samplePlace + 80;
    addLittle(bytes, samplePlace);
    addLittle(bytes, wavePlace + kWaveLength);
    bytes += itSample(wavePlace) + squareWave();
    const QByteArray rows = packedRows(QByteArray::fromHex("81033C01"), QByteArray::fromHex("81080300"));
    addLittle(bytes, static_cast<quint16>(rows.size()));
    addLittle(bytes, quint16(kRowsOfPattern));
    addField(bytes, {}, 4);
    return bytes + rows;
}
