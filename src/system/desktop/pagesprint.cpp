#include "system/desktop/pagesprint.h"

#include "base/runtimeerror.h"
#include "platform/printedpages.h"
#include "posix/filecopy.h"
#include "system/desktop/printqueue.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryFile>

namespace {

constexpr int kResolution = 1200; // dots to an inch
constexpr double kPoint = kResolution / 72.0;

void setUp(QPdfWriter& writer, const PrintChoice& choice)
{
    QPageLayout layout = choice.layout;
    layout.setMode(QPageLayout::FullPageMode);
    layout.setMinimumMargins({});
    layout.setMargins({});
    writer.setResolution(kResolution);
    writer.setPageLayout(layout);
    writer.setTitle(choice.title);
    writer.setCreator(QCoreApplication::applicationName());
}

// The toolkit says nothing of a file that takes no more.
void check(const QFile& file)
{
    if (file.error() != QFile::NoError)
        throw RunTimeError(ErrorNumber::DiskFull);
}

class Painting {
public:
    Painting(QFile& file, const PrintChoice& choice) : m_file(file), m_choice(choice), m_writer(&file)
    {
        setUp(m_writer, choice);
        if (!m_painter.begin(&m_writer))
            throw RunTimeError(ErrorNumber::PrinterError);
    }

    bool paint(PrintedPages& pages, const PrintProgress& progress)
    {
        const int count = static_cast<int>(m_choice.pages.size());
        for (int done = 0; done < count; ++done) {
            if (!progress(done, count))
                return false;
            if (done > 0)
                m_writer.newPage();
            paintPage(pages, m_choice.pages[static_cast<std::size_t>(done)]);
            check(m_file);
        }
        m_painter.end();
        m_file.flush();
        check(m_file);
        return true;
    }

private:
    void paintPage(PrintedPages& pages, int page)
    {
        m_painter.save();
        m_painter.scale(kPoint, kPoint);
        pages.paintPage(m_painter, page);
        m_painter.restore();
    }

    QFile& m_file;
    const PrintChoice& m_choice;
    QPdfWriter m_writer;
    QPainter m_painter;
};

} // namespace

namespace {

// The file that a person names in place of a printer is a PDF file's: whatever else has that name, the
// archive for one, stays. A link is what it leads to.
void refuseOtherThanPdf(const QString& file)
{
    const QFileInfo there(QFileInfo(file).canonicalFilePath());
    if (!there.isFile() || there.suffix().compare(u"pdf", Qt::CaseInsensitive) == 0)
        return;
    throw RunTimeError(ErrorNumber::PermissionDenied, file)
        .withAdvice(QStringLiteral("This file is there already and is no PDF file, so that none takes its "
                                   "place. Choose another name, or one that ends with .pdf."));
}

} // namespace

PrintEnd printChosenPages(const PrintChoice& choice, PrintedPages& pages, const PrintProgress& progress)
{
    const int count = static_cast<int>(choice.pages.size());
    const auto goesOn = [&] { return progress(count, count); };
    QTemporaryFile file(QDir::tempPath() + QStringLiteral("/songbin-print-XXXXXX.pdf"));
    if (!choice.file.isEmpty())
        refuseOtherThanPdf(choice.file);
    if (count == 0) // only even ones were wanted, and there is one page
        return PrintEnd::Cancelled;
    if (!file.open())
        throw RunTimeError(ErrorNumber::DiskFull);
    if (!Painting(file, choice).paint(pages, progress) || !goesOn())
        return PrintEnd::Cancelled;
    if (!choice.file.isEmpty()) {
        copyToFile(file.handle(), QFile::encodeName(choice.file));
        return PrintEnd::Printed;
    }
    return printqueue::submit(choice, file.fileName(), goesOn) ? PrintEnd::Printed : PrintEnd::Cancelled;
}
