#include "base/utf8.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace {

// What the toolkit makes of the bytes; nothing unless they are one whole character.
QString oneCharacter(QByteArrayView bytes)
{
    const QString text = bytes.isValidUtf8() ? QString::fromUtf8(bytes) : QString();
    return text.toUcs4().size() == 1 ? text : QString();
}

using Bytes = std::array<unsigned char, 4>;

Bytes bytesOf(const std::array<int, 4>& numbers)
{
    Bytes bytes;
    std::transform(numbers.begin(), numbers.end(), bytes.begin(),
                   [](int number) { return static_cast<unsigned char>(number); });
    return bytes;
}

QString decoded(const Bytes& bytes, int& length)
{
    const utf8::Sequence sequence = utf8::decode(bytes.data(), bytes.data() + bytes.size());
    length = sequence.length;
    QString text(4, Qt::Uninitialized);
    text.truncate(length == 0 ? 0 : utf8::put(text.data(), sequence.character) - text.constData());
    return text;
}

} // namespace

// It takes every lead byte with every second byte, and of the further ones the awkward.
TEST(Utf8, decodesWhatTheToolkitDecodes)
{
    int wrong = 0;
    for (int first = 0x80; first < 0x100; ++first)
        for (int second = 0; second < 0x100; ++second)
            for (const int third : {0x00, 0x41, 0x7F, 0x80, 0x9C, 0xBE, 0xBF, 0xC0, 0xFF})
                for (const int fourth : {0x2F, 0x80, 0xBF, 0xE0}) {
                    const Bytes bytes = bytesOf({first, second, third, fourth});
                    int length = 0;
                    const QString text = decoded(bytes, length);
                    QString expected;
                    for (int count = 2; count <= 4 && expected.isEmpty(); ++count)
                        expected = oneCharacter({bytes.data(), count});
                    const bool isMark =
                        first == 0xEF && second == 0xBB && third == 0xBF; // the toolkit drops it
                    wrong += !isMark && text != expected ? 1 : 0;
                    wrong += !isMark && length != expected.toUtf8().size() ? 1 : 0;
                }
    EXPECT_EQ(wrong, 0);
}

TEST(Utf8, looksAtNothingBehindTheEnd)
{
    for (const QByteArrayView whole :
         {QByteArrayView("\xC3\xB8"), QByteArrayView("\xE2\x82\xAC"), QByteArrayView("\xF0\x9F\x8E\xB5")}) {
        const auto* const begin = reinterpret_cast<const unsigned char*>(whole.data());
        for (qsizetype count = 1; count < whole.size(); ++count)
            EXPECT_EQ(utf8::decode(begin, begin + count).length, 0);
        EXPECT_EQ(utf8::decode(begin, begin + whole.size()).length, whole.size());
    }
}

TEST(Utf8, putsAsciiOfAnyLength)
{
    QByteArray bytes;
    for (int count = 0; count < 300; ++count) {
        QString text(count, Qt::Uninitialized);
        EXPECT_EQ(utf8::putAscii(text.data(), bytes), text.constData() + count);
        EXPECT_EQ(text.toLatin1(), bytes);
        bytes += static_cast<char>(count % 0x80);
    }
}
