#include "base/runtimeerror.h"
#include "system/desktop/qtprinter.h"
#include "tests/support/rerun.h"
#include "tests/system/desktop/printedtext.h"
#include "tests/system/desktop/privatequeue.h"

#include <gtest/gtest.h>

namespace {

constexpr double kShortEdge = 595; // A4, in points
constexpr double kLongEdge = 842;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// Returns "P" or "L" for each page.
std::string shapes(const PrintedText& printed)
{
    std::string out;
    for (const QSizeF& size : printed.pageSizes()) {
        EXPECT_NEAR(std::min(size.width(), size.height()), kShortEdge, 1);
        EXPECT_NEAR(std::max(size.width(), size.height()), kLongEdge, 1);
        out += size.width() > size.height() ? 'L' : 'P';
    }
    return out;
}

class PrinterOrientationTest : public testing::Test {
protected:
    void print(Orientation orientation, const QString& what)
    {
        m_printer.setOrientation(orientation);
        m_printer.print(what);
    }

    Temporary m_temporary;
    QString m_pdf = QString::fromUtf8(m_temporary.at("printed.pdf"));
    PrintedText m_printed{m_pdf};
    QtPrinter m_printer{m_pdf};
};

} // namespace

TEST_F(PrinterOrientationTest, isPortraitAtFirst)
{
    EXPECT_EQ(m_printer.orientation(), Orientation::Portrait);
    m_printer.print(text("x"));
    m_printer.endDocument();
    EXPECT_EQ(shapes(m_printed), "P");
}

TEST_F(PrinterOrientationTest, printsEveryLineInOrderAcrossLandscapePages)
{
    print(Orientation::Landscape, numberedLines(1, 120));
    EXPECT_EQ(m_printer.orientation(), Orientation::Landscape);
    m_printer.endDocument();
    EXPECT_EQ(shapes(m_printed), "LLL");
    EXPECT_EQ(m_printed.lines().join(u'\n') + u'\n', numberedLines(1, 120));
    for (const QRectF& box : m_printed.boxes(text("line")))
        EXPECT_TRUE(box.top() > 0 && box.bottom() < kShortEdge) << box.top() << ' ' << box.bottom();
}

TEST_F(PrinterOrientationTest, goesOnWithANewPageWhenItChanges)
{
    print(Orientation::Portrait, text("first"));
    print(Orientation::Landscape, text("second"));
    m_printer.print(text("third"));
    print(Orientation::Portrait, text("fourth"));
    m_printer.endDocument();
    EXPECT_EQ(shapes(m_printed), "PLP");
    EXPECT_EQ(m_printed.page(1), QStringList(text("first")));
    EXPECT_EQ(m_printed.page(2), QStringList({text("second"), text("third")}));
    EXPECT_EQ(m_printed.page(3), QStringList(text("fourth")));
}

// Each page gets as full as its height allows, whichever came before.
TEST_F(PrinterOrientationTest, fillsPagesByTheHeightOfTheMoment)
{
    print(Orientation::Portrait, numberedLines(1, 100));
    print(Orientation::Landscape, numberedLines(101, 100));
    print(Orientation::Portrait, numberedLines(201, 100));
    m_printer.endDocument();
    EXPECT_EQ(shapes(m_printed), "PPLLLPP");
    const qsizetype high = m_printed.page(1).size();
    const qsizetype low = m_printed.page(3).size();
    EXPECT_GT(high, low * 4 / 3);
    EXPECT_EQ(m_printed.page(4).size(), low);
    EXPECT_EQ(m_printed.page(6).size(), high);
    EXPECT_EQ(m_printed.lines().join(u'\n') + u'\n', numberedLines(1, 300));
}

TEST_F(PrinterOrientationTest, leavesThePageInWorkAsItIs)
{
    m_printer.print(text("first"));
    m_printer.setOrientation(Orientation::Landscape);
    m_printer.endDocument();
    EXPECT_EQ(shapes(m_printed), "P"); // nothing was printed after the change
}

TEST_F(PrinterOrientationTest, needsNoNewPageForAChangeThatWasTakenBack)
{
    m_printer.print(text("first"));
    m_printer.setOrientation(Orientation::Landscape);
    print(Orientation::Portrait, text("second"));
    m_printer.endDocument();
    EXPECT_EQ(shapes(m_printed), "P");
    EXPECT_EQ(m_printed.lines(), QStringList({text("first"), text("second")}));
}

TEST_F(PrinterOrientationTest, holdsForTheDocumentsToCome)
{
    m_printer.print(text("first"));
    m_printer.setOrientation(Orientation::Landscape);
    m_printer.endDocument();
    m_printer.print(text("second"));
    m_printer.endDocument();
    EXPECT_EQ(shapes(m_printed), "L");
    print(Orientation::Portrait, text("third"));
    m_printer.endDocument();
    EXPECT_EQ(shapes(m_printed), "P");
}

TEST_F(PrinterOrientationTest, outlastsADocumentThatIsRefused)
{
    QtPrinter printer(QString::fromUtf8(m_temporary.at("missing/printed.pdf")));
    printer.setOrientation(Orientation::Landscape);
    EXPECT_THROW(printer.print(text("x")), RunTimeError);
    m_temporary.makeDirectory("missing");
    printer.print(text("y"));
    printer.endDocument();
    EXPECT_EQ(shapes(PrintedText(QString::fromUtf8(m_temporary.at("missing/printed.pdf")))), "L");
}

TEST_F(PrinterOrientationTest, breaksALineToTheWiderPage)
{
    const QString word(500, u'w');
    print(Orientation::Portrait, word);
    print(Orientation::Landscape, word);
    m_printer.endDocument();
    EXPECT_EQ(m_printed.page(1).join(QString()), word);
    EXPECT_EQ(m_printed.page(2).join(QString()), word);
    EXPECT_LT(m_printed.page(2).size(), m_printed.page(1).size());
    const qsizetype onFirst = m_printed.page(1).size();
    const auto pieces = m_printed.boxes(text("w+"));
    ASSERT_EQ(pieces.size(), onFirst + m_printed.page(2).size());
    EXPECT_LT(pieces.value(0).right(), kShortEdge);
    EXPECT_GT(pieces.value(onFirst).right(), kLongEdge * 0.9);
    EXPECT_LT(pieces.value(onFirst).right(), kLongEdge);
}

TEST_F(PrinterOrientationTest, breaksALineOfForeignLettersToTheWiderPage)
{
    const QString word = text("\xD0\xBC\xD0\xB8\xD1\x80");
    const QString line = (word + u' ').repeated(200);
    print(Orientation::Portrait, line);
    print(Orientation::Landscape, line);
    m_printer.endDocument();
    EXPECT_LT(m_printed.page(2).size(), m_printed.page(1).size());
    const auto words = m_printed.boxes(word);
    ASSERT_EQ(words.size(), 400);
    double right[2] = {0, 0};
    for (qsizetype i = 0; i < words.size(); ++i)
        right[i / 200] = std::max(right[i / 200], words[i].right());
    EXPECT_LT(right[0], kShortEdge);
    EXPECT_GT(right[1], kLongEdge * 0.9);
    EXPECT_LT(right[1], kLongEdge);
}

// The text is there for a reader even when it is cut off; a picture shows what the paper gets.
TEST_F(PrinterOrientationTest, paintsToTheEdgesOfEachPage)
{
    for (const Orientation turn : {Orientation::Portrait, Orientation::Landscape, Orientation::Portrait})
        print(turn, QString(15000, u'W'));
    m_printer.endDocument();
    const std::string pages = shapes(m_printed);
    const auto isInked = [](const QImage& page, int x, int y) {
        for (int i = 0; i < 8 * 8; ++i)
            if (qGray(page.pixel(x + i % 8, y + i / 8)) < 128)
                return true;
        return false;
    };
    constexpr int kMargin = 24; // pixels, a little more than the page's
    for (const std::size_t full : {pages.find("PP"), pages.find("LL"), pages.rfind("PP")}) {
        ASSERT_NE(full, std::string::npos) << pages;
        const QImage page = m_printed.picture(static_cast<int>(full) + 1);
        ASSERT_GT(page.width(), 250);
        const int right = page.width() - kMargin - 8;
        const int bottom = page.height() - kMargin - 8;
        EXPECT_TRUE(isInked(page, kMargin, kMargin) && isInked(page, right, kMargin)) << full;
        EXPECT_TRUE(isInked(page, kMargin, bottom) && isInked(page, right, bottom)) << full;
        EXPECT_FALSE(isInked(page, page.width() - 12, page.height() / 2)) << full;
    }
}

TEST(PrinterOrientationAlone, DISABLED_printsSidewaysToTheDefaultPrinter)
{
    QtPrinter printer;
    printer.setOrientation(Orientation::Landscape);
    printer.print(QString(100, u'w') + text("\n"));
    printer.print(numberedLines(1, 80));
    printer.endDocument();
}

TEST(PrinterOrientationAlone, sendsALandscapeJobToARealQueue)
{
    const PrivateQueue queue;
    if (!queue.isReady())
        GTEST_SKIP() << "no printing system of our own can be started here (cupsd, lpadmin, root)";
    const Rerun run("PrinterOrientationAlone.DISABLED_printsSidewaysToTheDefaultPrinter",
                    queue.environment());
    ASSERT_TRUE(run.passed) << run.output.toStdString();
    ASSERT_EQ(queue.jobs().size(), 1);
    const PrintedText job(queue.jobs().constFirst());
    const std::string pages = shapes(job);
    EXPECT_GE(pages.size(), 2U);
    EXPECT_EQ(pages.find('P'), std::string::npos) << pages;
    EXPECT_EQ(job.lines().join(u'\n'), QString(100, u'w') + u'\n' + numberedLines(1, 80).trimmed());
}
