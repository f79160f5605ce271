#include "platform/printer_qt.h"

#include "base/runtimeerror.h"
#include "tests/platform/rerun.h"
#include "tests/support/temporary.h"

#include <QElapsedTimer>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <filesystem>
#include <thread>

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

QByteArray outputOf(const char* program, const QStringList& arguments)
{
    QProcess process;
    process.start(text(program), arguments);
    return process.waitForFinished(60000) ? process.readAllStandardOutput() : QByteArray();
}

QString numbered(int first, int count)
{
    QString out;
    for (int i = first; i < first + count; ++i)
        out += QStringLiteral("line %1\n").arg(i);
    return out;
}

int errorOf(Printer& printer)
{
    try {
        printer.print(text("x"));
        return 0;
    } catch (const RunTimeError& error) {
        return error.number();
    }
}

class QtPrinterTest : public testing::Test {
protected:
    // What a reader of the file sees.
    QString printed() const
    {
        return QString::fromUtf8(
            outputOf("pdftotext", {text("-layout"), text("-nopgbrk"), m_pdf, text("-")}));
    }
    QStringList lines() const { return printed().split(u'\n', Qt::SkipEmptyParts); }
    int pageCount() const
    {
        return static_cast<int>(outputOf("pdftotext", {text("-layout"), m_pdf, text("-")}).count('\f'));
    }
    // Of each word that reads so, the left and right edges; the page is kPageWidth wide.
    QList<std::pair<double, double>> edges(const char* word) const
    {
        const QString content = QString::fromUtf8(outputOf("pdftotext", {text("-bbox"), m_pdf, text("-")}));
        const QRegularExpression form(text("xMin=\"([0-9.]+)\"[^>]* xMax=\"([0-9.]+)\"[^>]*>") + text(word) +
                                      text("</word>"));
        QList<std::pair<double, double>> found;
        for (auto match = form.globalMatch(content); match.hasNext();) {
            const QRegularExpressionMatch one = match.next();
            found += {one.captured(1).toDouble(), one.captured(2).toDouble()};
        }
        return found;
    }

    static constexpr double kPageWidth = 595; // A4, in points
    Temporary m_temporary;
    QString m_pdf = QString::fromUtf8(m_temporary.at("printed.pdf"));
    QtPrinter m_printer{m_pdf};
};

} // namespace

TEST_F(QtPrinterTest, printsEveryLineInOrderAcrossPages)
{
    m_printer.print(numbered(1, 300));
    m_printer.endDocument();
    EXPECT_EQ(lines().join(u'\n') + u'\n', numbered(1, 300));
    EXPECT_GE(pageCount(), 4);
    EXPECT_LE(pageCount(), 6);
}

TEST_F(QtPrinterTest, gathersWhatIsPrintedInOneDocument)
{
    m_printer.print(text("first"));
    EXPECT_TRUE(lines().isEmpty()); // not yet
    m_printer.print(text("second"));
    m_printer.endDocument();
    EXPECT_EQ(lines(), QStringList({text("first"), text("second")}));
    EXPECT_EQ(pageCount(), 1);
}

TEST_F(QtPrinterTest, beginsAnotherDocumentAfterTheEnd)
{
    m_printer.print(text("first"));
    m_printer.endDocument();
    m_printer.print(text("second"));
    m_printer.endDocument();
    EXPECT_EQ(lines(), QStringList(text("second")));
}

TEST_F(QtPrinterTest, makesNoDocumentOfNothing)
{
    m_printer.endDocument();
    EXPECT_FALSE(m_temporary.exists("printed.pdf"));
}

TEST_F(QtPrinterTest, endsItsDocumentWhenItGoes)
{
    QtPrinter(m_pdf).print(text("last words"));
    EXPECT_EQ(lines(), QStringList(text("last words")));
}

TEST_F(QtPrinterTest, printsAnEmptyTextAsALine)
{
    m_printer.print(text("a"));
    m_printer.print(QString());
    m_printer.print(text("b"));
    m_printer.endDocument();
    EXPECT_EQ(printed().trimmed().split(u'\n').size(), 3);
}

TEST_F(QtPrinterTest, breaksALineToThePage)
{
    const QString word(500, u'w');
    m_printer.print(word);
    m_printer.print(text("end"));
    m_printer.endDocument();
    EXPECT_EQ(lines().join(QString()), word + text("end"));
    EXPECT_GT(lines().size(), 5);
    const auto pieces = edges("w+");
    ASSERT_FALSE(pieces.isEmpty());
    for (const auto& [left, right] : pieces)
        EXPECT_TRUE(left > 0 && right < kPageWidth) << left << ' ' << right;
}

TEST_F(QtPrinterTest, breaksALineOfWideCharactersToThePage)
{
    m_printer.print(QString(120, QChar(0x4E2D)) + text(" end"));
    m_printer.print(text("after"));
    m_printer.endDocument();
    const auto end = edges("end");
    ASSERT_EQ(end.size(), 1);
    EXPECT_LT(end.constFirst().second, kPageWidth);
    EXPECT_EQ(lines().constLast(), text("after"));
}

TEST_F(QtPrinterTest, linesColumnsUp)
{
    m_printer.print(text("Artist\tSong\nA-ha\tTake\nJan Garbarek\tWitchi\nBj\xC3\xB8rk\tJ\xC3\xB3ga\n"));
    m_printer.endDocument();
    const double left = edges("Song").value(0).first;
    EXPECT_GT(left, 0);
    for (const char* cell : {"Take", "Witchi", "J\xC3\xB3ga"})
        EXPECT_NEAR(edges(cell).value(0).first, left, 0.5) << cell;
}

TEST_F(QtPrinterTest, tellsThatTheFileCannotBeWritten)
{
    QtPrinter printer(QString::fromUtf8(m_temporary.at("missing/printed.pdf")));
    EXPECT_EQ(errorOf(printer), 482);
    m_temporary.makeDirectory("missing");
    EXPECT_EQ(errorOf(printer), 0); // a failure is not for ever
}

TEST_F(QtPrinterTest, takesTimeInProportion)
{
    const auto took = [](int count) {
        Temporary directory;
        QtPrinter printer(QString::fromUtf8(directory.at("x.pdf")));
        QElapsedTimer timer;
        timer.start();
        printer.print(numbered(1, count));
        printer.endDocument();
        return timer.elapsed();
    };
    took(1000); // fonts are loaded
    const qint64 small = took(6000);
    const qint64 large = took(48000);
    EXPECT_LT(large, small * 24 + 200)
        << small << " ms, " << large << " ms"; // a square law would be 64 times
}

TEST(QtPrinterAlone, DISABLED_printsToTheDefaultPrinter)
{
    QtPrinter printer;
    printer.print(numbered(1, 150));
    printer.print(text("Bl\xC3\xA5 b\xC3\xA6r"));
    printer.endDocument();
}

TEST(QtPrinterAlone, DISABLED_findsNoPrinter)
{
    QtPrinter printer;
    EXPECT_EQ(errorOf(printer), 482);
    EXPECT_EQ(errorOf(printer), 482);
    printer.endDocument();
}

TEST(QtPrinterAlone, DISABLED_outlivesTheApplication)
{
    static QtPrinter printer(qEnvironmentVariable("PRINT_TEST_FILE"));
    printer.print(text("lost"));
}

TEST(QtPrinterAlone, tellsThatThereIsNoPrinter)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(text("CUPS_SERVER"), text("/nonexistent/cups.sock"));
    environment.remove(text("PRINTER"));
    const Rerun run("QtPrinterAlone.DISABLED_findsNoPrinter", environment);
    EXPECT_TRUE(run.passed) << run.output.toStdString();
}

TEST(QtPrinterAlone, doesNotCrashWhenItOutlivesTheApplication)
{
    Temporary directory;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(text("PRINT_TEST_FILE"), QString::fromUtf8(directory.at("x.pdf")));
    const Rerun run("QtPrinterAlone.DISABLED_outlivesTheApplication", environment);
    EXPECT_TRUE(run.passed) << run.output.toStdString();
}

namespace {

// A printing system of its own with one default queue, which keeps the jobs that it is sent.
class PrivateQueue {
public:
    PrivateQueue()
    {
        for (const char* directory : {"root", "cache", "state", "spool"})
            m_directory.makeDirectory(directory);
        const QByteArray at = m_directory.path();
        m_directory.write(
            "cupsd.conf",
            "Listen " + at +
                "/socket\nBrowsing Off\nPreserveJobFiles Yes\n"
                "DefaultAuthType None\n<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
                "<Policy default>\n<Limit All>\nOrder deny,allow\nAllow all\n</Limit>\n</Policy>\n");
        m_directory.write("cups-files.conf", "FileDevice Yes\nServerRoot " + at + "/root\nCacheDir " + at +
                                                 "/cache\nStateDir " + at + "/state\nRequestRoot " + at +
                                                 "/spool\nAccessLog " + at + "/access\nErrorLog " + at +
                                                 "/errors\nPageLog " + at + "/pages\n");
        m_server.start(text("/usr/sbin/cupsd"),
                       {text("-f"), text("-c"), file("cupsd.conf"), text("-s"), file("cups-files.conf")});
        m_ready = m_server.waitForStarted() && makeQueue();
    }
    ~PrivateQueue()
    {
        m_server.terminate();
        if (!m_server.waitForFinished(5000))
            m_server.kill();
        m_server.waitForFinished();
    }
    PrivateQueue(const PrivateQueue&) = delete;
    PrivateQueue& operator=(const PrivateQueue&) = delete;

    bool isReady() const { return m_ready; }
    QProcessEnvironment environment() const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(text("CUPS_SERVER"), file("socket"));
        environment.remove(text("PRINTER"));
        return environment;
    }
    QStringList jobs() const
    {
        QStringList found;
        for (const auto& entry : std::filesystem::directory_iterator(m_directory.at("spool").toStdString()))
            if (entry.path().filename().string().starts_with('d'))
                found += QString::fromStdString(entry.path().string());
        return found;
    }

private:
    QString file(const char* name) const { return QString::fromUtf8(m_directory.at(name)); }
    bool administrate(const QStringList& arguments) const
    {
        QProcess process;
        process.setProcessEnvironment(environment());
        process.start(text("lpadmin"), arguments);
        return process.waitForFinished(5000) && process.exitCode() == 0;
    }
    bool makeQueue() const
    {
        const QStringList queue = {text("-p"), text("Test"), text("-E"), text("-v"), text("file:/dev/null"),
                                   text("-m"), text("raw")};
        for (int tries = 0; tries < 100; ++tries) {
            if (m_directory.exists("socket") && administrate(queue))
                return administrate({text("-d"), text("Test")});
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
        return false;
    }

    Temporary m_directory;
    QProcess m_server;
    bool m_ready = false;
};

} // namespace

TEST(QtPrinterAlone, sendsOneJobToARealQueue)
{
    const PrivateQueue queue;
    if (!queue.isReady())
        GTEST_SKIP() << "no printing system of our own can be started here (cupsd, lpadmin, root)";
    const Rerun run("QtPrinterAlone.DISABLED_printsToTheDefaultPrinter", queue.environment());
    ASSERT_TRUE(run.passed) << run.output.toStdString();
    ASSERT_EQ(queue.jobs().size(), 1);
    const QString content =
        QString::fromUtf8(outputOf("pdftotext", {text("-layout"), queue.jobs().constFirst(), text("-")}));
    EXPECT_EQ(content.count(u'\f'), 3);
    EXPECT_EQ(content.split(QRegularExpression(text("[\n\f]")), Qt::SkipEmptyParts).join(u'\n'),
              numbered(1, 150) + text("Bl\xC3\xA5 b\xC3\xA6r"));
}
