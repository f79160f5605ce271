// Makes bytes for tests: numbers as binary files hold them, each byte once, and arbitrary ones.
#pragma once

#include <QByteArray>
#include <QtEndian>

template <typename Number>
void addLittle(QByteArray& bytes, Number number)
{
    number = qToLittleEndian(number);
    bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
}

template <typename Number>
void addBig(QByteArray& bytes, Number number)
{
    number = qToBigEndian(number);
    bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
}

// Returns the same arbitrary bytes for the same seed.
inline QByteArray arbitraryBytes(int size, quint32 seed)
{
    QByteArray bytes(size, '\0');
    for (char& byte : bytes) {
        seed = seed * 1664525 + 1013904223;
        byte = static_cast<char>(seed >> 24);
    }
    return bytes;
}

inline QByteArray allBytes()
{
    QByteArray bytes;
    for (int i = 0; i < 256; ++i)
        bytes += static_cast<char>(i);
    return bytes;
}

// Adds the text, filled up with zeros or cut.
inline void addField(QByteArray& bytes, const QByteArray& text, int size)
{
    bytes += text.leftJustified(size, '\0', true);
}
