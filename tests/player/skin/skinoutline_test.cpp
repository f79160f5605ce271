#include "tests/support/skinworld.h"

struct SkinOutlineTest : SkinWorld {
    QString outlineOf(const QByteArray& lines)
    {
        const QStringList calls = elements(lines).filter(u"outline"_qs);
        EXPECT_LE(calls.size(), 1);
        return calls.value(0, u"none"_qs);
    }
};

TEST_F(SkinOutlineTest, isOnePolygon)
{
    EXPECT_EQ(outlineOf("N4\nP0,0\nP10,0\nP10,20\nP0,20\n"), u"outline 0,0 10,0 10,20 0,20"_qs);
    EXPECT_EQ(outlineOf("N3\nP0,0,P10,0,P12,34"), u"outline 0,0 10,0 12,34"_qs);
}

TEST_F(SkinOutlineTest, isSetBehindAllElementsAndBeforeTheRepaint)
{
    EXPECT_EQ(elements("N3\nP0,0\nP9,0\nP0,9\nU\n"), (QStringList{u"use"_qs, u"outline 0,0 9,0 0,9"_qs}));
}

TEST_F(SkinOutlineTest, takesPointsBeyondTheScreen)
{
    EXPECT_EQ(outlineOf("N3\nP-5,-6\nP99999,32767\nP99999999999,-32768\n"),
              u"outline -5,-6 99999,32767 2147483647,-32768"_qs);
    EXPECT_EQ(outlineOf("N3\nP-99999999999,0\nP,1\nPx,2\n"), u"outline -2147483648,0 0,1 0,2"_qs);
}

TEST_F(SkinOutlineTest, needsAllDeclaredPoints)
{
    EXPECT_EQ(outlineOf("N4\nP0,0\nP10,0\nP10,20\n"), u"none"_qs);
    EXPECT_EQ(notes.notes, QStringList{u"10: no outline, 4 points are declared and 3 were read"_qs});
}

TEST_F(SkinOutlineTest, ignoresPointsBeyondTheDeclared)
{
    EXPECT_EQ(outlineOf("N3\nP0,0\nP10,0\nP10,20\nP0,20\n"), u"outline 0,0 10,0 10,20"_qs);
    EXPECT_EQ(outlineOf("P1,1\nN3\nP0,0\nP10,0\nP10,20\n"), u"outline 0,0 10,0 10,20"_qs);
}

TEST_F(SkinOutlineTest, isNoneWithoutPoints)
{
    EXPECT_EQ(outlineOf("N0\n"), u"none"_qs);
    EXPECT_EQ(outlineOf("N\nP1,1\n"), u"none"_qs);
    EXPECT_EQ(outlineOf("P1,1\nP2,2\nP3,3\n"), u"none"_qs);
    EXPECT_EQ(outlineOf("M0,0\n"), u"none"_qs);
    EXPECT_EQ(notes.notes, QStringList());
}

// A window with an outline that has no inside could never be seen again.
TEST_F(SkinOutlineTest, isNoneWithoutAnInside)
{
    EXPECT_EQ(outlineOf("N2\nP1,1\nP5,5\n"), u"none"_qs);
    EXPECT_EQ(outlineOf("M4,2,2,2\nP1,1\nP5,5\nP1,1\nP5,5\n"), u"none"_qs);
    EXPECT_EQ(notes.notes.value(0), u"9: no outline, it has no polygon of three points"_qs);
}

TEST_F(SkinOutlineTest, isSeveralPolygons)
{
    EXPECT_EQ(outlineOf("M7,2,3,4\nP0,0\nP1,0\nP1,1\nP5,5\nP6,5\nP6,6\nP5,6\n"),
              u"outline 0,0 1,0 1,1 | 5,5 6,5 6,6 5,6"_qs);
}

TEST_F(SkinOutlineTest, givesPolygonsTheirPointsAsFarAsTheyReach)
{
    const QByteArray points = "P0,0\nP1,0\nP1,1\nP5,5\nP6,5\nP6,6\n";
    EXPECT_EQ(outlineOf("M6,3,3,99,3\n" + points), u"outline 0,0 1,0 1,1 | 5,5 6,5 6,6"_qs);
    EXPECT_EQ(outlineOf("M6,1,3\n" + points), u"outline 0,0 1,0 1,1"_qs);
    EXPECT_EQ(outlineOf("M6,3,-3,0,3\n" + points), u"outline 0,0 1,0 1,1"_qs);
    EXPECT_EQ(outlineOf("M6,0\n" + points), u"none"_qs);
}

TEST_F(SkinOutlineTest, beginsAnewWithEachDeclaration)
{
    EXPECT_EQ(outlineOf("M6,2,1,5\nP9,9\nP9,9\nN3\nP0,0\nP1,0\nP1,1\n"), u"outline 0,0 1,0 1,1"_qs);
    EXPECT_EQ(outlineOf("N3\nP9,9\nP9,9\nM3,1,3\nP0,0\nP1,0\nP1,1\n"), u"outline 0,0 1,0 1,1"_qs);
}

TEST_F(SkinOutlineTest, refusesCountsBelowNone)
{
    for (const char* lines : {"N-1\nU\n", "M-1,1,3\nU\n", "M3,-1\nU\n"}) {
        EXPECT_EQ(elements(lines), QStringList()) << lines;
        EXPECT_EQ(notes.notes, QStringList{u"7: the load ends here: Subscript out of range (9)"_qs});
        notes.notes.clear();
    }
}

TEST_F(SkinOutlineTest, takesNoMemoryForWhatACountPromises)
{
    EXPECT_EQ(outlineOf("N2147483647\nP1,1\n"), u"none"_qs);
    EXPECT_EQ(outlineOf("N99999999999\nP1,1\n"), u"none"_qs);
    EXPECT_EQ(outlineOf("M99999999999,32767,1\n"), u"none"_qs);
}
