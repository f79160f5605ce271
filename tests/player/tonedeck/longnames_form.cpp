// Shows names that are longer than their label: they are cut with dots and told by the tool tip, or scrolled.
#include "tests/player/tonedeck/playertest.h"

#include <QHelpEvent>
#include <QToolTip>

namespace {

const QString kLong =
    u"Ørjan Bjørkås \u2013 \u0412\u0435\u0447\u0435\u0440\u043d\u0438\u0439 \u0437\u0432\u043e\u043d \u2013 \u5915\u3079\u306e\u9418"_qs;

struct LongNames : PlayerTest {
    LongNames()
    {
        writeSkin("L2,10,10,60,18,250,120,30,9,DejaVu Sans,Name\n");
        shown();
    }
    FaceLabel& name() { return *w().controls.Lbl[Label::Name]; }
    QImage seen() { return w().grab().toImage().copy(10, 10, 60, 18); }
    static void wait(int milliseconds) { QTest::qWait(milliseconds); }
};

} // namespace

TEST_F(LongNames, areToldWholeByTheToolTip)
{
    name().setCaption(u"Short"_qs);
    EXPECT_FALSE(name().isCut());
    EXPECT_EQ(name().tipShown(), u"Name"_qs);
    name().setCaption(kLong);
    EXPECT_TRUE(name().isCut());
    EXPECT_EQ(name().tipShown(), kLong + u"\nName"_qs);
    EXPECT_EQ(name().text(), kLong);
    EXPECT_EQ(name().toolTip(), u"Name"_qs) << "the skin's own stays";

    QHelpEvent help(QEvent::ToolTip, {5, 5}, name().mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(&name(), &help);
    EXPECT_EQ(QToolTip::text(), kLong + u"\nName"_qs);
    QToolTip::hideText();
}

TEST_F(LongNames, areNoPageInTheToolTip)
{
    name().setCaption(u"<img src='file:///etc/passwd'> and a good deal more than fits"_qs);
    EXPECT_EQ(name().tipShown(), shownToolTip(name().text()));
    EXPECT_TRUE(name().tipShown().startsWith(u"<span>&lt;img"_qs));
}

TEST_F(LongNames, standStillUnlessNamesScroll)
{
    name().setCaption(kLong);
    const QImage before = seen();
    wait(300);
    EXPECT_EQ(seen(), before);
}

TEST_F(LongNames, scrollWhenTheSettingSaysSo)
{
    name().setCaption(kLong);
    const QImage cut = seen();
    settings.ScrollName = 1;
    w().Timer2_Timer();
    EXPECT_EQ(seen(), cut) << "after a rest at the beginning";
    QTRY_VERIFY_WITH_TIMEOUT(seen() != cut, kHung);
    const QImage once = seen();
    QTRY_VERIFY_WITH_TIMEOUT(seen() != once, kHung);
    settings.ScrollName = 0;
    w().Timer2_Timer();
    EXPECT_EQ(seen(), cut);
}

TEST_F(LongNames, beginAnewWithTheNextName)
{
    settings.ScrollName = 1;
    w().Timer2_Timer();
    name().setCaption(kLong);
    const QImage cut = seen();
    QTRY_VERIFY_WITH_TIMEOUT(seen() != cut, kHung);
    name().setCaption(u"x"_qs);
    name().setCaption(kLong);
    EXPECT_EQ(seen(), cut);
}

TEST_F(LongNames, scrollNoNameThatFits)
{
    settings.ScrollName = 1;
    name().setCaption(u"Short"_qs);
    w().Timer2_Timer();
    const QImage before = seen();
    wait(2'600); // longer than the rest at the beginning
    EXPECT_EQ(seen(), before);
}

// As a hostile tag may have it.
TEST_F(LongNames, ofMillionsOfCharactersAreLaidOutAsFarAsTheyAreSeen)
{
    const ProcessorTime spent;
    name().setCaption(QString(30'000'000, u'\u00e6'));
    seen();
    static_cast<void>(name().tipShown());
    EXPECT_LT(spent.seconds(), kLayingOutMillions);
}
