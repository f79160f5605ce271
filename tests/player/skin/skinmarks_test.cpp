#include "player/skin/skinmarks.h"

#include "tests/support/skinworld.h"

namespace {

using Marks = SkinWorld;

} // namespace

TEST_F(Marks, areReadFromACommentOfTheirName)
{
    EXPECT_EQ(elements(";@mark,playing,26,28,9,9,1,2\n;@mark, mono , -1,2,3,4,5,6,more\n"),
              (QStringList{u"mark 0 26,28 9x9 picture 1,2"_qs, u"mark 3 -1,2 3x4 picture 5,6"_qs}));
    EXPECT_EQ(notes.notes, QStringList());
}

// To a reader that knows no marks it is a comment; so nothing in it may end a load.
TEST_F(Marks, areIgnoredWhenTheyAreNone)
{
    for (const char* line :
         {";@mark", ";@mark,dancing,1,2,3,4,5,6", ";@mark,mono,1,2,3,4,5", ";@mark,mono,1,2,3,x,5,6",
          ";@mark,mono,1,2,0,4,5,6", ";@mark,mono,1,2,3,4,5,99999"}) {
        notes.notes.clear();
        EXPECT_EQ(elements(QByteArray(line) + "\nU\n"), QStringList{u"use"_qs}) << line;
        EXPECT_EQ(notes.notes.size(), 1) << line;
    }
    notes.notes.clear();
    EXPECT_EQ(elements(";@no,such,name\n; @mark,mono,1,2,3,4,5,6\nU\n"), QStringList{u"use"_qs});
    EXPECT_EQ(notes.notes, QStringList{u"7: \";@no\" is none of the extras and is ignored"_qs});
}

TEST_F(Marks, areSixteenAtMost)
{
    EXPECT_EQ(elements(QByteArray(";@mark,mono,1,2,3,4,5,6\n").repeated(17)).size(), kMarks);
    EXPECT_EQ(notes.notes.size(), 1);
}

TEST_F(Marks, doNotCountBehindAJump)
{
    EXPECT_EQ(elements("?0,past\n;@mark,mono,1,2,3,4,5,6\n:past\nU\n"), QStringList{u"use"_qs});
}

TEST_F(Marks, tellOfAPictureThatIsTooSmall)
{
    target.work2 = {0, 0, 20, 20};
    elements("R2,a.bmp\nZ0,0,0,20,20,0,0\nZ0,1,0,20,20,0,0\nZ0,2,0,20,20,0,0\nR2,b.bmp\nZ0,9,9,20,20,0,0\n");
    EXPECT_EQ(
        notes.notes,
        (QStringList{u"9: D:\\skins\\a.bmp is too small, there is nothing to copy at 1,0 (20 by 20)"_qs,
                     u"12: D:\\skins\\b.bmp is too small, there is nothing to copy at 9,9 (20 by 20)"_qs}));
}
