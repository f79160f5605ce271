#include "posix/codepages.h"

#include "tests/support/bytes.h"

#include <gtest/gtest.h>

#include <clocale>

namespace {

std::string converted(const char* page, const char* bytes)
{
    const std::optional<CodePage> found = singleByteCodePage(QString::fromUtf8(page));
    return found ? found->toText(bytes).toStdString() : "(none)";
}

} // namespace

TEST(CodePages, knowsPagesByName)
{
    EXPECT_EQ(converted("Windows-1251", "\xCC\xE8\xF0"), "Мир");
    EXPECT_EQ(converted("KOI8-R", "\xED\xC9\xD2"), "Мир");
    EXPECT_EQ(converted("ISO-8859-15", "\xA4\xE6"), "€æ");
    EXPECT_EQ(converted("CP437", "\x91\x9C\xC4"), "æ£─");
    EXPECT_EQ(converted("CP865", "\x9B\x9D"), "øØ");
    EXPECT_EQ(converted("windows-1253", "\xE1"), "α");
}

TEST(CodePages, ignoresCaseInNames)
{
    EXPECT_EQ(converted("wInDoWs-1251", "\xCC"), "М");
}

TEST(CodePages, agreesOnWindows1252)
{
    EXPECT_EQ(singleByteCodePage(QStringLiteral("Windows-1252")).value().toText(allBytes()),
              CodePage::windows1252().toText(allBytes()));
}

TEST(CodePages, makesOneCharacterOfEachByte)
{
    for (const char* page : {"Windows-1250", "Windows-1251", "Windows-1255", "Windows-1258", "ISO-8859-1",
                             "ISO-8859-8", "CP850", "CP874", "KOI8-U", "MACINTOSH", "ASCII"}) {
        const std::optional<CodePage> found = singleByteCodePage(QString::fromUtf8(page));
        ASSERT_TRUE(found) << page;
        EXPECT_EQ(found->toText(allBytes()).size(), 256) << page;
        EXPECT_EQ(found->toText("Aa0").toStdString(), "Aa0") << page;
    }
}

TEST(CodePages, keepsBytesThatAPageLeavesUndefined)
{
    EXPECT_EQ(converted("Windows-1252", "\x81"), "\xC2\x81");
    EXPECT_EQ(converted("Windows-1253", "\xAA\xD2"), "\xC2\xAA\xC3\x92");
    EXPECT_EQ(converted("ASCII", "\xE6"), "æ");
}

TEST(CodePages, knowsNoPageOfSeveralBytesACharacter)
{
    for (const char* page :
         {"UTF-8", "UTF-16", "UTF-16LE", "UTF-32", "UTF-7", "UCS-2", "Shift_JIS", "CP932", "EUC-JP", "EUC-KR",
          "GBK", "GB18030", "BIG5", "ISO-2022-JP", "ISO-2022-KR", "HZ", "WCHAR_T", "IBM930"})
        EXPECT_FALSE(singleByteCodePage(QString::fromUtf8(page))) << page;
}

TEST(CodePages, knowsNoPageByANameThatIsNone)
{
    EXPECT_FALSE(singleByteCodePage(QStringLiteral("Windows-125")));
    EXPECT_FALSE(singleByteCodePage(QStringLiteral("Windows-1251//IGNORE")));
    EXPECT_FALSE(singleByteCodePage(QStringLiteral("/")));
    EXPECT_FALSE(singleByteCodePage(QStringLiteral("Windows-1251") + QChar(0) + u'x'));
    EXPECT_FALSE(singleByteCodePage(QString(100000, u'x')));
}

// To iconv no name is the encoding of the locale.
TEST(CodePages, doesNotTakeNoNameForTheLocales)
{
    const QByteArray before = std::setlocale(LC_ALL, nullptr);
    std::setlocale(LC_ALL, "C");
    EXPECT_FALSE(singleByteCodePage(QString()));
    std::setlocale(LC_ALL, before.constData());
}
