// Pages that are printed as a document of their own: into a file, through the dialog, to a real queue.
#include "system/desktop/qtprinter.h"

#include "base/runtimeerror.h"
#include "platform/printedpages.h"
#include "system/desktop/pagesprint.h"
#include "system/desktop/printerturn.h"
#include "system/desktop/qtprogram.h"
#include "tests/support/localsockets.h"
#include "tests/support/rerun.h"
#include "tests/support/temporary.h"
#include "tests/system/desktop/printedtext.h"
#include "tests/system/desktop/privatequeue.h"
#include "tests/system/desktop/smallprinter.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

// Pages of one line, "page 3 of 7"; a smaller paper has twice as many.
class NumberedPages : public PrintedPages {
public:
    explicit NumberedPages(int count, bool isWide = false) : m_count(count), m_isWide(isWide) {}

    QString title() const override { return QStringLiteral("Numbers & <Pages>"); }
    bool isWide() const override { return m_isWide; }
    int layOut(const Paper& paper) override
    {
        papers.push_back(paper);
        return pages();
    }
    void paintPage(QPainter& painter, int page) override
    {
        QFont font;
        font.setPixelSize(12);
        painter.setFont(font);
        const QPointF base = papers.back().inside().topLeft() + QPointF(0, 12);
        painter.drawText(base, QStringLiteral("page %1 of %2").arg(page).arg(pages()));
    }

    std::vector<Paper> papers;

private:
    int pages() const { return papers.back().size.height() < 600 && !m_isWide ? 2 * m_count : m_count; }

    int m_count;
    bool m_isWide;
};

bool goOn(int, int)
{
    return true;
}

QStringList numbered(std::initializer_list<int> pages, int of)
{
    QStringList lines;
    for (const int page : pages)
        lines += QStringLiteral("page %1 of %2").arg(page).arg(of);
    return lines;
}

int errorOf(const std::function<void()>& step)
{
    try {
        step();
        return 0;
    } catch (const RunTimeError& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return error.number();
    }
}

int errorOf(Printer& printer, PrintedPages& pages)
{
    return errorOf([&] { printer.printPages(pages, goOn); });
}

// Answers the dialog when it is there.
template <typename Answer>
void whenAsked(QObject& context, Answer answer)
{
    QTimer::singleShot(0, &context, [answer] {
        auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->objectName(), QStringLiteral("PrintDialog"));
        answer(*dialog);
    });
}

template <typename Control>
Control& control(QDialog& dialog, const char* name)
{
    return *dialog.findChild<Control*>(QString::fromUtf8(name));
}

void press(QDialog& dialog)
{
    dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
}

void chooseRange(QDialog& dialog, int from, int to)
{
    control<QRadioButton>(dialog, "printRange").setChecked(true);
    control<QSpinBox>(dialog, "from").setValue(from);
    control<QSpinBox>(dialog, "to").setValue(to);
}

class PrintPages : public testing::Test {
protected:
    PrintPages() { qputenv("CUPS_SERVER", "/nonexistent/cups.sock"); }
    ~PrintPages() override { qunsetenv("CUPS_SERVER"); }

    QByteArray file() const { return m_temporary.at("printed.pdf"); }
    PrintedText printed() const { return PrintedText(QString::fromUtf8(file())); }

    // Prints through the dialog, whose printer is a file.
    template <typename Choose>
    PrintEnd printedBy(PrintedPages& pages, Choose choose)
    {
        whenAsked(m_context, [this, choose](QPrintDialog& dialog) {
            auto& printers = control<QComboBox>(dialog, "printers");
            printers.setCurrentIndex(printers.count() - 1);
            control<QLineEdit>(dialog, "filename").setText(QString::fromUtf8(file()));
            choose(dialog);
        });
        return QtPrinter().printPages(pages, goOn);
    }

    Temporary m_temporary;
    QObject m_context;
};

TEST_F(PrintPages, noOtherFileThanAPdfIsReplacedByOne)
{
    NumberedPages pages(1);
    pages.layOut({});
    m_temporary.write("Songbin.mdb", "records");
    m_temporary.write("old.PDF", "old");
    ASSERT_EQ(symlink("Songbin.mdb", file().constData()), 0);
    const auto errorInto = [&](const QByteArray& name) {
        try {
            const PrintChoice choice{.file = QString::fromUtf8(name),
                                     .layout =
                                         QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, {}),
                                     .pages = {1}};
            printChosenPages(choice, pages, goOn);
            return 0;
        } catch (const RunTimeError& error) {
            return error.number();
        }
    };
    for (const QByteArray& archive : {m_temporary.at("Songbin.mdb"), file()})
        EXPECT_EQ(errorInto(archive), numberOf(ErrorNumber::PermissionDenied)) << archive.constData();
    EXPECT_EQ(m_temporary.read("Songbin.mdb"), "records");
    EXPECT_EQ(errorInto(m_temporary.at("old.PDF")), 0);
    EXPECT_TRUE(m_temporary.read("old.PDF").startsWith("%PDF-"));
}

} // namespace

TEST_F(PrintPages, goIntoTheFileThatStandsForAPrinter)
{
    NumberedPages pages(3);
    QtPrinter printer(QString::fromUtf8(file()));
    std::vector<std::pair<int, int>> told;
    EXPECT_EQ(printer.printPages(pages,
                                 [&](int done, int count) {
                                     told.emplace_back(done, count);
                                     return true;
                                 }),
              PrintEnd::Printed);
    EXPECT_EQ(printed().lines(), numbered({1, 2, 3}, 3));
    EXPECT_EQ(printed().pageCount(), 3);
    EXPECT_EQ(printed().pageSizes().value(0), QSizeF(595, 842));
    const auto at = printed().boxes(QStringLiteral("page")).value(0);
    EXPECT_NEAR(at.left(), 42, 1);
    EXPECT_NEAR(at.top(), 42, 4);
    EXPECT_EQ(told, (std::vector<std::pair<int, int>>{{0, 3}, {1, 3}, {2, 3}, {3, 3}}));
    EXPECT_EQ(pages.papers.back(), printer.paper());
    QProcess info;
    info.start(QStringLiteral("pdfinfo"), {QString::fromUtf8(file())});
    info.waitForFinished();
    EXPECT_TRUE(info.readAll().contains("Title:           Numbers & <Pages>\n"));
}

TEST_F(PrintPages, thatAreWideHaveAWidePaper)
{
    NumberedPages pages(1, true);
    EXPECT_EQ(QtPrinter(QString::fromUtf8(file())).printPages(pages, goOn), PrintEnd::Printed);
    EXPECT_GT(pages.papers.back().size.width(), pages.papers.back().size.height());
    EXPECT_EQ(printed().pageSizes().value(0), QSizeF(842, 595));
}

TEST_F(PrintPages, goBesideTheDocumentThatIsOpen)
{
    NumberedPages pages(2);
    QtPrinter printer(QString::fromUtf8(file()));
    printer.print(QStringLiteral("first"));
    printer.printPages(pages, goOn);
    printer.print(QStringLiteral("second"));
    EXPECT_EQ(PrintedText(QString::fromUtf8(m_temporary.at("printed-2.pdf"))).lines(), numbered({1, 2}, 2));
    printer.endDocument();
    EXPECT_EQ(printed().lines(), QStringList({QStringLiteral("first"), QStringLiteral("second")}));
}

TEST_F(PrintPages, givenUpNothingIsPrinted)
{
    m_temporary.write("printed.pdf", "old");
    NumberedPages pages(4);
    for (int end = 0; end <= 4; ++end) {
        QtPrinter printer(QString::fromUtf8(file()));
        EXPECT_EQ(printer.printPages(pages, [&](int done, int) { return done < end; }), PrintEnd::Cancelled);
        EXPECT_EQ(m_temporary.read("printed.pdf"), "old");
    }
}

TEST_F(PrintPages, aFileThatCannotBeWrittenIsTold)
{
    NumberedPages pages(1);
    QtPrinter nowhere(QString::fromUtf8(m_temporary.at("no/printed.pdf")));
    EXPECT_EQ(errorOf(nowhere, pages), 76);
    QtPrinter full(QStringLiteral("/dev/full"));
    EXPECT_EQ(errorOf(full, pages), 75);
}

TEST_F(PrintPages, theDialogChoosesPages)
{
    NumberedPages pages(7);
    EXPECT_EQ(printedBy(pages,
                        [](QDialog& dialog) {
                            EXPECT_TRUE(control<QSpinBox>(dialog, "copies").isVisible());
                            EXPECT_EQ(control<QSpinBox>(dialog, "to").maximum(), 7);
                            EXPECT_EQ(control<QSpinBox>(dialog, "to").value(), 7);
                            EXPECT_TRUE(control<QRadioButton>(dialog, "printAll").isChecked());
                            chooseRange(dialog, 2, 4);
                            press(dialog);
                        }),
              PrintEnd::Printed);
    EXPECT_EQ(printed().lines(), numbered({2, 3, 4}, 7));
}

TEST_F(PrintPages, theDialogChoosesCopiesAndTheirOrder)
{
    for (const bool isCollated : {true, false}) {
        NumberedPages pages(3);
        QFile::remove(QString::fromUtf8(file()));
        printedBy(pages, [isCollated](QDialog& dialog) {
            chooseRange(dialog, 1, 2);
            control<QSpinBox>(dialog, "copies").setValue(2);
            control<QCheckBox>(dialog, "collate").setChecked(isCollated);
            press(dialog);
        });
        EXPECT_EQ(printed().lines(), isCollated ? numbered({1, 2, 1, 2}, 3) : numbered({1, 1, 2, 2}, 3));
    }
    NumberedPages pages(3);
    QFile::remove(QString::fromUtf8(file()));
    printedBy(pages, [](QDialog& dialog) {
        control<QCheckBox>(dialog, "reverse").setChecked(true);
        press(dialog);
    });
    EXPECT_EQ(printed().lines(), numbered({3, 2, 1}, 3));
}

TEST_F(PrintPages, anotherPaperHasPagesOfItsOwn)
{
    NumberedPages pages(2);
    printedBy(pages, [this](QPrintDialog& dialog) {
        dialog.printer()->setPageSize(QPageSize(QPageSize::A5)); // as its properties do
        press(dialog);
    });
    ASSERT_EQ(pages.papers.size(), 2U);
    EXPECT_EQ(pages.papers[1].size, QSizeF(420, 595));
    EXPECT_EQ(printed().lines(), numbered({1, 2, 3, 4}, 4));
    EXPECT_EQ(printed().pageSizes().value(0), QSizeF(420, 595));
}

TEST_F(PrintPages, nothingIsPrintedWhenNobodyWantsIt)
{
    NumberedPages pages(2);
    EXPECT_EQ(printedBy(pages, [](QDialog& dialog) { dialog.reject(); }), PrintEnd::Cancelled);
    EXPECT_FALSE(m_temporary.exists("printed.pdf"));
}

TEST_F(PrintPages, theLocaleTellsThePaperWhereNoPrinterDoes)
{
    EXPECT_EQ(PrinterPaper::ofLocale(QLocale(QStringLiteral("en_US"))).size, QSizeF(612, 792));
    EXPECT_EQ(PrinterPaper::ofLocale(QLocale(QStringLiteral("nb_NO"))).size, QSizeF(595, 842));
    EXPECT_EQ(QtPrinter().paper(), PrinterPaper::ofLocale());
}

TEST(PrintPagesAlone, DISABLED_theProgramEndsMeanwhile)
{
    QtProgram program(QString(), {});
    QObject context;
    whenAsked(context, [&](QDialog&) { program.end(3); });
    NumberedPages pages(2);
    EXPECT_EQ(QtPrinter().printPages(pages, goOn), PrintEnd::Cancelled);
}

TEST(PrintPagesAlone, theDialogGoesWithTheProgram)
{
    const Rerun run("PrintPagesAlone.DISABLED_theProgramEndsMeanwhile",
                    QProcessEnvironment::systemEnvironment());
    EXPECT_TRUE(run.passed) << run.output.toStdString();
}

TEST(PrintPagesAlone, DISABLED_thePrintingSystemIsSilent)
{
    QtPrinter printer;
    NumberedPages pages(1);
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(printer.paper(), PrinterPaper::ofLocale());
    EXPECT_LT(timer.elapsed(), 2000);
    EXPECT_EQ(errorOf(printer, pages), 482);
    EXPECT_LT(timer.elapsed(), 12'000);
    // Nothing of the toolkit's printing is touched by two threads, and nobody waits for ever.
    EXPECT_EQ(errorOf([&] { printer.print(QStringLiteral("line")); }), 482);
    EXPECT_EQ(errorOf([&] { printer.printAtOnce({QStringLiteral("line")}); }), 482);
    EXPECT_LT(timer.elapsed(), 24'000);
    EXPECT_FALSE(PrinterTurn::takeForGood(std::chrono::milliseconds(10)));
    _exit(testing::Test::HasFailure() ? 1 : (std::puts("[  PASSED  ] 1 test."), std::fflush(stdout), 0));
}

TEST(PrintPagesAlone, DISABLED_theTurnIsTakenForGood)
{
    QtPrinter printer(QStringLiteral("/nowhere/printed.pdf"));
    EXPECT_TRUE(PrinterTurn::takeForGood(std::chrono::milliseconds(0)));
    QtPrinter asking;
    EXPECT_EQ(asking.paper(), PrinterPaper::ofLocale());
    EXPECT_EQ(asking.paper(), PrinterPaper::ofLocale());
    EXPECT_FALSE(PrinterPaper().isKnown(std::chrono::milliseconds(500))) << "its thread waits for good";
}

TEST(PrintPagesAlone, noThreadGoesOnAtTheEnd)
{
    const Rerun run("PrintPagesAlone.DISABLED_theTurnIsTakenForGood",
                    QProcessEnvironment::systemEnvironment());
    EXPECT_TRUE(run.passed) << run.output.toStdString();
}

TEST(PrintPagesAlone, aPrintingSystemThatIsSilentIsNotWaitedFor)
{
    const Temporary directory;
    const Descriptor silent = listenAt(directory.at("cups.sock"));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("CUPS_SERVER"), QString::fromUtf8(directory.at("cups.sock")));
    const Rerun run("PrintPagesAlone.DISABLED_thePrintingSystemIsSilent", environment);
    EXPECT_TRUE(run.passed) << run.output.toStdString();
}

TEST(PrintPagesAlone, DISABLED_toTheQueue)
{
    QObject context;
    whenAsked(context, [](QDialog& dialog) {
        EXPECT_EQ(control<QComboBox>(dialog, "printers").currentText(), QStringLiteral("Test"));
        chooseRange(dialog, 2, 3);
        control<QSpinBox>(dialog, "copies").setValue(2);
        press(dialog);
    });
    NumberedPages pages(5);
    QtPrinter printer;
    printer.print(QStringLiteral("waiting"));
    EXPECT_EQ(printer.printPages(pages, goOn), PrintEnd::Printed);
    EXPECT_TRUE(printer.hasOpenDocument());
    whenAsked(context, [](QDialog& dialog) {
        control<QRadioButton>(dialog, "pagesRadioButton").setChecked(true);
        control<QLineEdit>(dialog, "pagesLineEdit").setText(QStringLiteral("1,4-5"));
        press(dialog);
    });
    EXPECT_EQ(printer.printPages(pages, goOn), PrintEnd::Printed);
    whenAsked(context, [](QDialog& dialog) {
        chooseRange(dialog, 2, 5);
        control<QComboBox>(dialog, "pageSetCombo").setCurrentIndex(2); // even pages
        press(dialog);
    });
    EXPECT_EQ(printer.printPages(pages, goOn), PrintEnd::Printed);
    NumberedPages given(3);
    whenAsked(context, [](QDialog& dialog) { press(dialog); });
    EXPECT_EQ(printer.printPages(given, [](int done, int) { return done < 3; }), PrintEnd::Cancelled);
    _exit(testing::Test::HasFailure() ? 1 : (std::puts("[  PASSED  ] 1 test."), std::fflush(stdout), 0));
}

TEST(PrintPagesAlone, exactlyTheChosenPagesGoToARealQueue)
{
    const PrivateQueue queue;
    if (!queue.isReady())
        GTEST_SKIP() << "no printing system of our own can be started here (cupsd, lpadmin, root)";
    const Rerun run("PrintPagesAlone.DISABLED_toTheQueue", queue.environment());
    EXPECT_TRUE(run.passed) << run.output.toStdString();
    const QStringList jobs = queue.jobs();
    ASSERT_EQ(jobs.size(), 3) << "neither the waiting text nor what was given up";
    EXPECT_EQ(PrintedText(jobs[0]).lines(), numbered({2, 3}, 5));
    EXPECT_EQ(PrintedText(jobs[1]).lines(), numbered({1, 4, 5}, 5));
    EXPECT_EQ(PrintedText(jobs[2]).lines(), numbered({2, 4}, 5));
    const QByteArray ticket = queue.ticket(0);
    EXPECT_TRUE(ticket.contains("Numbers & <Pages>"));
    EXPECT_TRUE(ticket.contains(QByteArray("\x06"
                                           "copies\0\x04\0\0\0\x02",
                                           13)))
        << ticket.toPercentEncoding().constData();
    for (int job = 0; job < 3; ++job)
        EXPECT_FALSE(queue.ticket(job).contains("page-"));
}

TEST(PrintPagesAlone, DISABLED_thePrinterVanishes)
{
    QObject context;
    whenAsked(context, [](QDialog& dialog) { press(dialog); });
    NumberedPages pages(3);
    try {
        QtPrinter().printPages(pages, [](int done, int) {
            return done != 2 || QProcess::execute(QStringLiteral("lpadmin"),
                                                  {QStringLiteral("-x"), QStringLiteral("Test")}) == 0;
        });
        ADD_FAILURE() << "nobody was told";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), 482);
        EXPECT_EQ(error.text(), QStringLiteral("Printer error: The printer or class does not exist."));
    }
}

TEST(PrintPagesAlone, aPrinterThatVanishesIsTold)
{
    const PrivateQueue queue;
    if (!queue.isReady())
        GTEST_SKIP() << "no printing system of our own can be started here (cupsd, lpadmin, root)";
    const Rerun run("PrintPagesAlone.DISABLED_thePrinterVanishes", queue.environment());
    EXPECT_TRUE(run.passed) << run.output.toStdString();
    EXPECT_EQ(queue.jobs().size(), 0);
}

TEST(PrintPagesAlone, DISABLED_tellsThePaper)
{
    const Paper paper = QtPrinter().paper();
    EXPECT_EQ(paper.size, QSizeF(420, 595));
    EXPECT_EQ(paper.margins, QMarginsF(42, 42, 42, 60));
}

TEST(PrintPagesAlone, thePaperIsTheDefaultPrinters)
{
    const PrivateQueue queue(kSmallPrinter);
    if (!queue.isReady())
        GTEST_SKIP() << "no printing system of our own can be started here (cupsd, lpadmin, root)";
    const Rerun run("PrintPagesAlone.DISABLED_tellsThePaper", queue.environment());
    EXPECT_TRUE(run.passed) << run.output.toStdString();
}
