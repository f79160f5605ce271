// A report of 1,000,000 rows: opened to its first page, its page breaks, its last page, its memory.
#include "bench/support/archivedata.h"
#include "bench/support/measure.h"
#include "database/connection/connection.h"
#include "database/cursor/resultset.h"
#include "toolkit/pages/fontwidths.h"
#include "toolkit/pages/pagepainter.h"
#include "toolkit/pages/reportlayout.h"
#include "toolkit/pages/reportrows.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <malloc.h>

#include <optional>

namespace {

constexpr int kRounds = 5;
const QString kStatement = QStringLiteral("select fldArtist,fldSong,fldVolum,fldPath from MP3");

class ArchiveRows : public ReportRows {
public:
    explicit ArchiveRows(ResultSet rows) : m_rows(std::move(rows)) {}

    int count() const override { return static_cast<int>(m_rows.order.size()); }
    Cell cell(int row, int column) const override
    {
        return m_rows.cells.cell(m_rows.order[static_cast<std::size_t>(row)], column);
    }
    bool beginsGroup(int) const override { return false; }
    QStringList bookmarks(int) const override { return {}; }

private:
    ResultSet m_rows;
};

ReportField column(int number, int left, int width)
{
    return {.left = left, .width = width, .column = number};
}

ReportDesign listing()
{
    ReportDesign design;
    design.title = QStringLiteral("Songbin");
    design.reportHeader = {{.fields = {{.text = QStringLiteral("%D")}}}};
    design.pageHeader = {{.fields = {{.text = QStringLiteral("Content of Songbin")}}}, {.isRule = true}};
    design.detail = {
        {.fields = {column(0, 0, 200), column(1, 210, 260), column(2, 480, 110), column(3, 600, 400)}}};
    design.pageFooter = {{.fields = {{.text = QStringLiteral("%p Of %P")}}}};
    return design;
}

// A report as a preview holds it.
struct OpenReport {
    explicit OpenReport(BenchArchive& archive) : connection(archive.drives())
    {
        connection.open(archive.connectionText());
        rows.emplace(fetchRows(connection, kStatement));
        report.rows = &*rows;
        layout.emplace(report, widths, Paper());
    }

    Connection connection;
    std::optional<ArchiveRows> rows;
    Report report{.design = listing(), .date = QStringLiteral("22 November 2026"), .rows = nullptr};
    FontWidths widths;
    std::optional<ReportLayout> layout;
};

// A screen's page at 100 %.
struct Screen {
    QImage image{794, 1123, QImage::Format_RGB32};

    void paint(const std::function<void(QPainter&)>& work)
    {
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.scale(96 / 72.0, 96 / 72.0);
        work(painter);
    }
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    BenchArchive archive(argc > 1 ? argv[1] : "build/bench");
    const std::string shell = "the `sqlite3` shell writing the same rows to /dev/null";
    const auto byShell = [&] { return archive.openByShell(kStatement); };
    Screen screen;
    malloc_trim(0);
    const long before = residentBytes();
    auto open = std::make_unique<OpenReport>(archive);
    malloc_trim(0);
    const long after = residentBytes();
    qsizetype text = 0;
    for (int row = 0; row < open->rows->count(); ++row)
        for (int column = 0; column < 4; ++column)
            text += open->rows->cell(row, column).value_or(QByteArrayView()).size();

    report(
        "all page breaks of 1,000,000 rows known", shell,
        best(
            kRounds,
            [&] { return milliseconds([&] { open->layout.emplace(open->report, open->widths, Paper()); }); },
            byShell));
    const int last = open->layout->pages();
    PagePainter pages(open->widths);
    const std::vector<PageItem> items = open->layout->page(last);
    QFont font = QApplication::font();
    font.setPixelSize(9);
    report("go to the last page and paint it", "painting one page of text with QPainter",
           best(
               200,
               [&] {
                   return milliseconds([&] {
                       screen.paint(
                           [&](QPainter& painter) { pages.paint(painter, open->layout->page(last)); });
                   });
               },
               [&] {
                   return milliseconds([&] {
                       screen.paint([&](QPainter& painter) {
                           painter.setFont(font);
                           for (const PageItem& item : items)
                               painter.drawText(item.place.bottomLeft(), item.text);
                       });
                   });
               }));
    std::fprintf(stderr, "%d pages, %zu items on the last\n", last, items.size());
    constexpr double kMegabyte = 1024.0 * 1024.0;
    report("memory of a report of 1,000,000 rows", "the bytes of its text",
           {static_cast<double>(after - before) / kMegabyte, static_cast<double>(text) / kMegabyte}, "MB");
    open.reset();
    report("open a report of 1,000,000 rows, its first page painted", shell,
           best(
               kRounds,
               [&] {
                   return milliseconds([&] {
                       OpenReport report(archive);
                       screen.paint([&](QPainter& painter) {
                           PagePainter(report.widths).paint(painter, report.layout->page(1));
                       });
                   });
               },
               byShell));
}
