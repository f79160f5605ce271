#include "tests/toolkit/pages/previewtest.h"

#include "toolkit/pages/reportlayout.h"

#include <QElapsedTimer>
#include <QTimer>

namespace {

struct PreviewFind : PreviewTest {
    QString found() const { return form->findBar->lblFound->text(); }
    bool finds(const QString& text)
    {
        return QTest::qWaitFor([&] { return found() == text; }) ||
               (ADD_FAILURE() << found().toStdString(), false);
    }
    void look(const QString& text)
    {
        form->actFind->trigger();
        form->findBar->txtFind->selectAll();
        type(text);
        key(Qt::Key_Return);
    }
    // The marks' colours on the page that is seen.
    int pixels(const QColor& colour) const
    {
        const QImage image = form->pageView->viewport()->grab().toImage();
        int count = 0;
        for (int x = 0; x < image.width(); ++x)
            for (int y = 0; y < image.height(); ++y)
                count += image.pixelColor(x, y) == colour ? 1 : 0;
        return count;
    }
    int marked() const { return pixels(QColor(0xff, 0xec, 0x8a)); }
    int current() const { return pixels(QColor(0xff, 0xa6, 0x3d)); }
};

} // namespace

TEST_F(PreviewFind, ctrlFOpensTheBarAndEnterGoesFromHitToHitRoundAndRound)
{
    rows = {{"Beat Boys", "one"}, {"x", "The BEAT goes on"}, {"heartbeat beat", "y"}, {"z", "z"}};
    open();
    EXPECT_FALSE(form->findBar->isVisible());
    key(Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(form->findBar->isVisible());
    EXPECT_TRUE(form->findBar->txtFind->hasFocus());
    type(u"beat"_qs);
    key(Qt::Key_Return);
    EXPECT_TRUE(finds(u"1 of 4"_qs));
    key(Qt::Key_Return);
    key(Qt::Key_F3);
    EXPECT_EQ(found(), u"3 of 4");
    key(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(found(), u"2 of 4");
    key(Qt::Key_F3, Qt::ShiftModifier);
    key(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(found(), u"4 of 4");
    key(Qt::Key_F3);
    EXPECT_EQ(found(), u"1 of 4");
}

TEST_F(PreviewFind, aTextThatIsTypedIsLookedForWhenTheReaderStops)
{
    open(100);
    form->actFind->trigger();
    type(u"song 100"_qs);
    EXPECT_TRUE(finds(u"1 of 1"_qs));
    EXPECT_EQ(page(), form->pageView->layout()->pageOf(99));
}

TEST_F(PreviewFind, nothingFoundSaysSo)
{
    open(100);
    look(u"nowhere"_qs);
    EXPECT_TRUE(finds(u"Nothing found"_qs));
    EXPECT_EQ(form->findBar->txtFind->accessibleDescription(), u"Nothing found");
    key(Qt::Key_Return);
    EXPECT_EQ(found(), u"Nothing found");
    EXPECT_EQ(page(), 1);
}

TEST_F(PreviewFind, hitsAreMarkedAndTheCurrentOneOtherwise)
{
    open(100);
    EXPECT_EQ(marked() + current(), 0);
    look(u"song 1"_qs);
    ASSERT_TRUE(finds(u"1 of 12"_qs));
    const int all = marked();
    EXPECT_GT(all, 300);
    EXPECT_GT(current(), 30);
    key(Qt::Key_Escape);
    EXPECT_FALSE(form->findBar->isVisible());
    EXPECT_EQ(marked() + current(), 0);
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(form->pageView->hasFocus());
}

TEST_F(PreviewFind, aMarkLiesOverItsText)
{
    rows = {{"wwwwwwwwww iii", "x"}};
    open();
    look(u"iii"_qs);
    ASSERT_TRUE(finds(u"1 of 1"_qs));
    const PageItem& item = form->pageView->items(1).front();
    const QImage image = form->pageView->viewport()->grab().toImage();
    const QPointF corner = form->pageView->placeOfPage(1).topLeft();
    const double scale = form->pageView->pixelsPerPoint();
    const int y = qRound(corner.y() + item.place.center().y() * scale);
    const auto widthOf = [&](const QString& text) {
        return QFontMetricsF(pageFont(item.font.size * 16, false)).horizontalAdvance(text) / 16;
    };
    int first = -1;
    int last = -1;
    for (int x = 0; x < image.width(); ++x)
        if (image.pixelColor(x, y - qRound(item.place.height() * 0.4 * scale)) == QColor(0xff, 0xa6, 0x3d)) {
            first = first < 0 ? x : first;
            last = x;
        }
    const double begin = item.place.left() + widthOf(u"wwwwwwwwww "_qs);
    EXPECT_NEAR(first, corner.x() + begin * scale, 3);
    EXPECT_NEAR(last, corner.x() + (begin + widthOf(u"iii"_qs)) * scale, 3);
}

TEST_F(PreviewFind, itBeginsAtThePageThatIsRead)
{
    open(3000);
    form->pageView->goToPage(5);
    const int row = form->pageView->layout()->firstRowOf(5);
    look(u"artist"_qs);
    EXPECT_TRUE(finds(u"%1 of 3,000"_qs.arg(row + 1)));
    EXPECT_EQ(page(), 5);
    look(u"artist 1"_qs); // from the hit on, and then from the beginning
    EXPECT_TRUE(QTest::qWaitFor([&] { return found().endsWith(u"of 1,111"); }));
}

TEST_F(PreviewFind, aHitFarDownIsScrolledIntoView)
{
    open(3000);
    form->pageView->setZoom(2);
    look(u"song 2999"_qs);
    ASSERT_TRUE(finds(u"1 of 1"_qs));
    EXPECT_EQ(page(), form->pageView->layout()->pageOf(2998));
    EXPECT_GT(current(), 30);
}

TEST_F(PreviewFind, aSecondHitInOneCellIsOneOfItsOwn)
{
    rows = {{"aaaa", "banana"}};
    open();
    look(u"an"_qs);
    EXPECT_TRUE(finds(u"1 of 2"_qs));
    look(u"aa"_qs);
    EXPECT_TRUE(finds(u"1 of 2"_qs));
}

// Whoever looked at each page of such a row, or at each hit for each line, would take minutes.
TEST_F(PreviewFind, inAFieldOfThousandsOfPagesAHitIsFoundByOnePass)
{
    constexpr int kLines = 400000;
    rows = {{QByteArray("a\n").repeated(kLines), "x"}, {"y", "y"}};
    open();
    ASSERT_GT(pages(), 5000);
    look(u"a"_qs);
    ASSERT_TRUE(finds(u"1 of 400,000"_qs));
    for (const int wanted : {kLines, kLines - 1, kLines - 2}) {
        lastRead->asked = 0;
        key(Qt::Key_F3, Qt::ShiftModifier);
        form->pageView->viewport()->grab();
        EXPECT_EQ(found(), QLocale().toString(wanted) + u" of 400,000"_qs);
        EXPECT_EQ(page(), pages());
        EXPECT_GT(current(), 30);
        EXPECT_LT(lastRead->asked, 1000);
    }
}

TEST_F(PreviewFind, aHitThatBeginsWithABlankAtAPagesEndIsShownOnTheNext)
{
    rows = {{QByteArray("word ").repeated(20000), "x"}};
    open();
    look(u" word"_qs);
    ASSERT_TRUE(finds(u"1 of 19,999"_qs));
    const PageItem& line = form->pageView->items(3).front();
    form->pageView->goToHit({0, line.field, line.start - 1, 5});
    EXPECT_EQ(page(), 3);
    EXPECT_GT(current(), 30);
    form->pageView->goToHit({0, line.field, line.start - 6, 5});
    EXPECT_EQ(page(), 2);
    EXPECT_GT(current(), 30);
}

TEST_F(PreviewFind, f3OpensTheBarWithWhatWasLookedForLast)
{
    open(50);
    look(u"song 7"_qs);
    ASSERT_TRUE(finds(u"1 of 1"_qs));
    key(Qt::Key_Escape);
    key(Qt::Key_F3);
    EXPECT_TRUE(form->findBar->isVisible());
    EXPECT_TRUE(finds(u"1 of 1"_qs));
}

TEST_F(PreviewFind, escapeClosesTheBarFirstAndThenTheWindow)
{
    open(50);
    form->actFind->trigger();
    key(Qt::Key_Escape);
    EXPECT_FALSE(form->findBar->isVisible());
    EXPECT_FALSE(isGone());
    key(Qt::Key_Escape);
    EXPECT_TRUE(isGone());
}

TEST_F(PreviewFind, aRefreshLooksInTheNewRows)
{
    open(50);
    look(u"song 7"_qs);
    ASSERT_TRUE(finds(u"1 of 1"_qs));
    rows.push_back({"x", "SONG 7"});
    key(Qt::Key_F5);
    EXPECT_TRUE(finds(u"1 of 2"_qs));
    EXPECT_GT(marked() + current(), 60);
}

TEST_F(PreviewFind, textThatHasNoShorterCaseStaysFast)
{
    addNumbered(600000);
    rows.back()[1] = "the \xE2\x84\xAA"
                     "elvin"; // the Kelvin sign
    open();
    int turns = 0;
    QTimer tick;
    QObject::connect(&tick, &QTimer::timeout, [&] { ++turns; });
    tick.start(0);
    QElapsedTimer time;
    time.start();
    look(u"kelvin"_qs);
    EXPECT_TRUE(finds(u"1 of 1"_qs));
    EXPECT_LT(time.elapsed(), 3000);
    EXPECT_GT(turns, 2); // the window lived meanwhile
}

TEST_F(PreviewFind, aWindowThatIsClosedWhileItSearchesEndsCleanly)
{
    open(200000);
    look(u"o"_qs);
    form->closeNow();
    EXPECT_TRUE(isGone());
    QCoreApplication::processEvents();
}
