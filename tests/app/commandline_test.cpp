#include "app/commandline.h"

#include <gtest/gtest.h>

namespace {

using Wish = CommandLine::Wish;

Wish wish(const std::vector<QByteArray>& words)
{
    return CommandLine::parse(words).wish;
}

QByteArray file(const std::vector<QByteArray>& words)
{
    const CommandLine line = CommandLine::parse(words);
    return line.wish == Wish::Start ? line.file : "no start: " + line.reason;
}

} // namespace

TEST(CommandLine, noWordsStartTheProgram)
{
    EXPECT_EQ(wish({}), Wish::Start);
    EXPECT_EQ(file({}), "");
    EXPECT_EQ(file({""}), "");
    EXPECT_EQ(file({"--"}), "");
}

TEST(CommandLine, aFileIsPlayed)
{
    EXPECT_EQ(file({"a b\xff.mp3"}), "a b\xff.mp3");
    EXPECT_EQ(file({"--", "-a.mp3"}), "-a.mp3");
    EXPECT_EQ(file({"--", "--help"}), "--help");
    EXPECT_EQ(file({"--", "--"}), "--");
    EXPECT_EQ(file({"a.mp3", "--"}), "a.mp3");
}

TEST(CommandLine, thereIsOneFile)
{
    const CommandLine line = CommandLine::parse({"a", "b"});
    EXPECT_EQ(line.wish, Wish::Wrong);
    EXPECT_TRUE(line.reason.contains("one FILE")) << line.reason.constData();
    EXPECT_EQ(wish({"a", "--", "b"}), Wish::Wrong);
    EXPECT_EQ(wish({"--check-skin", "a", "b"}), Wish::Wrong);
    EXPECT_EQ(wish({"b", "--check-skin", "a"}), Wish::Wrong);
}

TEST(CommandLine, anUnknownOptionIsTold)
{
    for (const char* option : {"-x", "-", "--helpp", "-style", "--check-skin=a", "-session"}) {
        const CommandLine line = CommandLine::parse({option});
        EXPECT_EQ(line.wish, Wish::Wrong) << option;
        EXPECT_TRUE(line.reason.endsWith(option)) << line.reason.constData();
    }
    EXPECT_EQ(wish({"a.mp3", "-x"}), Wish::Wrong);
}

TEST(CommandLine, helpAndVersionAreAnsweredWhateverStandsBeside)
{
    EXPECT_EQ(wish({"--help"}), Wish::Help);
    EXPECT_EQ(wish({"--version"}), Wish::Version);
    EXPECT_EQ(wish({"a", "-x", "--version", "--help"}), Wish::Version);
}

TEST(CommandLine, aSkinIsChecked)
{
    const CommandLine line = CommandLine::parse({"--check-skin", "-a.skin"});
    EXPECT_EQ(line.wish, Wish::CheckSkin);
    EXPECT_EQ(line.file, "-a.skin");
    EXPECT_EQ(wish({"--check-skin"}), Wish::Wrong);
    EXPECT_EQ(file({"--", "--check-skin"}), "--check-skin");
}

TEST(CommandLine, theDesktopMayNameItsSession)
{
    const CommandLine line = CommandLine::parse({"-session", "10af_1_2", "a.mp3"});
    EXPECT_EQ(line.wish, Wish::Start);
    EXPECT_EQ(line.session, "10af_1_2");
    EXPECT_EQ(line.file, "a.mp3");
}
