#include "base/filenametext.h"
#include "tests/system/files/filenumberstest.h"

#include <csignal>
#include <functional>

#include <sys/resource.h>
#include <sys/wait.h>

using TextOutput = FileNumbersTest;
using TextInput = FileNumbersTest;

TEST_F(TextOutput, replacesWhatWasThereAndWritesUtf8)
{
    m_tree.write("d/a", "something longer than what comes");
    m_numbers.openOutput(1, QStringLiteral("d:\\A"));
    m_numbers.print(1, u"Sjøen €\r\n");
    m_numbers.print(1, filenametext::toText("Sj\xF8"));
    EXPECT_EQ(m_numbers.length(1), 17);
    m_numbers.close(1);
    EXPECT_EQ(m_tree.read("d/a"), "Sj\xC3\270en \xE2\x82\xAC\r\nSj\xEE\xBF\xB8");
}

TEST_F(TextOutput, muchTextArrivesWhole)
{
    m_numbers.openOutput(1, QStringLiteral("D:\\new"));
    QByteArray expected;
    for (int i = 0; i < 30'000; ++i) {
        m_numbers.print(1, QString::number(i) + u'\n');
        expected += QByteArray::number(i) + '\n';
    }
    m_numbers.closeAll();
    EXPECT_EQ(m_tree.read("d/new"), expected);
}

TEST_F(TextOutput, isWrittenWhenTheTableGoes)
{
    {
        SystemFileNumbers other(m_drives);
        other.openOutput(1, kA);
        other.print(1, u"x");
    }
    EXPECT_EQ(m_tree.read("d/a"), "x");
}

TEST_F(TextOutput, theTraceFileLiesInTheUsersState)
{
    m_tree.write("home/test.txt", "the user's own");
    m_numbers.openOutput(1, QStringLiteral("c:\\test.txt"));
    m_numbers.print(1, u"traced");
    m_numbers.close(1);
    EXPECT_EQ(m_tree.read("state/test.txt"), "traced");
    EXPECT_EQ(m_tree.read("home/test.txt"), "the user's own");
}

TEST_F(TextOutput, errorsTellWhatIsWrong)
{
    m_tree.makeDirectory("d/dir");
    m_tree.write("d/a", "kept");
    EXPECT_EQ(outputError(QStringLiteral("D:\\dir")), numberOf(ErrorNumber::PathFileAccess));
    EXPECT_EQ(outputError(QStringLiteral("D:\\nothing\\a")), numberOf(ErrorNumber::PathNotFound));
    EXPECT_EQ(outputError(QStringLiteral("D:\\a\\b")), numberOf(ErrorNumber::PathNotFound));
    EXPECT_EQ(outputError(QStringLiteral("Q:\\a")), numberOf(ErrorNumber::PathNotFound));
    const Unprivileged ordinary;
    EXPECT_EQ(outputError(kA), numberOf(ErrorNumber::PermissionDenied));
    EXPECT_EQ(outputError(QStringLiteral("D:\\new")), numberOf(ErrorNumber::PermissionDenied));
    EXPECT_EQ(m_tree.read("d/a"), "kept");
}

namespace {

// In a process of its own whose files may not grow beyond 1000 bytes; the status it ended with.
int withLittleRoom(const std::function<int()>& action)
{
    const pid_t child = fork();
    if (child == 0) {
        const rlimit limit{1000, 1000};
        std::signal(SIGXFSZ, SIG_IGN);
        _exit(setrlimit(RLIMIT_FSIZE, &limit) == 0 ? action() : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

TEST_F(TextOutput, aFullDiskIsToldByCloseAndTheNumberIsFree)
{
    EXPECT_EQ(withLittleRoom([this] {
                  m_numbers.openOutput(1, kA);
                  m_numbers.print(1, QString(2000, u'x'));
                  const int error = errorOf([&] { m_numbers.close(1); });
                  return m_numbers.freeFile() == 1 ? error : -1;
              }),
              numberOf(ErrorNumber::DiskFull));
}

TEST_F(TextOutput, aFullDiskIsToldByPrintWhenTheBufferIsFull)
{
    EXPECT_EQ(withLittleRoom([this] {
                  m_numbers.openOutput(1, kA);
                  return errorOf([&] { m_numbers.print(1, QString(100'000, u'x')); });
              }),
              numberOf(ErrorNumber::DiskFull));
}

TEST_F(TextOutput, closingAllGoesOnAfterAFailure)
{
    EXPECT_EQ(withLittleRoom([this] {
                  for (int number = 1; number <= 3; ++number)
                      m_numbers.openOutput(number, QStringLiteral("D:\\%1").arg(number));
                  m_numbers.print(1, QString(2000, u'x'));
                  m_numbers.print(3, u"arrived");
                  return errorOf([&] { m_numbers.closeAll(); });
              }),
              numberOf(ErrorNumber::DiskFull));
    EXPECT_EQ(m_tree.read("d/3"), "arrived");
}

TEST_F(TextInput, linesEndByAnyOfThreeForms)
{
    EXPECT_EQ(lines("a\r\nb\nc\rd"), (QList<QByteArray>{"a", "b", "c", "d"}));
    EXPECT_EQ(lines("a\r\n"), (QList<QByteArray>{"a"}));
    EXPECT_EQ(lines("\r\r\n\n\n\r"), (QList<QByteArray>{"", "", "", "", ""}));
    EXPECT_EQ(lines("a\r"), (QList<QByteArray>{"a"}));
    EXPECT_EQ(lines(""), QList<QByteArray>());
    EXPECT_EQ(lines(QByteArray("\0\xFF\x1A", 3)), (QList<QByteArray>{QByteArray("\0\xFF\x1A", 3)}));
}

TEST_F(TextInput, linesMayCrossAnyBoundaryOfTheBuffer)
{
    for (const qsizetype length : {65533, 65534, 65535, 65536, 65537, 200'000}) {
        const QByteArray line(length, 'x');
        EXPECT_EQ(lines(line + "\r\n" + line + "\r" + line + "\n\r\nend"),
                  (QList<QByteArray>{line, line, line, "", "end"}));
    }
}

TEST_F(TextInput, lengthIsTheFiles)
{
    m_tree.write("d/a", "a\r\nb");
    m_numbers.openInput(1, kA);
    EXPECT_EQ(m_numbers.length(1), 4);
    EXPECT_EQ(m_numbers.lineInput(1), "a");
    EXPECT_FALSE(m_numbers.endOfFile(1));
}

TEST_F(TextInput, aFileThatGivesLessThanItsSizeIsAnError)
{
    const QString shorter = QStringLiteral("Z:\\sys\\kernel\\mm\\transparent_hugepage\\enabled");
    if (errorOf([&] { m_numbers.openInput(1, shorter); }) != 0 || m_numbers.length(1) < 100)
        GTEST_SKIP() << "this machine has no such file";
    EXPECT_EQ(errorOf([&] {
                  while (!m_numbers.endOfFile(1))
                      m_numbers.lineView(1);
              }),
              numberOf(ErrorNumber::DeviceIoError));
    m_numbers.close(1);
    m_tree.write("d/cut", QByteArray(200'000, 'x'));
    m_numbers.openInput(1, QStringLiteral("D:\\cut"));
    EXPECT_FALSE(m_numbers.endOfFile(1));
    m_tree.write("d/cut", "x"); // by somebody else
    EXPECT_EQ(errorOf([&] { m_numbers.lineView(1); }), numberOf(ErrorNumber::DeviceIoError));
}

TEST_F(TextInput, aLineThatWouldFillTheMemoryIsAnError)
{
    m_tree.write("d/line", QByteArray(17 << 20, 'x'));
    m_numbers.openInput(1, QStringLiteral("D:\\line"));
    EXPECT_EQ(errorOf([&] { m_numbers.lineView(1); }), numberOf(ErrorNumber::OutOfStringSpace));
    m_numbers.close(1);
    m_tree.write("d/line", QByteArray(15 << 20, 'x'));
    m_numbers.openInput(1, QStringLiteral("D:\\line"));
    EXPECT_EQ(m_numbers.lineView(1).size(), 15 << 20);
}
