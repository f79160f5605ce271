// Finds a text on the pages.
#include "toolkit/pages/findbar.h"
#include "toolkit/pages/openedreport.h"
#include "toolkit/pages/pagesearch.h"
#include "toolkit/pages/pageview.h"
#include "toolkit/pages/previewform.h"

#include <QLabel>
#include <QLineEdit>

void PreviewForm::actFind_Triggered()
{
    findBar->open();
    if (m_search->text().isEmpty())
        find(findBar->txtFind->text());
}

// It begins at the hit that the reader looks at, else at the page.
void PreviewForm::find(const QString& text)
{
    const std::optional<TextFinder::Hit> hit = m_search->current();
    const int row = hit ? hit->row : m_opened->layout->firstRowOf(pageView->page());
    pageView->setFinder(nullptr);
    m_search->begin(m_opened->report, text, row);
    pageView->setFinder(m_search->finder());
    showFound();
}

void PreviewForm::goToHit(int direction)
{
    const QString& text = findBar->txtFind->text();
    if (!findBar->isVisible())
        actFind_Triggered();
    else if (text != m_search->text())
        find(text);
    else
        m_search->goOn(direction);
}

void PreviewForm::findTyped()
{
    if (findBar->txtFind->text() != m_search->text())
        find(findBar->txtFind->text());
}

void PreviewForm::showHit()
{
    if (const std::optional<TextFinder::Hit> hit = m_search->current())
        pageView->goToHit(*hit);
    showFound();
}

void PreviewForm::endFind()
{
    pageView->setFinder(nullptr);
    m_search->end();
    showFound();
    if (findBar->isAncestorOf(focusWidget()))
        pageView->setFocus();
}

void PreviewForm::showFound()
{
    const QString found = m_search->foundText();
    findBar->lblFound->setText(found);
    findBar->txtFind->setAccessibleDescription(found); // a screen reader says it
}
