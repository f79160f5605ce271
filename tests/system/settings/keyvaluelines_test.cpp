#include "system/settings/keyvaluelines.h"

#include <gtest/gtest.h>

#include <random>

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

std::string valueIn(const QByteArray& content, const char* section, const char* key)
{
    return KeyValueLines(content).value(text(section), text(key)).value_or(text("(none)")).toStdString();
}

std::string with(const QByteArray& content, const char* section, const char* key, const char* value)
{
    return KeyValueLines(content).with(text(section), text(key), text(value)).toStdString();
}

void expectSurvives(const QString& section, const QString& key, const QString& value)
{
    const QByteArray content = KeyValueLines("[other]\nx=1\n").with(section, key, value);
    const std::optional<QString> back = KeyValueLines(content).value(section, key);
    ASSERT_TRUE(back) << content.toStdString();
    EXPECT_EQ(*back, value) << content.toStdString();
    EXPECT_EQ(KeyValueLines(content).keys(section), QStringList(key));
    EXPECT_EQ(valueIn(content, "other", "x"), "1");
}

QString randomText(std::mt19937& random)
{
    static const QString kNasty = QStringLiteral("%=[]#;\\ \t\r\nuU0aA") + QChar(0) + QChar(0xFEFF) +
                                  QChar(0xD83D) + QChar(0xDE00) + QChar(0xFFFE) + QChar(0xE6);
    QString out;
    const auto length = random() % 8 + 1;
    while (out.size() < qsizetype(length))
        out += random() % 3 == 0 ? QChar(static_cast<char16_t>(random()))
                                 : kNasty[qsizetype(random()) % kNasty.size()];
    return out;
}

} // namespace

TEST(KeyValueLines, readsSectionsAndKeysWithoutCase)
{
    const QByteArray content = "[One]\nKey=1\n[TWO]\nkey = 2 \n[\xC3\x86ra]\n\xC3\x98l=3\n";
    EXPECT_EQ(valueIn(content, "one", "KEY"), "1");
    EXPECT_EQ(valueIn(content, "Two", "Key"), "2");
    EXPECT_EQ(valueIn(content, "\xC3\xA6RA", "\xC3\xB8L"), "3");
    EXPECT_EQ(valueIn(content, "One", "other"), "(none)");
    EXPECT_EQ(valueIn(content, "Three", "key"), "(none)");
}

TEST(KeyValueLines, readsKeysAboveTheFirstHeadingAsThoseOfNoName)
{
    EXPECT_EQ(valueIn("a=1\n[b]\na=2\n", "", "a"), "1");
    EXPECT_EQ(with("[b]\na=2\n", "", "a", "1"), "a=1\n[b]\na=2\n");
}

TEST(KeyValueLines, readsFilesWithAByteOrderMarkAndCarriageReturns)
{
    const QByteArray content = "\xEF\xBB\xBF[One]\r\nKey=1\r\n";
    EXPECT_EQ(valueIn(content, "One", "Key"), "1");
    EXPECT_EQ(with(content, "One", "Key", "22"), "\xEF\xBB\xBF[One]\r\nKey=22\r\n");
    EXPECT_EQ(with(content, "One", "More", "x"), "\xEF\xBB\xBF[One]\r\nKey=1\r\nMore=x\r\n");
}

TEST(KeyValueLines, changesOnlyTheValueOfAKeyThatIsThere)
{
    EXPECT_EQ(with("# head\n[a]\nKey = old\n; tail\n", "A", "KEY", "new"),
              "# head\n[a]\nKey = new\n; tail\n");
}

TEST(KeyValueLines, addsANewKeyBehindTheLastOfItsSection)
{
    EXPECT_EQ(with("[a]\nx=1\n\n# of b\n[b]\ny=2\n", "a", "z", "3"), "[a]\nx=1\nz=3\n\n# of b\n[b]\ny=2\n");
    EXPECT_EQ(with("[a]\n[b]\n", "a", "z", "3"), "[a]\nz=3\n[b]\n");
}

TEST(KeyValueLines, addsANewSectionAtTheEnd)
{
    EXPECT_EQ(with("", "a", "x", "1"), "[a]\nx=1\n");
    EXPECT_EQ(with("[a]\nx=1\n", "b", "y", "2"), "[a]\nx=1\n\n[b]\ny=2\n");
}

TEST(KeyValueLines, closesALastLineThatIsOpen)
{
    EXPECT_EQ(with("[a]\nx=1", "a", "y", "2"), "[a]\nx=1\ny=2\n");
    EXPECT_EQ(with("[a]", "a", "y", "2"), "[a]\ny=2\n");
    EXPECT_EQ(with("[a]\nx=1", "b", "y", "2"), "[a]\nx=1\n\n[b]\ny=2\n");
}

TEST(KeyValueLines, takesTheLastOfTwoLikeKeys)
{
    const QByteArray content = "[a]\nx=1\n[b]\ny=0\n[A]\nX=2\n";
    EXPECT_EQ(valueIn(content, "a", "x"), "2");
    EXPECT_EQ(with(content, "a", "x", "3"), "[a]\nx=1\n[b]\ny=0\n[A]\nX=3\n");
    EXPECT_EQ(KeyValueLines(content).keys(text("a")), QStringList(text("x")));
    EXPECT_EQ(KeyValueLines(content).without(text("a"), text("x")).toStdString(), "[a]\n[b]\ny=0\n[A]\n");
}

TEST(KeyValueLines, readsNothingBelowADamagedHeading)
{
    EXPECT_EQ(valueIn("[a]\nx=1\n[b\nx=2\n", "a", "x"), "1");
    EXPECT_EQ(valueIn("[a]\nx=1\n[\xFF]\nx=2\n", "a", "x"), "1");
    EXPECT_EQ(with("[\xFF]\nx=2\n", "a", "x", "1"), "[\xFF]\nx=2\n\n[a]\nx=1\n");
}

TEST(KeyValueLines, leavesALineThatIsNoUtf8AndWritesItsKeyAnew)
{
    const QByteArray content = "[a]\nx=\xE6\n";
    EXPECT_EQ(valueIn(content, "a", "x"), "(none)");
    const QByteArray changed = KeyValueLines(content).with(text("a"), text("x"), text("1"));
    EXPECT_TRUE(changed.contains("x=\xE6\n"));
    EXPECT_EQ(valueIn(changed, "a", "x"), "1");
}

TEST(KeyValueLines, writesPathsAsTheyAre)
{
    EXPECT_EQ(with("", "HKEY_LOCAL_MACHINE\\SOFTWARE\\Songbin", "InitDrive", "D:\\new\\*.MP3"),
              "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Songbin]\nInitDrive=D:\\new\\*.MP3\n");
}

TEST(KeyValueLines, readsAPercentSignThatBeginsNoNumberAsItself)
{
    EXPECT_EQ(valueIn("[a]\nx=100% sure, %4, %uD, %zz, %u12x4, %\n", "a", "x"),
              "100% sure, %4, %uD, %zz, %u12x4, %");
    EXPECT_EQ(valueIn("[a]\nx=%41%u00e6%20\n", "a", "x"), "A\xC3\xA6 ");
}

TEST(KeyValueLines, keepsEveryText)
{
    expectSurvives(text("a/b"), text("k"), text("a\nb\r\nc=d \\ \\n \t"));
    expectSurvives(text("[a]"), text("=k="), text("  both ends  "));
    expectSurvives(text("a\nb"), text("#k"), QString(3, QChar(0)) + text("x") + QChar(0));
    expectSurvives(text(" "), text(""), text(""));
    expectSurvives(text("%41"), text(";k"), text("%41 %u0041 %"));
    std::mt19937 random(7);
    for (int i = 0; i < 20000 && !testing::Test::HasFatalFailure(); ++i)
        expectSurvives(text("s") + randomText(random), randomText(random), randomText(random));
}

TEST(KeyValueLines, keepsEveryByteThatItDoesNotChange)
{
    std::mt19937 random(11);
    for (int i = 0; i < 3000; ++i) {
        static constexpr QByteArrayView kBytes("[]=#;%a\n\n\r \xC3\xA6\xFF\0", 16);
        QByteArray content;
        const auto length = qsizetype(random() % 60);
        while (content.size() < length)
            content += kBytes[qsizetype(random()) % kBytes.size()];
        const QByteArray changed = KeyValueLines(content).with(text("new"), text("key"), text("value"));
        ASSERT_EQ(valueIn(changed, "new", "key"), "value");
        ASSERT_TRUE(changed.startsWith(content));
        const QByteArray back = KeyValueLines(changed).without(text("new"), text("key"));
        ASSERT_TRUE(back.startsWith(content));
    }
}
