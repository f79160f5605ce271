// Writes numbers as binary files hold them.
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

// Adds the text, filled up with zeros or cut.
inline void addField(QByteArray& bytes, const QByteArray& text, int size)
{
    bytes += text.leftJustified(size, '\0', true);
}
