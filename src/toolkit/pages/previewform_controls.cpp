// Makes the controls of the preview window and says where they stand.
#include "toolkit/pages/accessiblepages.h"
#include "toolkit/pages/findbar.h"
#include "toolkit/pages/pagesearch.h"
#include "toolkit/pages/pageview.h"
#include "toolkit/pages/previewform.h"
#include "toolkit/pages/toolstrip.h"
#include "toolkit/pages/workbar.h"
#include "toolkit/pages/zoombox.h"

#include <QAction>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace {

struct ActionRow {
    QAction*& member;
    const char* name;
    QString text;
    const char* icon;
    QList<QKeySequence> keys;
    std::function<void()> handler;
};

QString withKey(QString text, const QList<QKeySequence>& keys)
{
    text.remove(QStringLiteral("..."));
    return QStringLiteral("%1 (%2)").arg(text, keys.constFirst().toString(QKeySequence::NativeText));
}

} // namespace

void PreviewForm::makeActions()
{
    const std::vector<ActionRow> rows{
        {actPrint, "actPrint", tr("Print..."), "print", {tr("Ctrl+P")}, [this] { actPrint_Triggered(); }},
        {actExport,
         "actExport",
         tr("Export..."),
         "export",
         {tr("Ctrl+E")},
         [this] { actExport_Triggered(); }},
        {actFirst,
         "actFirst",
         tr("First page"),
         "first",
         {tr("Ctrl+Home")},
         [this] { pageView->goToPage(1); }},
        {actPrevious,
         "actPrevious",
         tr("Previous page"),
         "previous",
         {tr("Ctrl+PgUp")},
         [this] { pageView->goToPage(pageView->page() - 1); }},
        {actNext,
         "actNext",
         tr("Next page"),
         "next",
         {tr("Ctrl+PgDown")},
         [this] { pageView->goToPage(pageView->page() + 1); }},
        {actLast,
         "actLast",
         tr("Last page"),
         "last",
         {tr("Ctrl+End")},
         [this] { pageView->goToPage(INT_MAX); }},
        {actZoomOut,
         "actZoomOut",
         tr("Smaller"),
         "zoomout",
         {tr("Ctrl+-")},
         [this] { pageView->zoomBy(-1); }},
        {actZoomIn,
         "actZoomIn",
         tr("Larger"),
         "zoomin",
         {tr("Ctrl++"), tr("Ctrl+=")},
         [this] { pageView->zoomBy(1); }},
        {actActualSize,
         "actActualSize",
         tr("Actual size"),
         "",
         {tr("Ctrl+0")},
         [this] { pageView->setZoom(1); }},
        {actFind, "actFind", tr("Find"), "find", {tr("Ctrl+F")}, [this] { actFind_Triggered(); }},
        {actFindNext, "actFindNext", tr("Next hit"), "", {tr("F3")}, [this] { goToHit(1); }},
        {actFindPrevious,
         "actFindPrevious",
         tr("Previous hit"),
         "",
         {tr("Shift+F3")},
         [this] { goToHit(-1); }},
        {actRefresh, "actRefresh", tr("Refresh"), "refresh", {tr("F5")}, [this] { actRefresh_Triggered(); }},
        {actClose, "actClose", tr("Close"), "close", {tr("Ctrl+W"), tr("Esc")}, [this] { unload(); }},
    };
    for (const ActionRow& row : rows) {
        row.member = new QAction(row.text, this);
        row.member->setObjectName(QLatin1String(row.name));
        if (*row.icon)
            row.member->setIcon(QIcon(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(row.icon))));
        row.member->setToolTip(withKey(row.text, row.keys));
        row.member->setShortcuts(row.keys);
        connect(row.member, &QAction::triggered, this, [this, handler = row.handler] { guard(handler); });
        addAction(row.member);
    }
}

void PreviewForm::makeControls()
{
    makePagesAccessible();
    pageView = named(new PageView(centralWidget()), "pageView", tr("Pages"));
    txtPage = named(new QLineEdit(centralWidget()), "txtPage", tr("Page"));
    txtPage->setAlignment(Qt::AlignRight);
    txtPage->setToolTip(tr("Type a page's number and press Enter"));
    txtPage->setFixedWidth(txtPage->fontMetrics().horizontalAdvance(QStringLiteral("0000000")) + 12);
    makeLabels({{lblPages, "lblPages", {}}, {lblStatus, "lblStatus", {}}});
    lblStatus->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a path may be long
    cboZoom = named(new ZoomBox(*pageView, centralWidget()), "cboZoom", tr("Zoom"));
    cboZoom->setToolTip(tr("Size of the pages (Ctrl and wheel, Ctrl++, Ctrl+-, Ctrl+0)"));
    findBar = named(new FindBar(centralWidget()), "findBar");
    workBar = named(new WorkBar(centralWidget()), "workBar");
    m_search = new PageSearch(this);
}

void PreviewForm::fillStrip(ToolStrip& strip)
{
    strip.addButtonWithText(actPrint);
    strip.addButtonWithText(actExport);
    strip.addGap();
    strip.addButton(actFirst);
    strip.addButton(actPrevious);
    strip.addControl(txtPage);
    strip.addControl(lblPages);
    strip.addButton(actNext);
    strip.addButton(actLast);
    strip.addGap();
    strip.addButton(actZoomOut);
    strip.addControl(cboZoom);
    strip.addButton(actZoomIn);
    strip.addGap();
    strip.addButtonWithText(actFind);
    strip.addButtonWithText(actRefresh);
    strip.addSpring();
    strip.addButtonWithText(actClose);
}

void PreviewForm::place()
{
    auto* strip = new ToolStrip(centralWidget());
    fillStrip(*strip);
    auto* column = new QVBoxLayout(centralWidget());
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(strip);
    column->addWidget(findBar);
    column->addWidget(pageView, 1);
    column->addWidget(workBar);
    column->addWidget(lblStatus);
    lblStatus->setContentsMargins(10, 5, 10, 6);
    findBar->hide();
    pageView->setFocus();
    resize(fittingSize(m_design.isWide ? QSize(1180, 820) : QSize(930, 900)));
}

void PreviewForm::wire()
{
    const auto run = [this](auto* sender, auto signal, void (PreviewForm::*handler)()) {
        connect(sender, signal, this, [this, handler] { guard([this, handler] { (this->*handler)(); }); });
    };
    run(pageView, &PageView::pageChanged, &PreviewForm::showPage);
    run(txtPage, &QLineEdit::returnPressed, &PreviewForm::goToTypedPage);
    run(txtPage, &QLineEdit::editingFinished, &PreviewForm::showPage);
    run(m_search, &PageSearch::counted, &PreviewForm::showFound);
    run(m_search, &PageSearch::currentChanged, &PreviewForm::showHit);
    run(findBar, &FindBar::textChanged, &PreviewForm::findTyped);
    run(findBar, &FindBar::closed, &PreviewForm::endFind);
    connect(findBar, &FindBar::next, actFindNext, &QAction::trigger);
    connect(findBar, &FindBar::previous, actFindPrevious, &QAction::trigger);
}

// Escape ends what is under way first: work, then the find bar. The window's own Escape is told so.
bool PreviewForm::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && takesEscape() &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return Form::event(event);
}

bool PreviewForm::takesEscape() const
{
    return workBar->isWorking() || findBar->isVisible();
}

// What scrolls does so from any control that has no use for it.
void PreviewForm::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        if (workBar->isWorking())
            return workBar->cancel();
        return findBar->hide();
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (!pageView->hasFocus())
            QCoreApplication::sendEvent(pageView, event);
        return;
    default:
        return Form::keyPressEvent(event);
    }
}
