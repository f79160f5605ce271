// The exports as other programs read them.
#include "toolkit/pages/exporter.h"

#include "base/runtimeerror.h"
#include "tests/support/filestest.h"
#include "tests/system/desktop/printedtext.h"
#include "tests/toolkit/pages/exporttest.h"
#include "toolkit/pages/fontwidths.h"
#include "toolkit/pages/reportlayout.h"

#include <QTest>

#include <sys/mount.h>

namespace {

bool goOn(double)
{
    return true;
}

QByteArray saidBy(const char* program, const QStringList& arguments)
{
    QProcess process;
    process.start(QString::fromUtf8(program), arguments);
    return process.waitForFinished(60000) ? process.readAllStandardOutput() : QByteArray();
}

const QString kPdf = QStringLiteral("D:\\Report.pdf");
const QString kCsv = QStringLiteral("D:\\Report.csv");
constexpr ExportKind kKinds[] = {ExportKind::Pdf, ExportKind::Html, ExportKind::Csv};

// Bookmarks of two levels: the volume, and each tenth row in it. Slow ones rest now and then.
class MarkedRows : public TextRows {
public:
    Cell cell(int row, int column) const override
    {
        if (areSlow && row % 500 == 0 && column == 1)
            QTest::qSleep(10);
        return TextRows::cell(row, column);
    }
    QStringList bookmarks(int row) const override
    {
        const QString tenth = QStringLiteral("Row %1 \u05D0 (\u266B)").arg(row);
        if (beginsGroup(row))
            return {QString::fromUtf8(rows.at(static_cast<std::size_t>(row)).at(0).value_or("none")), tenth};
        return row % 10 == 0 ? QStringList{QString(), tenth} : QStringList();
    }

    bool areSlow = false;
};

} // namespace

class ReportExport : public SystemFilesTest {
protected:
    void fill(int count)
    {
        for (int row = 0; row < count; ++row) {
            rows.rows.push_back(
                {"DISK_" + QByteArray::number(row / 100), "D:\\Song " + QByteArray::number(row)});
            if (row % 100 == 0)
                rows.groups.insert(row);
        }
    }
    bool written(ExportKind kind, const QString& path, const std::function<bool(double)>& told = goOn)
    {
        const ReportLayout layout(report, widths, Paper());
        return exportReport({report, layout, widths}, kind, m_files, path, told);
    }
    QByteArray pdf() const { return at("d/Report.pdf"); }
    QByteArray info(const char* program, const QStringList& options = {}) const
    {
        return saidBy(program, options + QStringList(QString::fromUtf8(pdf())));
    }
    // Every bookmark with its page, deeper ones indented.
    QString outline() const
    {
        const QString xml = QString::fromUtf8(
            info("pdftohtml", {QStringLiteral("-xml"), QStringLiteral("-i"), QStringLiteral("-stdout")}));
        static const QRegularExpression form(
            QStringLiteral("<outline>|</outline>|<item page=\"(\\d+)\">([^<]*)</item>"));
        QString out;
        int depth = 0;
        for (auto match = form.globalMatch(xml); match.hasNext();) {
            const QRegularExpressionMatch one = match.next();
            depth += one.captured(0) == u"<outline>" ? 1 : one.captured(0) == u"</outline>" ? -1 : 0;
            if (one.lastCapturedIndex() > 0)
                out += QString(depth - 1, u'>') + one.captured(2) + u'=' + one.captured(1) + u'\n';
        }
        return out;
    }

    MarkedRows rows;
    Report report{smallDesign(), QStringLiteral("22 November 2026"), &rows};
    FontWidths widths;
};

TEST_F(ReportExport, aPdfHasTitlePagesAndFonts)
{
    fill(500);
    ASSERT_TRUE(written(ExportKind::Pdf, kPdf));
    const int pages = ReportLayout(report, widths, Paper()).pages();
    const QByteArray told = info("pdfinfo");
    EXPECT_TRUE(told.contains("Title:           Small & <Bold>\n")) << told.constData();
    EXPECT_TRUE(told.contains("Pages:           " + QByteArray::number(pages) + '\n')) << told.constData();
    EXPECT_TRUE(told.contains("595 x 842 pts")) << told.constData();
    const QByteArrayList fonts = info("pdffonts").trimmed().split('\n');
    EXPECT_GT(fonts.size(), 2);
    for (qsizetype i = 2; i < fonts.size(); ++i)
        EXPECT_TRUE(fonts[i].simplified().contains(" yes no yes "))
            << fonts[i].constData(); // embedded, its text known
    const QString text = PrintedText(QString::fromUtf8(pdf())).text();
    for (int row = 0; row < 500; ++row)
        ASSERT_EQ(text.count(QRegularExpression(QStringLiteral("Song %1\\b").arg(row))), 1) << row;
    EXPECT_EQ(filesIn("d"), 1U);
}

TEST_F(ReportExport, aPdfOfWidePagesIsWide)
{
    fill(3);
    const Paper wide{{842, 595}};
    const ReportLayout layout(report, widths, wide);
    ASSERT_TRUE(exportReport({report, layout, widths}, ExportKind::Pdf, m_files, kPdf, goOn));
    EXPECT_EQ(PrintedText(QString::fromUtf8(pdf())).pageSizes().value(0), QSizeF(842, 595));
}

TEST_F(ReportExport, aPdfHasBookmarksInBookmarks)
{
    fill(230);
    ASSERT_TRUE(written(ExportKind::Pdf, kPdf));
    const ReportLayout layout(report, widths, Paper());
    QString wanted;
    for (int row = 0; row < 230; row += 10) {
        if (row % 100 == 0)
            wanted += QStringLiteral("DISK_%1=%2\n").arg(row / 100).arg(layout.pageOf(row));
        wanted += QStringLiteral(">Row %1 \u05D0 (\u266B)=%2\n").arg(row).arg(layout.pageOf(row));
    }
    EXPECT_EQ(outline().toStdString(), wanted.toStdString());
    const QByteArray checked = info("qpdf", {QStringLiteral("--check")});
    EXPECT_TRUE(checked.contains("No syntax or stream encoding errors")) << checked.constData();
}

TEST_F(ReportExport, thePagesAreFoundHoweverManyThereAre)
{
    constexpr int kRows = 8200;
    fill(kRows);
    for (int row = 0; row < kRows; ++row)
        rows.groups.insert(row);
    const Paper low{{595, 160}};
    const ReportLayout layout(report, widths, low);
    ASSERT_GT(layout.pages(), 8191);
    ASSERT_TRUE(exportReport({report, layout, widths}, ExportKind::Pdf, m_files, kPdf, goOn));
    const QString found = outline();
    EXPECT_EQ(found.count(u'\n'), 2 * kRows);
    EXPECT_TRUE(found.contains(QStringLiteral(">Row 8199 \u05D0 (\u266B)=%1\n").arg(layout.pages())));
}

TEST_F(ReportExport, anEmptyReportAndAPageHaveTheirBookmarks)
{
    for (const int count : {0, 1}) {
        rows.rows.clear();
        fill(count);
        EXPECT_TRUE(written(ExportKind::Pdf, kPdf));
        EXPECT_EQ(outline().count(u'\n'), 2 * count);
    }
}

TEST_F(ReportExport, aBookmarkLeadsToItsGroupsHeading)
{
    fill(130);
    ASSERT_TRUE(written(ExportKind::Pdf, kPdf));
    const ReportLayout layout(report, widths, Paper());
    const std::vector<PageItem> items = layout.page(layout.pageOf(100));
    const auto heading =
        std::find_if(items.begin(), items.end(), [](const PageItem& item) { return item.row == 100; });
    ASSERT_NE(heading, items.end());
    EXPECT_EQ(heading->text, QStringLiteral("DISK_1"));
    const QString top = QString::number(842 - heading->place.top(), 'f', 1);
    EXPECT_TRUE(m_tree.read("d/Report.pdf").contains(" 0 R/XYZ null " + top.toUtf8() + " null]"))
        << top.toStdString();
}

TEST_F(ReportExport, aPdfWithoutBookmarksAndOneWithoutRows)
{
    ASSERT_TRUE(written(ExportKind::Pdf, kPdf));
    EXPECT_EQ(outline(), QString());
    EXPECT_TRUE(info("pdfinfo").contains("Pages:           1\n"));
}

TEST_F(ReportExport, hostileRowsComeThroughEachWay)
{
    for (const QByteArray& value : hostileValues())
        rows.rows.push_back({std::nullopt, value});
    rows.groups = {0};
    for (const ExportKind kind : kKinds)
        EXPECT_TRUE(written(kind, QStringLiteral("D:\\%1").arg(int(kind))));
    ASSERT_TRUE(written(ExportKind::Pdf, kPdf));
    const QString text = PrintedText(QString::fromUtf8(pdf())).text();
    for (const char* shown :
         {"<script>alert('x')</script>&amp;<!--", "=HYPERLINK(\"http://x\")", "back\\slash"})
        EXPECT_TRUE(text.contains(QString::fromUtf8(shown))) << shown;
    EXPECT_EQ(m_tree.read("d/2").count("\r\n"), qsizetype(hostileValues().size()) + 2);
}

TEST_F(ReportExport, progressIsToldAgainAndAgainAndGrows)
{
    fill(10'000);
    rows.areSlow = true;
    QElapsedTimer timer;
    for (const ExportKind kind : kKinds) {
        std::vector<double> shares;
        timer.start();
        ASSERT_TRUE(written(kind, kPdf, [&](double share) {
            shares.push_back(share);
            return true;
        }));
        ASSERT_FALSE(shares.empty());
        EXPECT_EQ(shares.back(), 1);
        EXPECT_GE(shares.front(), 0);
        EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
        EXPECT_LE(qint64(shares.size()), timer.elapsed() / 50 + 2) << "not more than twenty times a second";
        EXPECT_GE(shares.size(), 3U);
    }
}

TEST_F(ReportExport, endedItLeavesTheOldFileAndNothingElse)
{
    fill(20'000);
    for (const ExportKind kind : kKinds)
        for (const bool isThere : {false, true}) {
            if (isThere)
                m_tree.write("d/Report.pdf", "old");
            for (const double end : {0.0, 0.4, 1.0})
                EXPECT_FALSE(written(kind, kPdf, [&](double share) { return share < end; })) << end;
            EXPECT_EQ(filesIn("d"), isThere ? 1U : 0U);
            EXPECT_TRUE(!isThere || m_tree.read("d/Report.pdf") == "old");
            std::filesystem::remove(pdf().toStdString());
        }
}

TEST_F(ReportExport, aFullDiskLeavesTheOldFileAndNothingElse)
{
    fill(20'000);
    if (mount("none", at("d").constData(), "tmpfs", 0, "size=100k") != 0)
        GTEST_SKIP() << "no small file system can be mounted here";
    m_tree.write("d/Report.pdf", "old");
    for (const ExportKind kind : kKinds) {
        EXPECT_EQ(errorOf([&] { written(kind, kPdf); }), 61);
        EXPECT_EQ(m_tree.read("d/Report.pdf"), "old");
        EXPECT_EQ(filesIn("d"), 1U);
    }
    umount(at("d").constData());
}

TEST_F(ReportExport, isRefusedBeforeAnythingIsDone)
{
    fill(3);
    int told = 0;
    const auto count = [&](double) { return ++told > 0; };
    for (const ExportKind kind : kKinds)
        EXPECT_EQ(errorOf([&] { written(kind, QStringLiteral("D:\\no\\x.pdf"), count); }), 76);
    EXPECT_EQ(told, 0);
}
