#include "platform/siblings.h"

#include "tests/support/temporary.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

namespace {

QByteArray contentOf(Siblings& siblings, const QByteArray& path)
{
    const Descriptor file(siblings.open(path));
    char text[16] = {};
    return file && ::read(file.get(), text, sizeof text - 1) >= 0 ? QByteArray(text) : QByteArray("(none)");
}

} // namespace

TEST(Siblings, opensTheFilesOfOneDirectoryAndOfOthersInTurn)
{
    Temporary directory;
    for (const char* name : {"a/1", "a/2", "a/3", "b/1", "b/2"})
        directory.write(name, name);
    Siblings siblings;
    for (const char* name : {"a/1", "a/2", "a/3", "b/1", "a/2", "b/2", "b/1", "b/2", "a/1"})
        EXPECT_EQ(contentOf(siblings, directory.at(name)), name);
}

TEST(Siblings, aMissingFileIsMissing)
{
    Temporary directory;
    directory.write("a/1", "one");
    Siblings siblings;
    EXPECT_EQ(contentOf(siblings, directory.at("a/1")), "one");
    EXPECT_EQ(contentOf(siblings, directory.at("a/1")), "one");
    EXPECT_EQ(siblings.open(directory.at("a/2")), -1);
    EXPECT_EQ(errno, ENOENT);
}

TEST(Siblings, anotherDirectoryOfTheSameNameIsSeenSoon)
{
    Temporary directory;
    directory.write("a/1", "old");
    directory.write("b/1", "new");
    Siblings siblings;
    contentOf(siblings, directory.at("a/1"));
    contentOf(siblings, directory.at("a/1"));
    std::filesystem::rename(directory.at("a").toStdString(), directory.at("gone").toStdString());
    std::filesystem::rename(directory.at("b").toStdString(), directory.at("a").toStdString());
    QByteArray seen;
    for (int i = 0; i < 300 && seen != "new"; ++i) {
        seen = contentOf(siblings, directory.at("a/1"));
        usleep(10'000);
    }
    EXPECT_EQ(seen, "new");
}
