#include "player/skin/outline.h"
#include "player/skin/sethints.h"
#include "tests/support/skinworld.h"

namespace {

constexpr WindowSizes kSizes{QSize(10, 4), QSize(10, 2), QSize(12, 6)};

// Draws the window of the largest size: "#" inside, "." outside.
QStringList drawn(const QByteArray& text)
{
    QStringList rows(6, QString(12, u'.'));
    for (const OutlineRun& run : outlineRuns(outlineOfSet(text, kSizes), {12, 6}))
        for (int x = run.left; x < run.right; ++x)
            rows[run.row][x] = u'#';
    return rows;
}

const QByteArray kRegion = "[Normal]\nNumPoints=4\nPointList=1,0, 9,0, 9,4, 1,4\n";

struct SetHints : SkinWorld {
    SetHints() { host.texts[u"D:\\skins\\region.txt"_qs] = "[Normal]\nNumPoints=3\nPointList=0,0 9,0 0,9\n"; }
};

} // namespace

TEST(OutlineOfSet, isThatOfTheFirstSizeAndLeavesTheRestWhole)
{
    EXPECT_EQ(drawn(kRegion), (QStringList{u".########.##"_qs, u".########.##"_qs, u".########.##"_qs,
                                           u".########.##"_qs, u"############"_qs, u"############"_qs}));
}

TEST(OutlineOfSet, takesWhatLiesInAnyOfItsPolygons)
{
    const QStringList rows =
        drawn("; a comment\r\n[WINDOWSHADE]\r\nNumPoints=3\r\nPointList=0,0 1,0 1,1\r\n"
              "[normal]\r\n numpoints = 4 ,4\r\nPOINTLIST = 0,0 6,0 6,2 0,2, 4,1 10,1 10,9 4,9");
    EXPECT_EQ(rows.first(4),
              (QStringList{u"######....##"_qs, u"############"_qs, u"....########"_qs, u"....########"_qs}))
        << "where two overlap is no hole";
}

TEST(OutlineOfSet, isNoneForAnythingElse)
{
    for (const char* text :
         {"", "[Normal]", "[Normal]\nNumPoints=4\n", "[Normal]\nNumPoints=2\nPointList=0,0 9,9\n",
          "[Normal]\nNumPoints=4\nPointList=0,0\n", "NumPoints=4\nPointList=0,0 9,0 9,9 0,9\n",
          "[Normal]\nNumPoints=4\nPointList=50,0 59,0 59,4 50,4\n",
          "[Normal]\nNumPoints=-4,4\nPointList=0,0 99999,0 9,9 0,9\n",
          "[Normal]\nNumPoints=4\nPointList=0,0 0,0 0,0 0,0\n", "\0\0\xFF=[[]]"})
        EXPECT_TRUE(outlineOfSet(text, kSizes).empty()) << text;
    const QByteArray many = "[Normal]\nNumPoints=" + QByteArray("3,").repeated(kMostHintPolygons + 1) +
                            "\nPointList=" + QByteArray("0,0,9,0,0,9,").repeated(kMostHintPolygons + 1);
    EXPECT_TRUE(outlineOfSet(many, kSizes).empty());
}

TEST(OutlineOfSet, isNoneWhereItWouldTakeTooMuch)
{
    const WindowSizes huge{QSize(32767, 32767), QSize(1, 1), QSize(1, 1)};
    EXPECT_TRUE(outlineOfSet(kRegion, huge).empty());
    QByteArray counts;
    QByteArray points;
    for (int i = 0; i < kMostHintPolygons; ++i) {
        counts += "40,";
        for (int tooth = 0; tooth < 20; ++tooth)
            points +=
                QByteArray::number(200 * tooth) + ",0," + QByteArray::number(200 * tooth + 99) + ",4096,";
    }
    const WindowSizes large{QSize(4096, 4096), QSize(1, 1), QSize(1, 1)};
    EXPECT_TRUE(
        outlineOfSet("[Normal]\nNumPoints=" + counts + "\nPointList=" + points + "\n", large).empty());
}

TEST(ListColoursOfSet, areThoseOfItsText)
{
    const auto colours =
        listColoursOfSet("[Text]\r\nNormal=#10FF20\r\nCurrent=#FFFFFF\r\nNormalBG=000030 ; dark\r\n");
    ASSERT_TRUE(colours);
    EXPECT_EQ(colours->text, 0x20FF10U);
    EXPECT_EQ(colours->back, 0x300000U);
}

TEST(ListColoursOfSet, areNoneWhereOneIsMissingOrTheyAreAlike)
{
    for (const char* text : {"", "[Text]\nNormal=#FFFFFF\n", "[Text]\nNormal=#FFF\nNormalBG=#000000\n",
                             "[Text]\nNormal=green\nNormalBG=#000000\n", "Normal=#FFFFFF\nNormalBG=#000000\n",
                             "[Text]\nNormal=#404040\nNormalBG=#303030\n"})
        EXPECT_FALSE(listColoursOfSet(text)) << text;
}

TEST_F(SetHints, giveAnOutlineToASkinThatHasNone)
{
    EXPECT_TRUE(elements(";@outline,region.txt\n").filter(u"outline"_qs).size() == 1);
    EXPECT_EQ(elements("N3\nP1,1\nP2,1\nP1,2\n;@outline,region.txt\n"),
              QStringList{u"outline 1,1 2,1 1,2"_qs});
    EXPECT_EQ(elements(";@outline,none.txt\n"), QStringList());
    EXPECT_EQ(notes.notes, QStringList());
    host.texts[u"D:\\skins\\region.txt"_qs] = "nothing";
    EXPECT_EQ(elements("U\n;@outline,region.txt\n"), QStringList{u"use"_qs});
    EXPECT_EQ(notes.notes, QStringList{u"8: what D:\\skins\\region.txt says cannot be used"_qs});
}

TEST_F(SetHints, giveTheListItsColours)
{
    const QByteArray list = "X1,1,2,3,4,1,2,3,4,5,6,9,F,\n";
    EXPECT_TRUE(elements(";@list,pledit.txt\n" + list).first().contains(u"colours 30201 60504"_qs));
    host.texts[u"D:\\skins\\pledit.txt"_qs] = "[Text]\nNormal=#00FF00\nNormalBG=#000001\n";
    EXPECT_TRUE(elements(";@list,pledit.txt\n" + list).first().contains(u"colours ff00 10000"_qs));
    host.texts[u"D:\\skins\\pledit.txt"_qs] = "[Text]\nNormal=#00FF00\nNormalBG=#00FF00\n";
    EXPECT_TRUE(elements(";@list,pledit.txt\n" + list).first().contains(u"colours 30201 60504"_qs));
    EXPECT_EQ(notes.notes, QStringList{u"7: what D:\\skins\\pledit.txt says cannot be used"_qs});
}
