#include "base/filenametext.h"
#include "tests/system/files/filenumberstest.h"

#include <fcntl.h>
#include <filesystem>

#include <sys/stat.h>

namespace fs = std::filesystem;

using FileNumber = FileNumbersTest;
using BinaryFile = FileNumbersTest;

TEST_F(FileNumber, theLowestFreeOneIsGiven)
{
    m_tree.write("d/a");
    EXPECT_EQ(m_numbers.freeFile(), 1);
    m_numbers.openBinary(1, kA);
    m_numbers.openInput(3, kA);
    EXPECT_EQ(m_numbers.freeFile(), 2);
    m_numbers.openBinary(2, kA);
    EXPECT_EQ(m_numbers.freeFile(), 4);
    m_numbers.close(1);
    EXPECT_EQ(m_numbers.freeFile(), 1);
    m_numbers.closeAll();
    EXPECT_EQ(m_numbers.freeFile(), 1);
}

TEST_F(FileNumber, after511AllAreInUse)
{
    m_tree.write("d/a");
    for (int number = 1; number <= 511; ++number) {
        ASSERT_EQ(m_numbers.freeFile(), number);
        m_numbers.openBinary(number, kA);
    }
    EXPECT_EQ(errorOf([&] { m_numbers.freeFile(); }), numberOf(ErrorNumber::TooManyFiles));
    m_numbers.close(300);
    EXPECT_EQ(m_numbers.freeFile(), 300);
}

TEST_F(FileNumber, wrongNumbersAreErrors)
{
    m_tree.write("d/a");
    for (const int number : {0, -1, 512, 1 << 30})
        EXPECT_EQ(errorOf([&] { m_numbers.openBinary(number, kA); }), numberOf(ErrorNumber::BadFileNumber));
    for (const int number : {0, -1, 512, 5}) {
        EXPECT_EQ(errorOf([&] { m_numbers.length(number); }), numberOf(ErrorNumber::BadFileNumber));
        EXPECT_EQ(errorOf([&] { m_numbers.get(number, 1, 1); }), numberOf(ErrorNumber::BadFileNumber));
        EXPECT_EQ(errorOf([&] { m_numbers.print(number, u"x"); }), numberOf(ErrorNumber::BadFileNumber));
        EXPECT_EQ(errorOf([&] { m_numbers.lineInput(number); }), numberOf(ErrorNumber::BadFileNumber));
        EXPECT_EQ(errorOf([&] { m_numbers.endOfFile(number); }), numberOf(ErrorNumber::BadFileNumber));
        EXPECT_EQ(errorOf([&] { m_numbers.close(number); }), 0);
    }
    m_numbers.openBinary(5, kA);
    EXPECT_EQ(errorOf([&] { m_numbers.openBinary(5, kA); }), numberOf(ErrorNumber::FileAlreadyOpen));
    EXPECT_EQ(errorOf([&] { m_numbers.openOutput(5, QStringLiteral("D:\\new")); }),
              numberOf(ErrorNumber::FileAlreadyOpen));
    EXPECT_FALSE(m_tree.exists("d/new"));
}

TEST_F(FileNumber, aFailedOpenLeavesTheNumberFree)
{
    EXPECT_EQ(errorOf([&] { m_numbers.openBinary(1, kA); }), numberOf(ErrorNumber::FileNotFound));
    EXPECT_EQ(m_numbers.freeFile(), 1);
}

TEST_F(FileNumber, aFileOpenedForOneUseServesNoOther)
{
    m_tree.write("d/a", "x");
    m_numbers.openBinary(1, kA);
    m_numbers.openInput(2, kA);
    m_numbers.openOutput(3, QStringLiteral("D:\\b"));
    EXPECT_EQ(errorOf([&] { m_numbers.print(1, u"x"); }), numberOf(ErrorNumber::BadFileMode));
    EXPECT_EQ(errorOf([&] { m_numbers.get(2, 1, 1); }), numberOf(ErrorNumber::BadFileMode));
    EXPECT_EQ(errorOf([&] { m_numbers.lineInput(3); }), numberOf(ErrorNumber::BadFileMode));
}

TEST_F(FileNumber, tablesDoNotKnowEachOther)
{
    m_tree.write("d/a", "x");
    SystemFileNumbers other(m_drives);
    other.openBinary(1, kA);
    m_numbers.openBinary(1, kA);
    m_numbers.closeAll();
    EXPECT_EQ(other.length(1), 1);
}

TEST_F(BinaryFile, positionsCountFromOneAndReadsEndWithTheFile)
{
    m_tree.write("d/a", "0123456789");
    m_numbers.openBinary(1, kA);
    EXPECT_EQ(m_numbers.length(1), 10);
    EXPECT_EQ(m_numbers.get(1, 1, 3), "012");
    EXPECT_EQ(m_numbers.get(1, 10, 1), "9");
    EXPECT_EQ(m_numbers.get(1, 8, 100), "789");
    EXPECT_EQ(m_numbers.get(1, 8, 2'000'000'000), "789");
    EXPECT_LT(m_numbers.get(1, 8, 2'000'000'000).capacity(), 1'000'000); // no room for what is not there
    EXPECT_EQ(m_numbers.get(1, 11, 5), "");
    EXPECT_EQ(m_numbers.get(1, 1'000'000'000'000, 2'000'000'000), "");
    EXPECT_EQ(m_numbers.get(1, 1, 0), "");
    EXPECT_EQ(m_numbers.get(1, 1, -1), "");
    EXPECT_EQ(errorOf([&] { m_numbers.get(1, 0, 1); }), numberOf(ErrorNumber::BadRecordNumber));
}

TEST_F(BinaryFile, endOfFileFollowsTheLastRead)
{
    m_tree.write("d/a", "0123");
    m_numbers.openBinary(1, kA);
    EXPECT_FALSE(m_numbers.endOfFile(1));
    m_numbers.get(1, 1, 3);
    EXPECT_FALSE(m_numbers.endOfFile(1));
    m_numbers.get(1, 4, 3);
    EXPECT_TRUE(m_numbers.endOfFile(1));
}

TEST_F(BinaryFile, namesAreFoundInAnyCaseAndInAnyBytes)
{
    m_tree.write("d/Music/Sj\xF8\\n\"\n.mp3", "x");
    const QString name = filenametext::toText("Sj\xF8\\n\"\n.MP3");
    m_numbers.openBinary(1, QStringLiteral("d:\\music\\") + name);
    EXPECT_EQ(m_numbers.length(1), 1);
}

TEST_F(BinaryFile, errorsTellWhatIsWrong)
{
    m_tree.makeDirectory("d/dir");
    m_tree.write("d/a");
    m_tree.write("d/secret");
    chmod(at("d/secret").constData(), 0600);
    EXPECT_EQ(binaryError(QStringLiteral("D:\\nothing")), numberOf(ErrorNumber::FileNotFound));
    EXPECT_EQ(binaryError(QStringLiteral("D:\\nothing\\a")), numberOf(ErrorNumber::PathNotFound));
    EXPECT_EQ(binaryError(QStringLiteral("D:\\a\\below")), numberOf(ErrorNumber::PathNotFound));
    EXPECT_EQ(binaryError(QStringLiteral("Q:\\a")), numberOf(ErrorNumber::PathNotFound));
    EXPECT_EQ(binaryError(QString()), numberOf(ErrorNumber::PathNotFound));
    EXPECT_EQ(binaryError(QStringLiteral("D:\\dir")), numberOf(ErrorNumber::PathFileAccess));
    EXPECT_EQ(binaryError(QStringLiteral("D:\\") + QString(300, u'n')), numberOf(ErrorNumber::FileNotFound));
    EXPECT_EQ(binaryError(QStringLiteral("D:\\a") + QChar(u'\0')), numberOf(ErrorNumber::PathNotFound));
    const Unprivileged ordinary;
    EXPECT_EQ(binaryError(QStringLiteral("D:\\secret")), numberOf(ErrorNumber::PermissionDenied));
    EXPECT_EQ(binaryError(kA), 0); // another's: the access time cannot be kept, the file can be read
}

TEST_F(BinaryFile, whatIsNoRegularFileIsRefusedAtOnce)
{
    mkfifo(at("d/pipe").constData(), 0666);
    EXPECT_EQ(binaryError(QStringLiteral("D:\\pipe")), numberOf(ErrorNumber::PathFileAccess));
    EXPECT_EQ(binaryError(QStringLiteral("Z:\\dev\\zero")), numberOf(ErrorNumber::PathFileAccess));
    EXPECT_EQ(outputError(QStringLiteral("D:\\pipe")), numberOf(ErrorNumber::PathFileAccess));
    EXPECT_EQ(outputError(QStringLiteral("Z:\\dev\\null")), numberOf(ErrorNumber::PathFileAccess));
}

TEST_F(BinaryFile, theEndOfTenGigabytesIsReadAtOnce)
{
    m_tree.write("d/big", "x");
    fs::resize_file(at("d/big").toStdString(), 10'000'000'000);
    const Descriptor file(open(at("d/big").constData(), O_WRONLY));
    ASSERT_EQ(pwrite(file.get(), "TAG", 3, 9'999'999'997), 3);
    m_numbers.openBinary(1, QStringLiteral("D:\\big"));
    EXPECT_EQ(m_numbers.length(1), 10'000'000'000);
    EXPECT_EQ(m_numbers.get(1, 9'999'999'998, 10), "TAG");
    EXPECT_EQ(m_numbers.get(1, 9'999'999'745, 256).right(4), QByteArray("\0TAG", 4));
}

TEST_F(BinaryFile, readingKeepsTheTimeOfTheLastAccess)
{
    m_tree.write("d/a", "x");
    const timespec old[2] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
    utimensat(AT_FDCWD, at("d/a").constData(), old, 0);
    m_numbers.openBinary(1, kA);
    m_numbers.get(1, 1, 1);
    struct stat status {};
    stat(at("d/a").constData(), &status);
    EXPECT_EQ(status.st_atim.tv_sec, 1'000'000'000);
}

TEST_F(BinaryFile, aDirectoryThatIsReplacedIsSeen)
{
    m_tree.write("d/m/a", "old");
    m_numbers.openBinary(1, QStringLiteral("D:\\m\\a"));
    m_numbers.close(1);
    fs::rename(at("d/m").toStdString(), at("d/n").toStdString());
    EXPECT_EQ(binaryError(QStringLiteral("D:\\m\\a")), numberOf(ErrorNumber::PathNotFound));
    m_tree.write("d/m/a", "newer");
    m_numbers.openBinary(1, QStringLiteral("D:\\m\\a"));
    EXPECT_EQ(m_numbers.length(1), 5);
    m_numbers.close(1);
    fs::rename(at("d/m").toStdString(), at("d/M").toStdString());
    m_numbers.openBinary(1, QStringLiteral("D:\\m\\a"));
    EXPECT_EQ(m_numbers.length(1), 5);
}
