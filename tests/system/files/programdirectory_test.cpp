#include "system/files/programdirectory.h"

#include "tests/support/rights.h"
#include "tests/support/temporary.h"

#include <gtest/gtest.h>

#include <filesystem>

#include <sys/stat.h>

namespace {

struct ProgramDirectoryTest : testing::Test {
    Temporary directory;

    ProgramDirectoryTest()
    {
        chmod(directory.path().constData(), 0755);
        for (const char* name :
             {"Songbin", "Songbin.dat", "TIPOFDAY.TXT", "other program", "Songbin.mdb-journal"})
            directory.write(QByteArray("installed/") + name, "installed");
        directory.makeDirectory("user");
        chmod(directory.at("user").constData(), 0777);
    }
    QByteArray choose() const
    {
        const Unprivileged user;
        return programDirectory(directory.at("installed"), directory.at("user/data"));
    }
};

} // namespace

TEST_F(ProgramDirectoryTest, aWritableDirectoryIsUsedAsItIs)
{
    EXPECT_EQ(programDirectory(directory.at("installed"), directory.at("user/data")),
              directory.at("installed"));
    EXPECT_FALSE(directory.exists("user/data"));
}

TEST_F(ProgramDirectoryTest, otherwiseTheUsersDirectoryIsFilledWithWhatBelongsBesideTheProgram)
{
    EXPECT_EQ(choose(), directory.at("user/data"));
    EXPECT_EQ(directory.read("user/data/Songbin.dat"), "installed");
    EXPECT_EQ(directory.read("user/data/TIPOFDAY.TXT"), "installed");
    for (const char* name : {"Songbin", "other program", "Songbin.mdb-journal", "Songbin.mdb"})
        EXPECT_FALSE(directory.exists(QByteArray("user/data/") + name)) << name;
}

TEST_F(ProgramDirectoryTest, skinsComeWithTheirBitmapsAndPictures)
{
    for (const char* name : {"a.skin", "a-face.png", "a-parts.png", "b.skin", "b/main.bmp", "other-face.png",
                             "other/main.bmp", "a.skin.txt"})
        directory.write(QByteArray("installed/") + name, "installed");
    choose();
    for (const char* name : {"a.skin", "a-face.png", "a-parts.png", "b.skin", "b/main.bmp"})
        EXPECT_EQ(directory.read(QByteArray("user/data/") + name), "installed") << name;
    for (const char* name : {"other-face.png", "other", "a.skin.txt", "a"})
        EXPECT_FALSE(directory.exists(QByteArray("user/data/") + name)) << name;
}

TEST_F(ProgramDirectoryTest, aSkinThatTheUserHasMendedStays)
{
    choose();
    directory.write("installed/b.skin", "installed");
    directory.write("installed/b/main.bmp", "installed");
    directory.write("user/data/b/main.bmp", "mine");
    directory.write("user/data/b.skin", "mine");
    chmod(directory.at("user/data/b").constData(), 0777);
    choose();
    EXPECT_EQ(directory.read("user/data/b.skin"), "mine");
    EXPECT_EQ(directory.read("user/data/b/main.bmp"), "mine");
}

TEST_F(ProgramDirectoryTest, theUsersOwnFilesStay)
{
    choose();
    directory.write("user/data/TIPOFDAY.TXT", "mine");
    directory.write("installed/Songbin.mdb", "installed");
    directory.write("user/data/Songbin.mdb", "my archive");
    choose();
    EXPECT_EQ(directory.read("user/data/TIPOFDAY.TXT"), "mine");
    EXPECT_EQ(directory.read("user/data/Songbin.mdb"), "my archive");
}

TEST_F(ProgramDirectoryTest, copiesOfReadOnlyFilesCanBeWritten)
{
    chmod(directory.at("installed/Songbin.dat").constData(), 0444);
    choose();
    struct stat status {};
    ASSERT_EQ(stat(directory.at("user/data/Songbin.dat").constData(), &status), 0);
    EXPECT_TRUE(status.st_mode & S_IWUSR);
}

TEST_F(ProgramDirectoryTest, aHalfCopyIsMadeAnew)
{
    directory.makeDirectory("user/data");
    chmod(directory.at("user/data").constData(), 0777);
    directory.write("user/data/Songbin.dat.part", "inst");
    chmod(directory.at("user/data/Songbin.dat.part").constData(), 0666);
    choose();
    EXPECT_EQ(directory.read("user/data/Songbin.dat"), "installed");
    EXPECT_FALSE(directory.exists("user/data/Songbin.dat.part"));
}

TEST_F(ProgramDirectoryTest, aDirectoryThatDoesNotExistIsNamedAsItIs)
{
    EXPECT_EQ(programDirectory(directory.at("none"), directory.at("user/data")), directory.at("none"));
    EXPECT_FALSE(directory.exists("user/data"));
}

TEST(InstalledDirectory, isTheExecutablesOwnOrTheNamedOneByteByByte)
{
    EXPECT_EQ(installedDirectory("/opt/M\xFCsik/Songbin", {}), "/opt/M\xFCsik");
    EXPECT_EQ(installedDirectory("/opt/Songbin", "/srv/./bl\xE5//"), "/srv/bl\xE5");
    const QByteArray here = QByteArray::fromStdString(std::filesystem::current_path().native());
    EXPECT_EQ(installedDirectory("/opt/Songbin", "\xE5"), here + "/\xE5");
}

TEST(ExecutableFile, isTheRunningOne)
{
    const QByteArray file = executableFile();
    EXPECT_TRUE(file.startsWith('/') && file.endsWith("/system_tests")) << file.constData();
}

TEST_F(ProgramDirectoryTest, aLinkToWhatIsOutAtTheMomentStays)
{
    directory.makeDirectory("user/data");
    chmod(directory.at("user/data").constData(), 0777);
    ASSERT_EQ(symlink("/media/away/tips", directory.at("user/data/TIPOFDAY.TXT").constData()), 0);
    choose();
    struct stat state {};
    ASSERT_EQ(lstat(directory.at("user/data/TIPOFDAY.TXT").constData(), &state), 0);
    EXPECT_TRUE(S_ISLNK(state.st_mode));
    EXPECT_EQ(directory.read("user/data/Songbin.dat"), "installed");
}
