#include "base/codepage.h"

#include "tests/support/bytes.h"

#include <QSet>

#include <gtest/gtest.h>

TEST(CodePage, keepsPositionsForEveryByte)
{
    const QString text = CodePage::windows1252().toText(allBytes());
    ASSERT_EQ(text.size(), 256);
    for (int i = 0; i < 128; ++i)
        EXPECT_EQ(text[i].unicode(), i);
    for (int i = 160; i < 256; ++i)
        EXPECT_EQ(text[i].unicode(), i);
}

TEST(CodePage, knowsTheUpperControlsOfWindows1252)
{
    const QString text = CodePage::windows1252().toText(allBytes());
    EXPECT_EQ(text[0x80].unicode(), 0x20AC);
    EXPECT_EQ(text[0x9F].unicode(), 0x0178);
    EXPECT_EQ(text[0x81].unicode(), 0x81); // undefined there
}

TEST(CodePage, mapsNoTwoBytesToOneCharacter)
{
    const QString text = CodePage::windows1252().toText(allBytes());
    EXPECT_EQ(QSet<QChar>(text.cbegin(), text.cend()).size(), 256);
}

TEST(textOfBytes, takesUtf8WhereItIsValid)
{
    const CodePage page = CodePage::windows1252();
    EXPECT_EQ(textOfBytes("bl\xC3\xA5", page), u"blå"_qs);
    EXPECT_EQ(textOfBytes("bl\xE5", page), u"blå"_qs);
    EXPECT_EQ(textOfBytes("\xEF\xBB\xBFtip", page), u"tip"_qs);
    EXPECT_EQ(textOfBytes({}, page), QString());
}

TEST(textOfBytes, dropsOneMarkOnly)
{
    EXPECT_EQ(textOfBytes("\xEF\xBB\xBF\xEF\xBB\xBFtip", CodePage::windows1252()), u"\uFEFFtip"_qs);
    EXPECT_EQ(textOfBytes("\xEF\xBB\xBF\xE5", CodePage::windows1252()), u"ï»¿å"_qs);
}

TEST(textOfBytes, isAppendedToWhatIsThere)
{
    const CodePage page = CodePage::windows1252();
    QString text;
    appendTextOfBytes(text, "Sj\xC3\xB8", page);
    appendTextOfBytes(text, "en ", page);
    appendTextOfBytes(text, "bl\xE5", page);
    appendTextOfBytes(text, {}, page);
    EXPECT_EQ(text, u"Sjøen blå"_qs);
}
