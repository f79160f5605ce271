// A report of 1,000,000 rows: opened to its first page, its page breaks, its last page, its memory.
#include "bench/support/benchreport.h"
#include "bench/support/measure.h"
#include "toolkit/pages/pagepainter.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <malloc.h>

#include <memory>

namespace {

constexpr int kRounds = 5;
constexpr int kPaintings = 200;
const QString kStatement = QStringLiteral("SELECT * FROM MP3");

// A screen's page at 100 %.
struct Screen {
    QImage image{1123, 794, QImage::Format_RGB32};

    void paint(const std::function<void(QPainter&)>& work)
    {
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.scale(96 / 72.0, 96 / 72.0);
        work(painter);
    }
};

double bytesOf(const ReportRows& rows, int columns)
{
    qsizetype bytes = 0;
    for (int row = 0; row < rows.count(); ++row)
        for (int column = 0; column < columns; ++column)
            bytes += rows.cell(row, column).value_or(QByteArrayView()).size();
    return static_cast<double>(bytes);
}

void tellMemory(BenchArchive& archive)
{
    malloc_trim(0);
    const long before = residentBytes();
    const OpenReport open(archive);
    malloc_trim(0);
    const auto taken = static_cast<double>(residentBytes() - before);
    constexpr double kMegabyte = 1024.0 * 1024.0;
    const int columns = static_cast<int>(open.report.design.columns.size());
    report("memory of a report of 1,000,000 rows", "the bytes of its text",
           {taken / kMegabyte, bytesOf(*open.rows, columns) / kMegabyte}, "MB");
}

// As a program would that knows nothing of pages.
void paintText(QPainter& painter, const std::vector<PageItem>& items)
{
    QFont font = QApplication::font();
    font.setPixelSize(9);
    painter.setFont(font);
    for (const PageItem& item : items)
        painter.drawText(item.place.bottomLeft(), item.text);
}

// The last page that is full.
void tellPainting(const OpenReport& open)
{
    Screen screen;
    PagePainter pages(open.widths);
    const int last = open.layout->pages() - 1;
    const std::vector<PageItem> items = open.layout->page(last);
    const auto go = [&](QPainter& painter) { pages.paint(painter, open.layout->page(last)); };
    const auto rival = [&](QPainter& painter) { paintText(painter, items); };
    report("go to the last page and paint it", "painting one page of text with QPainter",
           median(
               kPaintings, [&] { return milliseconds([&] { screen.paint(go); }); },
               [&] { return milliseconds([&] { screen.paint(rival); }); }));
}

void openAndPaint(BenchArchive& archive)
{
    Screen screen;
    const OpenReport open(archive);
    screen.paint([&](QPainter& painter) { PagePainter(open.widths).paint(painter, open.layout->page(1)); });
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    BenchArchive archive(argc > 1 ? argv[1] : "build/bench");
    tellMemory(archive);
    const std::string shell = "the `sqlite3` shell writing the same rows to /dev/null";
    const auto byShell = [&] { return archive.openByShell(kStatement); };
    report("open a report of 1,000,000 rows, its first page painted", shell,
           best(
               kRounds, [&] { return milliseconds([&] { openAndPaint(archive); }); }, byShell));
    OpenReport open(archive);
    report("all page breaks of 1,000,000 rows known", shell,
           best(
               kRounds, [&] { return milliseconds([&] { open.layOut(); }); }, byShell));
    tellPainting(open);
}
