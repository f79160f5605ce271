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
#include <QLocale>
#include <QVBoxLayout>

namespace {

QString withKey(QString text, const QAction& action)
{
    text.remove(QStringLiteral("..."));
    return QStringLiteral("%1 (%2)").arg(text, action.shortcut().toString(QKeySequence::NativeText));
}

// Collects what Tab goes to, as it stands in a row or a column.
void collectTabs(const QLayout& layout, QWidgetList& stops)
{
    for (int i = 0; i < layout.count(); ++i) {
        QWidget* const widget = layout.itemAt(i)->widget();
        if (widget && (widget->focusPolicy() & Qt::TabFocus))
            stops += widget;
        else if (widget && widget->layout())
            collectTabs(*widget->layout(), stops);
    }
}

void orderTabs(const QLayout& layout)
{
    QWidgetList stops;
    collectTabs(layout, stops);
    for (qsizetype i = 1; i < stops.size(); ++i)
        QWidget::setTabOrder(stops[i - 1], stops[i]);
}

} // namespace

struct PreviewForm::ActionRow {
    QAction*& member;
    const char* name;
    QString text;
    QString icon; // of those with a button
    const char* keys;
    void (PreviewForm::*handler)();
};

void PreviewForm::makeActions()
{
    using F = PreviewForm;
    makeActions({
        {actPrint, "actPrint", tr("Print..."), QStringLiteral("print"), "Ctrl+P", &F::actPrint_Triggered},
        {actExport, "actExport", tr("Export..."), QStringLiteral("export"), "Ctrl+E",
         &F::actExport_Triggered},
        {actFirst, "actFirst", tr("First page"), QStringLiteral("first"), "Ctrl+Home", &F::goToFirst},
        {actPrevious, "actPrevious", tr("Previous page"), QStringLiteral("previous"), "Ctrl+PgUp",
         &F::goBack},
        {actNext, "actNext", tr("Next page"), QStringLiteral("next"), "Ctrl+PgDown", &F::goAhead},
        {actLast, "actLast", tr("Last page"), QStringLiteral("last"), "Ctrl+End", &F::goToLast},
        {actZoomOut, "actZoomOut", tr("Smaller"), QStringLiteral("zoomout"), "Ctrl+-", &F::zoomOut},
        {actZoomIn, "actZoomIn", tr("Larger"), QStringLiteral("zoomin"), "Ctrl++; Ctrl+=", &F::zoomIn},
        {actActualSize, "actActualSize", tr("Actual size"), {}, "Ctrl+0", &F::zoomToActualSize},
        {actFind, "actFind", tr("Find"), QStringLiteral("find"), "Ctrl+F", &F::actFind_Triggered},
        {actFindNext, "actFindNext", tr("Next hit"), {}, "F3", &F::goToNextHit},
        {actFindPrevious, "actFindPrevious", tr("Previous hit"), {}, "Shift+F3", &F::goToPreviousHit},
        {actRefresh, "actRefresh", tr("Refresh"), QStringLiteral("refresh"), "F5", &F::actRefresh_Triggered},
        {actClose, "actClose", tr("Close"), QStringLiteral("close"), "Ctrl+W; Esc", &F::actClose_Triggered},
    });
    for (QAction* once : {actPrint, actExport, actFind, actRefresh, actClose})
        once->setAutoRepeat(false);
}

void PreviewForm::makeActions(std::initializer_list<ActionRow> rows)
{
    for (const ActionRow& row : rows) {
        row.member = new QAction(row.text, this);
        row.member->setObjectName(QLatin1String(row.name));
        row.member->setShortcuts(QKeySequence::listFromString(QLatin1String(row.keys)));
        row.member->setToolTip(withKey(row.text, *row.member));
        if (!row.icon.isEmpty())
            row.member->setIcon(QIcon(QStringLiteral(":/icons/%1.svg").arg(row.icon)));
        connect(row.member, &QAction::triggered, this,
                [this, handler = row.handler] { guard([this, handler] { (this->*handler)(); }); });
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
    txtPage->setFixedWidth(txtPage->fontMetrics().horizontalAdvance(QLocale().toString(9999999)) + 12);
    makeLabels({{lblPages, "lblPages", {}}, {lblStatus, "lblStatus", {}}});
    lblStatus->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a path may be long
    cboZoom = named(new ZoomBox(*pageView, centralWidget()), "cboZoom", tr("Zoom"));
    cboZoom->lineEdit()->setAccessibleName(cboZoom->accessibleName());
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
    orderTabs(*column);
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
