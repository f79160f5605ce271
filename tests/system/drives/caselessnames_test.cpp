#include "system/drives/caselessnames.h"

#include "tests/support/temporary.h"

#include <gtest/gtest.h>

#include <ctime>
#include <fcntl.h>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

class CaselessNamesTest : public testing::Test {
protected:
    // As if all that was done to the directory had been done at that time.
    void setModified(std::time_t when) const
    {
        const timespec times[2] = {{when, 0}, {when, 0}};
        ASSERT_EQ(utimensat(AT_FDCWD, m_tree.path().constData(), times, 0), 0);
    }
    QByteArray find(const QByteArray& name) { return m_names.find(m_tree.path(), name); }

    Temporary m_tree;
    CaselessNames m_names;
};

constexpr std::time_t kLongAgo = 1'000'000'000;

} // namespace

TEST(FoldedName, keepsTheLengthAndMakesCasesEqual)
{
    EXPECT_EQ(foldedName(u"ÆØÅ Straße İ 𐐀.MP3").size(), QStringLiteral("ÆØÅ Straße İ 𐐀.MP3").size());
    EXPECT_EQ(foldedName(u"ÆØÅ.MP3 [_@`{"), foldedName(u"æøå.mp3 [_@`{"));
    EXPECT_NE(foldedName(u"@[`{"), foldedName(u"`{@["));
    EXPECT_EQ(foldedName(u""), QString());
}

TEST_F(CaselessNamesTest, findsAnEntryInAnotherCase)
{
    m_tree.write("Sj\xC3\270en.MP3");
    m_tree.write("Sj\370en.MP3");
    EXPECT_EQ(find("SJ\xC3\230EN.mp3"), "Sj\xC3\270en.MP3");
    EXPECT_EQ(find("SJ\370EN.mp3"), "Sj\370en.MP3");
    EXPECT_EQ(find("sj"), "");
    EXPECT_EQ(m_names.find(m_tree.at("nothing"), "a"), "");
    EXPECT_EQ(m_names.find(m_tree.at("Sj\370en.MP3"), "a"), "");
}

TEST_F(CaselessNamesTest, findsTheOtherFormOfAccentedLettersWhenNoneDiffersInCaseAlone)
{
    const QByteArray composed = "Beyonc\xC3\xA9.mp3";
    const QByteArray decomposed = "Beyonce\xCC\x81.mp3";
    m_tree.write(decomposed);
    EXPECT_EQ(find(composed), decomposed);
    EXPECT_EQ(find("BEYONC\xC3\x89.MP3"), decomposed);
    EXPECT_EQ(find("Beyonce.mp3"), "");
    m_tree.write(composed.toUpper());
    EXPECT_EQ(find(composed), composed.toUpper()) << "case alone goes first";
    EXPECT_EQ(find(decomposed.toUpper()), decomposed);
}

TEST_F(CaselessNamesTest, findsTheComposedFormToo)
{
    m_tree.write("\xC3\x85sa.mp3");
    EXPECT_EQ(find("A\xCC\x8Asa.mp3"), "\xC3\x85sa.mp3");
    EXPECT_EQ(find("a\xCC\x8ASA.mp3"), "\xC3\x85sa.mp3");
}

TEST_F(CaselessNamesTest, ofSeveralTheFirstInTheOrderOfBytesIsTaken)
{
    for (unsigned cases = 0; cases < 32; ++cases) {
        QByteArray name = "abcde";
        for (int i = 0; i < 5; ++i)
            if (cases & (1U << i))
                name[i] = static_cast<char>(name[i] - 32);
        m_tree.write(name);
    }
    EXPECT_EQ(find("aBcDe"), "ABCDE");
    fs::remove(m_tree.at("ABCDE").toStdString());
    EXPECT_EQ(find("aBcDe"), "ABCDe");
}

TEST_F(CaselessNamesTest, anEntryThatIsGoneIsNotToldThoughTheTimeOfModificationStandsStill)
{
    m_tree.write("one");
    setModified(kLongAgo);
    EXPECT_EQ(find("ONE"), "one");
    fs::rename(m_tree.at("one").toStdString(), m_tree.at("One").toStdString());
    setModified(kLongAgo);
    EXPECT_EQ(find("ONE"), "One");
    fs::remove(m_tree.at("One").toStdString());
    setModified(kLongAgo);
    EXPECT_EQ(find("ONE"), "");
}

TEST_F(CaselessNamesTest, aDirectoryThatChangedJustNowIsReadAgainOnAMiss)
{
    const std::time_t now = std::time(nullptr);
    setModified(now);
    EXPECT_EQ(find("ONE"), "");
    m_tree.write("one");
    setModified(now); // within the same step of the clock
    EXPECT_EQ(find("ONE"), "one");
}

TEST_F(CaselessNamesTest, aDirectoryInTheSamePlaceIsAnother)
{
    m_tree.write("d/one");
    EXPECT_EQ(m_names.find(m_tree.at("d"), "ONE"), "one");
    fs::rename(m_tree.at("d").toStdString(), m_tree.at("e").toStdString());
    m_tree.write("d/two");
    EXPECT_EQ(m_names.find(m_tree.at("d"), "TWO"), "two");
    EXPECT_EQ(m_names.find(m_tree.at("d"), "ONE"), "");
}
