#include "tests/toolkit/pages/previewtest.h"

#include "toolkit/pages/reportlayout.h"

#include <QScreen>
#include <QScrollBar>

namespace {

struct PreviewWindow : PreviewTest {};

} // namespace

TEST_F(PreviewWindow, isNamedAsItsReportAndSaysWhereItStands)
{
    open(3000);
    EXPECT_EQ(form->objectName(), u"rptTest");
    EXPECT_EQ(form->windowTitle(), u"All songs");
    EXPECT_TRUE(form->isVisible());
    EXPECT_GT(pages(), 10);
    EXPECT_EQ(form->txtPage->text(), u"1");
    EXPECT_EQ(form->lblPages->text(), u"of %1"_qs.arg(pages()));
    EXPECT_EQ(status(), u"Page 1 of %1 · 3,000 records"_qs.arg(pages()));
}

TEST_F(PreviewWindow, numbersAreGroupedAsTheLocaleDoes)
{
    open(90000);
    ASSERT_GT(pages(), 999);
    EXPECT_EQ(form->lblPages->text(), u"of "_qs + QLocale().toString(pages()));
    EXPECT_TRUE(form->lblPages->text().contains(u','));
    EXPECT_TRUE(status().startsWith(u"Page 1 of "_qs + QLocale().toString(pages())));
    form->pageView->goToPage(1234);
    EXPECT_EQ(form->txtPage->text(), u"1,234");
}

TEST_F(PreviewWindow, aPagesNumberMayBeTypedGroupedOrNot)
{
    open(90000);
    for (const auto& [text, wanted] : {std::pair(u"1,234"_qs, 1234), {u"1100"_qs, 1100}}) {
        form->txtPage->setFocus();
        form->txtPage->selectAll();
        type(text);
        key(Qt::Key_Return);
        EXPECT_EQ(page(), wanted);
        EXPECT_EQ(form->txtPage->text(), QLocale().toString(wanted));
    }
    EXPECT_EQ(world.program.beeps, 0);
}

TEST_F(PreviewWindow, theBoxIsWideEnoughForTheLongestNumber)
{
    open(1);
    const int room = form->txtPage->width() - 12;
    EXPECT_GE(room, form->txtPage->fontMetrics().horizontalAdvance(u"9,999,999"_qs));
}

TEST_F(PreviewWindow, everyActionHasItsNameItsKeyAndItsButton)
{
    open(1);
    const QList<std::pair<const char*, QString>> wanted{
        {"actPrint", u"Ctrl+P"_qs},     {"actExport", u"Ctrl+E"_qs},      {"actFirst", u"Ctrl+Home"_qs},
        {"actNext", u"Ctrl+PgDown"_qs}, {"actPrevious", u"Ctrl+PgUp"_qs}, {"actLast", u"Ctrl+End"_qs},
        {"actFind", u"Ctrl+F"_qs},      {"actRefresh", u"F5"_qs},         {"actClose", u"Ctrl+W"_qs}};
    for (const auto& [name, shortcut] : wanted) {
        auto* action = find<QAction>(*form, name);
        ASSERT_NE(action, nullptr);
        EXPECT_EQ(action->shortcut().toString().toStdString(), shortcut.toStdString());
        EXPECT_FALSE(action->icon().isNull()) << name;
        const auto buttons = form->findChildren<QToolButton*>();
        const bool isThere = std::ranges::any_of(
            buttons, [&](QToolButton* button) { return button->defaultAction() == action; });
        EXPECT_TRUE(isThere) << name;
    }
    EXPECT_TRUE(form->actClose->shortcuts().contains(QKeySequence(Qt::Key_Escape)));
}

TEST_F(PreviewWindow, theActionsGoFromPageToPage)
{
    open(3000);
    EXPECT_FALSE(form->actFirst->isEnabled());
    EXPECT_FALSE(form->actPrevious->isEnabled());
    form->actNext->trigger();
    form->actNext->trigger();
    EXPECT_EQ(page(), 3);
    EXPECT_EQ(form->txtPage->text(), u"3");
    EXPECT_TRUE(status().startsWith(u"Page 3 of "));
    form->actPrevious->trigger();
    EXPECT_EQ(page(), 2);
    form->actLast->trigger();
    EXPECT_EQ(page(), pages());
    EXPECT_FALSE(form->actNext->isEnabled());
    EXPECT_FALSE(form->actLast->isEnabled());
    form->actFirst->trigger();
    EXPECT_EQ(page(), 1);
}

TEST_F(PreviewWindow, eachPageIsTheOneInViewAlsoWhereManyFit)
{
    open(500);
    form->pageView->setZoom(0.25);
    for (int number = 1; number <= pages(); ++number) {
        EXPECT_EQ(page(), number);
        form->actNext->trigger();
    }
}

TEST_F(PreviewWindow, aTypedPageIsGoneToAndTheNearestWhereThereIsNone)
{
    open(3000);
    const auto typed = [this](const QString& text) {
        form->txtPage->setFocus();
        form->txtPage->selectAll();
        type(text);
        key(Qt::Key_Return);
        return form->txtPage->text();
    };
    EXPECT_EQ(typed(u"7"_qs), u"7");
    EXPECT_EQ(page(), 7);
    EXPECT_TRUE(form->pageView->hasFocus());
    EXPECT_EQ(typed(u"99999999999"_qs), QString::number(pages()));
    EXPECT_EQ(typed(u"0"_qs), u"1");
    EXPECT_EQ(typed(u"-5"_qs), u"1");
    EXPECT_EQ(world.program.beeps, 0);
    EXPECT_EQ(typed(u"seven"_qs), u"1");
    EXPECT_EQ(world.program.beeps, 1);
}

TEST_F(PreviewWindow, keysWalkThroughThePages)
{
    open(3000);
    EXPECT_TRUE(form->pageView->hasFocus());
    form->pageView->setFit(PageView::Fit::Page);
    key(Qt::Key_PageDown);
    key(Qt::Key_Space);
    EXPECT_EQ(page(), 3);
    key(Qt::Key_PageUp);
    EXPECT_EQ(page(), 2);
    key(Qt::Key_End);
    EXPECT_EQ(page(), pages());
    key(Qt::Key_Home);
    EXPECT_EQ(page(), 1);
    key(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(page(), 2);
    key(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(page(), pages());
    key(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(page(), 1);
}

TEST_F(PreviewWindow, keysScrollWhereAPageIsLongerThanTheView)
{
    open(3000);
    form->pageView->setZoom(2);
    form->pageView->goToPage(1);
    QScrollBar& bar = *form->pageView->verticalScrollBar();
    key(Qt::Key_Down);
    const int line = bar.value();
    EXPECT_GT(line, 0);
    key(Qt::Key_PageDown);
    EXPECT_GT(bar.value(), line + form->pageView->viewport()->height() / 2);
    EXPECT_EQ(page(), 1);
    key(Qt::Key_PageUp);
    key(Qt::Key_Up);
    EXPECT_EQ(bar.value(), 0);
}

TEST_F(PreviewWindow, keysThatScrollDoSoFromTheOtherControlsToo)
{
    open(3000);
    form->pageView->setFit(PageView::Fit::Page);
    form->txtPage->setFocus();
    key(Qt::Key_PageDown);
    EXPECT_EQ(page(), 2);
    EXPECT_EQ(form->txtPage->text(), u"2");
}

TEST_F(PreviewWindow, scrollingTellsThePageThatIsSeenMost)
{
    open(3000);
    QScrollBar& bar = *form->pageView->verticalScrollBar();
    const auto top = [this](int number) { return qRound(form->pageView->placeOfPage(number).top()); };
    bar.setValue(bar.value() + top(5) - 10);
    EXPECT_EQ(page(), 5);
    EXPECT_EQ(form->txtPage->text(), u"5");
    bar.setValue(bar.maximum());
    EXPECT_EQ(page(), pages());
    bar.setValue(0);
    EXPECT_EQ(page(), 1);
}

TEST_F(PreviewWindow, pagesAreWhiteOnAGreyGroundWithText)
{
    open(200);
    const QImage image = form->pageView->viewport()->grab().toImage();
    const QRectF place = form->pageView->placeOfPage(1);
    EXPECT_EQ(image.pixelColor(place.topLeft().toPoint() + QPoint(5, 5)), QColor(Qt::white));
    EXPECT_NE(image.pixelColor(2, 2), QColor(Qt::white));
    int dark = 0;
    for (int x = qRound(place.left()); x < qRound(place.right()); ++x)
        for (int y = qRound(place.top()); y < std::min(qRound(place.bottom()), image.height()); ++y)
            dark += image.pixelColor(x, y).lightness() < 100 ? 1 : 0;
    EXPECT_GT(dark, 500);
}

TEST_F(PreviewWindow, scrollingPaintsWhatAWholePaintWouldPaint)
{
    open(500);
    QScrollBar& bar = *form->pageView->verticalScrollBar();
    for (const int way : {7, 300, 1100, -450, 60}) {
        bar.setValue(bar.value() + way);
        QCoreApplication::processEvents();
    }
    const auto shown = [this] { return form->screen()->grabWindow(form->winId()).toImage(); };
    const QImage scrolled = shown();
    form->pageView->viewport()->repaint();
    const QImage whole = shown();
    ASSERT_EQ(scrolled.size(), whole.size());
    ASSERT_GT(whole.width(), 100);
    int others = 0; // the shadow's edge may be blended another way
    for (int y = 0; y < whole.height(); ++y)
        for (int x = 0; x < whole.width(); ++x)
            others += std::abs(qGray(whole.pixel(x, y)) - qGray(scrolled.pixel(x, y))) > 3 ? 1 : 0;
    EXPECT_EQ(others, 0);
}

TEST_F(PreviewWindow, theZoomIsChosenTypedAndTurned)
{
    open(500);
    PageView& view = *form->pageView;
    EXPECT_EQ(form->cboZoom->currentText(), u"Fit Width");
    EXPECT_NEAR(view.placeOfPage(1).width(), view.viewport()->width(), 60);
    Q_EMIT form->cboZoom->textActivated(u"Fit Page"_qs);
    EXPECT_LE(view.placeOfPage(1).height(), view.viewport()->height());
    EXPECT_EQ(form->cboZoom->currentText(), u"Fit Page");
    form->cboZoom->setFocus();
    form->cboZoom->lineEdit()->selectAll();
    type(u"130 %"_qs);
    key(Qt::Key_Return);
    EXPECT_DOUBLE_EQ(view.zoom(), 1.3);
    EXPECT_EQ(form->cboZoom->currentText(), u"130%");
    EXPECT_TRUE(view.hasFocus());
    key(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(view.zoom(), 1.5);
    key(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(view.zoom(), 1.25);
    key(Qt::Key_0, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(view.zoom(), 1);
    EXPECT_EQ(form->cboZoom->currentText(), u"100%");
}

TEST_F(PreviewWindow, whatIsNoZoomChangesNothing)
{
    open(10);
    for (const QString& text : {u"large"_qs, u"0"_qs, u"-50"_qs, QString()}) {
        form->cboZoom->setEditText(text);
        Q_EMIT form->cboZoom->lineEdit()->returnPressed();
        EXPECT_EQ(form->cboZoom->currentText(), u"Fit Width");
    }
    Q_EMIT form->cboZoom->textActivated(u"999999"_qs);
    EXPECT_DOUBLE_EQ(form->pageView->zoom(), 4);
}

TEST_F(PreviewWindow, theWheelWithCtrlZoomsRoundThePointer)
{
    open(3000);
    PageView& view = *form->pageView;
    view.goToPage(20);
    const QPointF pointer(200, 150);
    const auto spot = [&] { return (pointer - view.placeOfPage(20).topLeft()) / view.pixelsPerPoint(); };
    const QPointF before = spot();
    const double zoom = view.zoom();
    QWheelEvent turn(pointer, view.viewport()->mapToGlobal(pointer), {}, {0, 120}, Qt::NoButton,
                     Qt::ControlModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(view.viewport(), &turn);
    EXPECT_GT(view.zoom(), zoom);
    EXPECT_NEAR(spot().y(), before.y(), 2);
}

TEST_F(PreviewWindow, aLargerWindowKeepsThePlaceThatIsRead)
{
    open(3000);
    form->pageView->goToPage(20);
    form->resize(form->width() + 300, form->height() + 50);
    QCoreApplication::processEvents();
    EXPECT_EQ(page(), 20);
    EXPECT_NEAR(form->pageView->placeOfPage(20).top(), 18, 20);
    EXPECT_EQ(form->cboZoom->currentText(), u"Fit Width");
}

TEST_F(PreviewWindow, inANarrowWindowTheButtonsShowTheirIconsAlone)
{
    open(10);
    const auto print = [this] {
        for (QToolButton* button : form->findChildren<QToolButton*>())
            if (button->defaultAction() == form->actPrint)
                return button->toolButtonStyle();
        return Qt::ToolButtonTextOnly;
    };
    form->resize(1100, 500);
    QCoreApplication::processEvents();
    EXPECT_EQ(print(), Qt::ToolButtonTextBesideIcon);
    form->resize(form->minimumSizeHint().width(), 500);
    QCoreApplication::processEvents();
    EXPECT_EQ(print(), Qt::ToolButtonIconOnly);
    EXPECT_LT(form->width(), 700);
}

TEST_F(PreviewWindow, anEmptyReportSaysWhatToDo)
{
    open();
    EXPECT_EQ(pages(), 1);
    EXPECT_EQ(status(), u"Page 1 of 1 · No records. Do something first.");
    EXPECT_FALSE(form->actNext->isEnabled());
    form->actFind->trigger();
    type(u"x"_qs);
    key(Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !form->findBar->lblFound->text().isEmpty(); }));
}

TEST_F(PreviewWindow, oneRecordIsOneRecord)
{
    open(1);
    EXPECT_EQ(status(), u"Page 1 of 1 · 1 record");
}

TEST_F(PreviewWindow, aReportThatCannotBeReadIsShownInTheSystemsBoxAndOpensNoWindow)
{
    bool wasSeen = false;
    onRead = [&] { throw RunTimeError(ErrorNumber::FileNotFound); };
    world.program.onYield = [&] { wasSeen = wasSeen || form->isVisible(); };
    open(5);
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{53});
    EXPECT_TRUE(isGone());
    EXPECT_FALSE(wasSeen);
    EXPECT_FALSE(world.program.busyPointer);
}

TEST_F(PreviewWindow, f5ReadsTheRowsAnewAndStaysOnThePage)
{
    open(3000);
    form->pageView->goToPage(4);
    rows.resize(1000);
    key(Qt::Key_F5);
    EXPECT_EQ(page(), 4);
    EXPECT_TRUE(status().contains(u"1,000 records")) << status().toStdString();
    rows.resize(10);
    key(Qt::Key_F5);
    EXPECT_EQ(page(), 1);
    EXPECT_EQ(form->lblPages->text(), u"of 1");
}

TEST_F(PreviewWindow, aRefreshThatFailsLeavesThePagesAsTheyWere)
{
    open(3000);
    form->pageView->goToPage(4);
    const QString before = status();
    const QString first = form->pageView->items(4).front().text;
    rows.clear();
    onRead = [] { throw RunTimeError(ErrorNumber::FileNotFound); };
    key(Qt::Key_F5);
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{53});
    EXPECT_EQ(status(), before);
    EXPECT_EQ(form->pageView->items(4).front().text, first);
    EXPECT_TRUE(form->isVisible());
    form->actNext->trigger();
    EXPECT_EQ(page(), 5);
}

TEST_F(PreviewWindow, shownAgainItComesAsItStands)
{
    open(3000);
    form->pageView->goToPage(4);
    int reads = 0;
    onRead = [&] { ++reads; };
    form->showForm();
    EXPECT_EQ(page(), 4);
    EXPECT_EQ(reads, 0);
}

TEST_F(PreviewWindow, ctrlWAndEscapeCloseIt)
{
    open(10);
    key(Qt::Key_W, Qt::ControlModifier);
    EXPECT_TRUE(isGone());
    rows.clear();
    open(10);
    key(Qt::Key_Escape);
    EXPECT_TRUE(isGone());
}

TEST_F(PreviewWindow, aWideReportLiesOnTurnedPaper)
{
    world.printer.sheet = {{500, 800}, {10, 20, 30, 40}};
    design.isWide = true;
    open(10);
    EXPECT_EQ(form->pageView->layout()->paper().size, QSizeF(800, 500));
    EXPECT_EQ(form->pageView->layout()->paper().margins, QMarginsF(40, 10, 20, 30));
}

TEST_F(PreviewWindow, aReportThatIsNotWideStandsOnAPrinterThatIsTurned)
{
    world.printer.sheet = {{800, 500}, {}};
    open(10);
    EXPECT_EQ(form->pageView->layout()->paper().size, QSizeF(500, 800));
}

TEST_F(PreviewWindow, tabGoesAlongTheStripAsItStandsAndThenDown)
{
    open(3000);
    form->pageView->goToPage(2); // all buttons are enabled
    form->activateWindow();
    form->findBar->open();
    form->pageView->setFocus();
    key(Qt::Key_Tab);
    QList<QPoint> places;
    for (int i = 0; i < 17; ++i) {
        const QWidget* stop = form->focusWidget();
        places += stop->mapTo(form, QPoint(0, stop->height() / 2));
        key(Qt::Key_Tab);
    }
    EXPECT_TRUE(form->pageView->hasFocus());
    const int strip = places.front().y();
    for (qsizetype i = 1; i < places.size(); ++i)
        EXPECT_TRUE(i == 13 ? places[i].y() > strip + 10 : places[i].x() > places[i - 1].x()) << i;
}

TEST_F(PreviewWindow, theBoxOfTheZoomIsNamedForWhoHearsIt)
{
    open(1);
    EXPECT_EQ(form->cboZoom->accessibleName(), u"Zoom");
    EXPECT_EQ(form->cboZoom->lineEdit()->accessibleName(), u"Zoom");
}

TEST_F(PreviewWindow, tabGoesThroughAllControls)
{
    open(10);
    form->activateWindow();
    form->pageView->setFocus();
    QSet<QWidget*> seen;
    for (int i = 0; i < 40; ++i) {
        seen += form->focusWidget();
        key(Qt::Key_Tab);
    }
    EXPECT_TRUE(seen.contains(form->pageView));
    EXPECT_TRUE(seen.contains(form->txtPage));
    EXPECT_TRUE(seen.contains(form->cboZoom) || seen.contains(form->cboZoom->lineEdit()));
    for (QToolButton* button : form->findChildren<QToolButton*>())
        EXPECT_TRUE(!button->isVisible() || !button->isEnabled() || seen.contains(button))
            << button->text().toStdString();
}
