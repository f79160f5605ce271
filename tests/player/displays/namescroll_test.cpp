#include "player/displays/displaytext.h"

#include <gtest/gtest.h>

namespace {

const QString kThirty = QStringLiteral("abcdefghijklmnopqrstuvwxyz0123");

} // namespace

TEST(NameScroll, beginsAtTheFirstCharacter)
{
    NameScroll scroll;
    EXPECT_EQ(scroll.next(kThirty, 20, true), kThirty.left(20));
}

TEST(NameScroll, goesOneCharacterFurtherAtEachCall)
{
    NameScroll scroll;
    scroll.next(kThirty, 20, true);
    EXPECT_EQ(scroll.next(kThirty, 20, true), u"bcdefghijklmnopqrstu"_qs);
    EXPECT_EQ(scroll.next(kThirty, 20, true), u"cdefghijklmnopqrstuv"_qs);
}

TEST(NameScroll, isAtTheFirstCharacterAgainAfter35Calls)
{
    NameScroll scroll;
    QStringList seen;
    for (int call = 1; call <= 35; ++call)
        seen += scroll.next(kThirty, 20, true);
    EXPECT_EQ(seen[0], kThirty.left(20));
    EXPECT_EQ(seen[29], u"3  *  abcdefghijklmn"_qs);
    EXPECT_EQ(seen[33], u"  abcdefghijklmnopqr"_qs); // the last blank never comes first
    EXPECT_EQ(seen[34], kThirty.left(20));
    EXPECT_EQ(seen.indexOf(kThirty.left(20), 1), 34);
}

TEST(NameScroll, leavesTextsThatFit)
{
    NameScroll scroll;
    EXPECT_EQ(scroll.next(kThirty, 30, true), kThirty);
    EXPECT_EQ(scroll.next(kThirty, 30, true), kThirty);
    EXPECT_EQ(scroll.next(QString(), 0, true), QString());
}

TEST(NameScroll, leavesTextsAloneWhenSwitchedOff)
{
    NameScroll scroll;
    EXPECT_EQ(scroll.next(kThirty, 20, false), kThirty);
    EXPECT_EQ(scroll.next(kThirty, 20, false), kThirty);
}

TEST(NameScroll, beginsAnewAfterATextThatFits)
{
    NameScroll scroll;
    for (int call = 0; call < 5; ++call)
        scroll.next(kThirty, 20, true);
    scroll.next(u"short"_qs, 20, true);
    EXPECT_TRUE(scroll.next(kThirty, 20, true).startsWith(u"abc"_qs));
}

TEST(NameScroll, beginsAnewAfterItWasSwitchedOff)
{
    NameScroll scroll;
    for (int call = 0; call < 5; ++call)
        scroll.next(kThirty, 20, true);
    scroll.next(kThirty, 20, false);
    EXPECT_TRUE(scroll.next(kThirty, 20, true).startsWith(u"abc"_qs));
}

TEST(NameScroll, keepsItsPlaceInAnotherTextThatIsLongEnough)
{
    NameScroll scroll;
    for (int call = 0; call < 3; ++call)
        scroll.next(kThirty, 20, true);
    EXPECT_TRUE(scroll.next(kThirty.toUpper(), 20, true).startsWith(u"DEFG"_qs));
    for (int call = 0; call < 28; ++call)
        scroll.next(kThirty, 20, true);
    EXPECT_TRUE(scroll.next(u"abcdefghijklmnopqrstuv"_qs, 20, true).startsWith(u"abc"_qs)); // beyond its end
}

TEST(NameScroll, scrollsWhateverTheCellsAre)
{
    NameScroll scroll;
    scroll.next(u"01:05"_qs, 0, true);
    EXPECT_EQ(scroll.next(u"01:05"_qs, 0, true), u"1:05  *  01:05"_qs);
    EXPECT_EQ(scroll.next(u"01:05"_qs, -1, true), u":05  *  01:05"_qs);
}

TEST(NameScroll, beginsAnewWhereTheCounterEnds)
{
    NameScroll scroll;
    const QString name = u"first"_qs + QString(40000, u'x');
    EXPECT_TRUE(scroll.next(name, 20, true).startsWith(u"first"_qs));
    for (int call = 2; call <= 32767; ++call)
        ASSERT_FALSE(scroll.next(name, 20, true).startsWith(u"first"_qs)) << call;
    EXPECT_TRUE(scroll.next(name, 20, true).startsWith(u"first"_qs));
}

TEST(NameScroll, givesNoMoreThanADisplayShows)
{
    NameScroll scroll;
    for (const int length : {40'000, 10'000'000}) {
        const QString name(length, u'x');
        EXPECT_EQ(scroll.next(name, 10, true).size(), 10);
        EXPECT_EQ(scroll.next(name, 32767, true).size(), 32767);
        EXPECT_EQ(scroll.next(name, 9, true).size(), kMostCells); // nine is a format and no count
    }
}
