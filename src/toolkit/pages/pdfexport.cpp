#include "toolkit/pages/pdfexport.h"

#include "base/runtimeerror.h"
#include "toolkit/pages/exportedreport.h"
#include "toolkit/pages/exportprogress.h"
#include "toolkit/pages/pagepainter.h"
#include "toolkit/pages/pdfdevice.h"
#include "toolkit/pages/pdfoutline.h"
#include "toolkit/pages/piecewriter.h"
#include "toolkit/pages/report.h"
#include "toolkit/pages/reportlayout.h"
#include "toolkit/pages/reportrows.h"

#include <QCoreApplication>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>

namespace {

constexpr int kResolution = 1200; // dots to an inch
constexpr double kPoint = kResolution / 72.0;

// Collects which bookmarks begin on which page.
class Bookmarks {
public:
    explicit Bookmarks(const ReportLayout& layout, const ReportRows& rows) : m_layout(layout), m_rows(rows) {}

    void addPage(int page, const std::vector<PageItem>& items)
    {
        const int end = page < m_layout.pages() ? m_layout.firstRowOf(page + 1) : m_rows.count();
        auto item = items.begin();
        for (int row = m_layout.firstRowOf(page); row < end; ++row) {
            const QStringList titles = m_rows.bookmarks(row);
            if (titles.isEmpty())
                continue;
            item = std::find_if(item, items.end(), [row](const PageItem& one) { return one.row >= row; });
            add(titles, row, page, item == items.end() ? m_layout.paper().margins.top() : item->place.top());
        }
    }
    const std::vector<PdfBookmark>& all() const { return m_all; }

private:
    void add(const QStringList& titles, int row, int page, double top)
    {
        const double height = m_layout.paper().size.height();
        for (int level = 0; level < titles.size(); ++level)
            if (!titles[level].isEmpty())
                m_all.push_back({row, level, page - 1, static_cast<float>(height - top)});
    }

    const ReportLayout& m_layout;
    const ReportRows& m_rows;
    std::vector<PdfBookmark> m_all;
};

void setUp(QPdfWriter& writer, const ExportedReport& what)
{
    const QSizeF size = what.layout.paper().size;
    const bool isWide = size.width() > size.height();
    writer.setResolution(kResolution);
    writer.setPageLayout(QPageLayout(
        QPageSize(isWide ? size.transposed() : size, QPageSize::Point, {}, QPageSize::FuzzyOrientationMatch),
        isWide ? QPageLayout::Landscape : QPageLayout::Portrait, {}));
    writer.setTitle(what.report.design.title);
    writer.setCreator(QCoreApplication::applicationName());
}

class PagesWriter {
public:
    PagesWriter(const ExportedReport& what, PdfDevice& device, ExportProgress& progress)
        : m_what(what), m_device(device), m_progress(progress), m_pagePainter(what.widths), m_writer(&device)
    {
        setUp(m_writer, what);
    }

    bool write(Bookmarks& bookmarks)
    {
        if (!m_painter.begin(&m_writer))
            throw RunTimeError(ErrorNumber::PathFileAccess);
        m_device.firstPageBegins();
        const bool isWhole = writePages(bookmarks);
        if (isWhole)
            m_device.lastPageIsWritten();
        else
            m_device.giveUp();
        m_painter.end();
        return isWhole;
    }

private:
    bool writePages(Bookmarks& bookmarks)
    {
        const int pages = m_what.layout.pages();
        for (int page = 1; page <= pages; ++page) {
            if (!m_progress.goesOn((page - 1.0) / pages))
                return false;
            if (page > 1)
                m_writer.newPage();
            writePage(page, bookmarks);
            m_device.check();
        }
        return true;
    }
    void writePage(int page, Bookmarks& bookmarks)
    {
        const std::vector<PageItem> items = m_what.layout.page(page);
        bookmarks.addPage(page, items);
        m_painter.save();
        m_painter.scale(kPoint, kPoint);
        m_pagePainter.paint(m_painter, items);
        m_painter.restore();
    }

    const ExportedReport& m_what;
    PdfDevice& m_device;
    ExportProgress& m_progress;
    PagePainter m_pagePainter;
    QPdfWriter m_writer;
    QPainter m_painter;
};

bool addBookmarks(const Bookmarks& bookmarks, const PdfPages& pages, const ReportRows& rows, PieceWriter& out,
                  ExportProgress& progress)
{
    const auto title = [&](const PdfBookmark& bookmark) {
        return rows.bookmarks(bookmark.row).value(bookmark.level);
    };
    return writeOutline(pages, bookmarks.all(), title, out, progress);
}

} // namespace

bool writePdf(const ExportedReport& what, PieceWriter& out, ExportProgress& progress)
{
    PdfDevice device(out);
    Bookmarks bookmarks(what.layout, *what.report.rows);
    if (!PagesWriter(what, device, progress).write(bookmarks))
        return false;
    device.check();
    if (!bookmarks.all().empty() && !addBookmarks(bookmarks, pagesOfPdf(device.ends(), what.layout.pages()),
                                                  *what.report.rows, out, progress))
        return false;
    out.flush();
    return true;
}
