#include "tests/support/filestest.h"

#include <filesystem>

#include <sys/mount.h>

namespace fs = std::filesystem;

using FilesCopy = SystemFilesTest;
using FilesRead = SystemFilesTest;

TEST_F(FilesCopy, copiesBytesAndReplacesTheTarget)
{
    const QByteArray content = QByteArray("a\0\r\n\xFF", 5).repeated(200'000);
    m_tree.write("d/From.dat", content);
    m_tree.write("d/to.dat", "old and longer" + content);
    chmod(at("d/to.dat").constData(), 0600);
    m_files.copy(QStringLiteral("D:\\from.DAT"), QStringLiteral("D:\\TO.dat"));
    EXPECT_EQ(m_tree.read("d/to.dat"), content);
    m_files.copy(QStringLiteral("D:\\from.DAT"), QStringLiteral("D:\\New.dat"));
    EXPECT_EQ(m_tree.read("d/New.dat"), content);
    EXPECT_EQ(filesIn("d"), 3U);
    struct stat status {};
    stat(at("d/to.dat").constData(), &status);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(FilesCopy, goesThroughALinkAndOntoItself)
{
    m_tree.write("d/from", "new");
    m_tree.write("real/to", "old");
    fs::create_symlink(at("real/to").toStdString(), at("d/to").toStdString());
    m_files.copy(QStringLiteral("D:\\from"), QStringLiteral("D:\\to"));
    EXPECT_TRUE(fs::is_symlink(at("d/to").toStdString()));
    EXPECT_EQ(m_tree.read("real/to"), "new");
    m_files.copy(QStringLiteral("D:\\from"), QStringLiteral("D:\\from"));
    EXPECT_EQ(m_tree.read("d/from"), "new");
}

TEST_F(FilesCopy, whatComesShortDoesNotTakeTheTargetsPlace)
{
    const char* const shorter = "/sys/kernel/mm/transparent_hugepage/enabled"; // than the size it tells
    struct stat state {};
    if (stat(shorter, &state) != 0)
        GTEST_SKIP() << "no such file here";
    m_tree.write("d/to", "old");
    fs::create_symlink(shorter, at("d/from").toStdString());
    EXPECT_EQ(copyError(u"D:\\from", u"D:\\to"), numberOf(ErrorNumber::DeviceIoError));
    EXPECT_EQ(m_tree.read("d/to"), "old");
    EXPECT_EQ(filesIn("d"), 2U) << "no temporary stays";
}

TEST_F(FilesCopy, errorsTellWhatIsWrong)
{
    m_tree.write("d/from", "new");
    m_tree.write("d/to", "old");
    m_tree.makeDirectory("d/dir");
    mkfifo(at("d/pipe").constData(), 0666);
    EXPECT_EQ(copyError(u"D:\\nothing", u"D:\\to"), numberOf(ErrorNumber::FileNotFound));
    EXPECT_EQ(copyError(u"D:\\nothing\\x", u"D:\\to"), numberOf(ErrorNumber::PathNotFound));
    EXPECT_EQ(copyError(u"D:\\from", u"D:\\nothing\\to"), numberOf(ErrorNumber::PathNotFound));
    EXPECT_EQ(copyError(u"D:\\from", u"D:\\to\\below"), numberOf(ErrorNumber::PathNotFound));
    EXPECT_EQ(copyError(u"Q:\\from", u"D:\\to"), numberOf(ErrorNumber::PathNotFound));
    EXPECT_EQ(copyError(u"D:\\from", u"Q:\\to"), numberOf(ErrorNumber::PathNotFound));
    EXPECT_EQ(copyError(u"D:\\dir", u"D:\\to"), numberOf(ErrorNumber::PathFileAccess));
    EXPECT_EQ(copyError(u"D:\\from", u"D:\\dir"), numberOf(ErrorNumber::PathFileAccess));
    EXPECT_EQ(copyError(u"D:\\pipe", u"D:\\to"), numberOf(ErrorNumber::PathFileAccess));
    EXPECT_EQ(copyError(u"D:\\from", u"D:\\pipe"), numberOf(ErrorNumber::PathFileAccess));
    EXPECT_EQ(m_tree.read("d/to"), "old");
    EXPECT_EQ(filesIn("d"), 4U);
}

TEST_F(FilesCopy, whatIsNotAllowedIsError70AndChangesNothing)
{
    m_tree.write("d/from", "new");
    m_tree.write("d/secret", "new");
    m_tree.write("d/open/to", "old");
    chmod(at("d/secret").constData(), 0600);
    chmod(at("d/open").constData(), 0777);
    const Unprivileged ordinary;
    EXPECT_EQ(copyError(u"D:\\secret", u"D:\\open\\to"), numberOf(ErrorNumber::PermissionDenied));
    EXPECT_EQ(copyError(u"D:\\from", u"D:\\new"), numberOf(ErrorNumber::PermissionDenied));
    EXPECT_EQ(copyError(u"D:\\from", u"D:\\open\\to"),
              numberOf(ErrorNumber::PermissionDenied)); // another's file, though it could be replaced
    EXPECT_EQ(m_tree.read("d/open/to"), "old");
    EXPECT_EQ(filesIn("d/open"), 1U);
}

TEST_F(FilesCopy, aFullDiskIsError61AndLeavesNoTemporaryBehind)
{
    m_tree.makeDirectory("d/small");
    if (mount("none", at("d/small").constData(), "tmpfs", 0, "size=64k") != 0)
        GTEST_SKIP() << "mounting is not allowed here";
    m_tree.write("d/small/to", "old");
    m_tree.write("d/from", QByteArray(200'000, 'x'));
    EXPECT_EQ(copyError(u"D:\\from", u"D:\\small\\to"), numberOf(ErrorNumber::DiskFull));
    EXPECT_EQ(m_tree.read("d/small/to"), "old");
    EXPECT_EQ(filesIn("d/small"), 1U);
    umount2(at("d/small").constData(), MNT_DETACH);
}

TEST_F(FilesRead, givesTheWholeContent)
{
    const QByteArray content = QByteArray("a\0\r\n\xFF", 5).repeated(50'000);
    m_tree.write("d/a", content);
    m_tree.write("d/empty");
    EXPECT_EQ(m_files.read(QStringLiteral("D:\\A")), content);
    EXPECT_EQ(m_files.read(QStringLiteral("D:\\empty")), QByteArray());
    EXPECT_GT(m_files.read(QStringLiteral("Z:\\proc\\self\\status")).size(),
              100); // whose length is told as 0
}

TEST_F(FilesRead, errorsTellWhatIsWrong)
{
    m_tree.makeDirectory("d/dir");
    m_tree.write("d/secret");
    mkfifo(at("d/pipe").constData(), 0666);
    makeSocket("d/socket");
    chmod(at("d/secret").constData(), 0600);
    EXPECT_EQ(readError(u"D:\\nothing"), numberOf(ErrorNumber::FileNotFound));
    EXPECT_EQ(readError(u"D:\\dir"), numberOf(ErrorNumber::PathFileAccess));
    EXPECT_EQ(readError(u"D:\\pipe"), numberOf(ErrorNumber::PathFileAccess));
    EXPECT_EQ(readError(u"D:\\socket"), numberOf(ErrorNumber::PathFileAccess));
    EXPECT_EQ(readError(u"Z:\\dev\\zero"), numberOf(ErrorNumber::PathFileAccess));
    const Unprivileged ordinary;
    EXPECT_EQ(readError(u"D:\\secret"), numberOf(ErrorNumber::PermissionDenied));
}

TEST_F(FilesRead, aFileOverTheLimitIsAnErrorAndNotCut)
{
    m_tree.write("d/a", QByteArray(100'000, 'x'));
    const QString path = QStringLiteral("D:\\a");
    EXPECT_EQ(m_files.read(path, 100'000).size(), 100'000);
    EXPECT_EQ(errorOf([&] { m_files.read(path, 99'999); }), numberOf(ErrorNumber::OutOfStringSpace));
    EXPECT_EQ(errorOf([&] { m_files.read(path, 0); }), numberOf(ErrorNumber::OutOfStringSpace));
    m_tree.write("d/empty");
    EXPECT_EQ(m_files.read(QStringLiteral("D:\\empty"), 0), QByteArray());
    const QString untold = QStringLiteral("Z:\\proc\\self\\status"); // whose length is told as 0
    EXPECT_EQ(errorOf([&] { m_files.read(untold, 100); }), numberOf(ErrorNumber::OutOfStringSpace));
    fs::resize_file(at("d/a").toStdString(), 1'000'000'000'000); // nothing of it is read
    EXPECT_EQ(errorOf([&] { m_files.read(path, 16 << 20); }), numberOf(ErrorNumber::OutOfStringSpace));
}

TEST_F(FilesRead, aFileThatGivesLessThanItsSizeIsAnError)
{
    const char* const shorter = "/sys/kernel/mm/transparent_hugepage/enabled";
    struct stat state {};
    if (stat(shorter, &state) != 0)
        GTEST_SKIP() << "no such file here";
    fs::create_symlink(shorter, at("d/short").toStdString());
    EXPECT_EQ(readError(u"D:\\short"), numberOf(ErrorNumber::DeviceIoError));
}

TEST_F(FilesRead, onlyRegularFilesExist)
{
    m_tree.write("d/a.mp3");
    m_tree.makeDirectory("d/dir");
    mkfifo(at("d/pipe").constData(), 0666);
    EXPECT_TRUE(m_files.exists(QStringLiteral("D:\\A.MP3")));
    EXPECT_FALSE(m_files.exists(QStringLiteral("D:\\dir")));
    EXPECT_FALSE(m_files.exists(QStringLiteral("D:\\pipe")));
    EXPECT_FALSE(m_files.exists(QStringLiteral("D:\\nothing")));
    EXPECT_FALSE(m_files.exists(QStringLiteral("Q:\\a.mp3")));
}
