#include "toolkit/pages/previewform.h"

#include "platform/busypointer.h"
#include "platform/printer.h"
#include "toolkit/pages/openedreport.h"
#include "toolkit/pages/pagesearch.h"
#include "toolkit/pages/pageview.h"
#include "toolkit/pages/workbar.h"
#include "toolkit/widgets/recordbar.h"

#include <QAction>
#include <QDate>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>

namespace {

// A report lies as its design wants it, however the printer's paper lies.
Paper turnedFor(const ReportDesign& design, const Paper& paper)
{
    if (design.isWide == (paper.size.width() > paper.size.height()))
        return paper;
    const QMarginsF& old = paper.margins;
    return {paper.size.transposed(), {old.bottom(), old.left(), old.top(), old.right()}};
}

QString grouped(int number)
{
    return QLocale().toString(number);
}

} // namespace

PreviewForm::PreviewForm(const PreviewSeams& seams, ReportDesign design)
    : Form(seams.dialogs, seams.program, design.name.toLatin1().constData(), design.caption),
      m_files(seams.files), m_printer(seams.printer), m_design(std::move(design))
{
    makeActions();
    makeControls();
    wire();
    place();
}

// Its boxes still tell that they lose the focus: while there is something to show.
PreviewForm::~PreviewForm()
{
    hide();
}

// The box that tells the error comes when this window is given up already: it is never seen half open.
void PreviewForm::Form_Load()
{
    try {
        showReport(open());
    } catch (...) {
        unload();
        throw;
    }
}

void PreviewForm::Form_Unload()
{
    endFind();
}

std::unique_ptr<OpenedReport> PreviewForm::open()
{
    const BusyPointer busy(program());
    const QString today = QLocale().toString(QDate::currentDate(), QLocale::LongFormat);
    auto opened = std::make_unique<OpenedReport>(m_design, today, readRows());
    opened->layout = std::make_unique<ReportLayout>(opened->report, m_widths, paper());
    return opened;
}

// The paper that was printed on last stays the one that is shown.
Paper PreviewForm::paper() const
{
    return m_opened ? m_opened->layout->paper() : turnedFor(m_design, m_printer.paper());
}

void PreviewForm::showReport(std::unique_ptr<OpenedReport> opened)
{
    endFind();
    std::swap(m_opened, opened); // the old one goes when nobody shows it any more
    pageView->showPages({m_opened->layout.get(), m_opened->rows.get(), &m_widths});
}

// What stood at the page's beginning is where the reader goes on.
void PreviewForm::changeLayout(std::unique_ptr<ReportLayout> layout)
{
    if (!layout || layout->paper() == m_opened->layout->paper())
        return;
    const int row = m_opened->layout->firstRowOf(pageView->page());
    pageView->changeLayout(*layout);
    m_opened->layout = std::move(layout);
    pageView->goToPage(row < m_opened->rows->count() ? m_opened->layout->pageOf(row)
                                                     : m_opened->layout->pages());
    showPage();
}

void PreviewForm::actRefresh_Triggered()
{
    tell({});
    std::unique_ptr<OpenedReport> opened = open();
    if (closing())
        return;
    const int page = pageView->page();
    const QString text = m_search->text();
    showReport(std::move(opened));
    pageView->goToPage(page);
    find(text);
    tell(tr("Read anew"));
}

void PreviewForm::goToFirst()
{
    pageView->goToPage(1);
}

void PreviewForm::goBack()
{
    pageView->goToPage(pageView->page() - 1);
}

void PreviewForm::goAhead()
{
    pageView->goToPage(pageView->page() + 1);
}

void PreviewForm::goToLast()
{
    pageView->goToPage(m_opened->layout->pages());
}

void PreviewForm::zoomOut()
{
    pageView->zoomBy(-1);
}

void PreviewForm::zoomIn()
{
    pageView->zoomBy(1);
}

void PreviewForm::zoomToActualSize()
{
    pageView->setZoom(1);
}

void PreviewForm::showPage()
{
    if (!m_opened)
        return;
    const int page = pageView->page();
    const int pages = m_opened->layout->pages();
    txtPage->setText(grouped(page));
    lblPages->setText(tr("of %1").arg(grouped(pages)));
    for (QAction* back : {actFirst, actPrevious})
        back->setEnabled(page > 1);
    for (QAction* ahead : {actNext, actLast})
        ahead->setEnabled(page < pages);
    showStatus();
}

// What is no number is forgotten; beyond the last page lies the last.
void PreviewForm::goToTypedPage()
{
    bool isNumber = false;
    const qlonglong page = QLocale().toLongLong(txtPage->text().trimmed(), &isNumber);
    if (isNumber)
        pageView->goToPage(static_cast<int>(std::clamp<qlonglong>(page, 1, m_opened->layout->pages())));
    else
        program().beep();
    showPage();
    pageView->setFocus();
}

QString PreviewForm::recordsText() const
{
    const int records = m_opened->rows->count();
    if (records > 0)
        return RecordBar::totalText(records);
    return m_design.hint.isEmpty() ? tr("No records") : m_design.hint;
}

void PreviewForm::showStatus()
{
    QStringList parts{tr("Page %1 of %2").arg(grouped(pageView->page()), grouped(m_opened->layout->pages())),
                      recordsText()};
    if (!m_message.isEmpty())
        parts += m_message;
    lblStatus->setText(parts.join(QStringLiteral(" · ")));
    lblStatus->setToolTip(m_message);
    pageView->setAccessibleDescription(parts.constFirst());
}

void PreviewForm::tell(const QString& message)
{
    m_message = message;
    showStatus();
}
