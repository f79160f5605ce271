#include "tests/support/skinworld.h"

struct SkinDiagnosticsTest : SkinWorld {
    QStringList notesFor(const QByteArray& lines)
    {
        notes.notes.clear();
        elements(lines);
        return notes.notes;
    }
};

TEST_F(SkinDiagnosticsTest, tellOfNumbersThatThereAreNot)
{
    EXPECT_EQ(notesFor("B51,1,2,3,4,5,6,P,\nZ2,1,2,3,4,5,6\n"),
              (QStringList{u"7: B51 does not exist, the numbers are 1 to 50"_qs,
                           u"8: Z2 does not exist, the numbers are 0 to 1"_qs}));
}

TEST_F(SkinDiagnosticsTest, tellOfKeysThatNeverAnswer)
{
    EXPECT_EQ(
        notesFor("B1,1,2,3,4,5,6,p,\nB2,1,2,3,4,5,6,~,\nB3,1,2,3,4,5,6,?,\nB4,1,2,3,4,5,6,,\n"),
        (QStringList{u"7: key \"p\" of B1 never answers, typed characters count in upper case and ` and "
                     u"~ are taken"_qs,
                     u"8: key \"~\" of B2 never answers, typed characters count in upper case and ` and "
                     u"~ are taken"_qs}));
    EXPECT_EQ(notesFor("B40,1,2,3,4,5,6,Q,\nB41,1,2,3,4,5,6,P,\n"), QStringList())
        << "above 40 none answers, which is no fault";
}

TEST_F(SkinDiagnosticsTest, tellOfAKeyThatTwoButtonsHave)
{
    EXPECT_EQ(notesFor("B1,1,2,3,4,5,6,P,\nB2,1,2,3,4,5,6,P,\n"),
              QStringList{u"8: key \"P\" of B2 is that of B1 too, the lower number answers"_qs});
}

TEST_F(SkinDiagnosticsTest, tellOfANumberThatComesTwice)
{
    EXPECT_EQ(notesFor("L1,1,2,3,4,1,2,3,9,F,\nL01,1,2,3,4,1,2,3,9,F,\nI1,1,2,3,4,1,2,3,1,\n"),
              QStringList{u"8: L1 was there before, this one replaces it"_qs});
}

TEST_F(SkinDiagnosticsTest, showNoMoreOfATextThanALineHolds)
{
    EXPECT_EQ(notesFor("Q%1\x1B[2J" + QByteArray(1000, 'x') + "\n"),
              QStringList{u"7: \"Q%1?[2J"_qs + QString(53, u'x') +
                          u"...\" begins with no element's letter and is ignored"_qs});
}

TEST_F(SkinDiagnosticsTest, tellOfAMissingWorkPictureUnlessTheSkinAsks)
{
    target.missing = {u"D:\\skins\\none.bmp"_qs};
    EXPECT_EQ(notesFor("R2,none.bmp\n?0,other\n:other\nU\n"), QStringList());
    const QStringList told{u"7: work picture not found, or no picture: D:\\skins\\none.bmp"_qs};
    EXPECT_EQ(notesFor("R2,none.bmp\nU\n?0,other\n:other\n"), told);
    EXPECT_EQ(notesFor("R2,none.bmp\n"), told);
}

TEST_F(SkinDiagnosticsTest, tellOfAWordThatEndsTheSkin)
{
    EXPECT_EQ(notesFor("B1,1,2,3,4,5,6,P,Close, Exit\nB51,1,2,3,4,5,6,P,\n"),
              QStringList{u"7: \"Exit\" begins with E: the skin ends here"_qs});
    EXPECT_EQ(notesFor("E\n"), QStringList());
}

TEST_F(SkinDiagnosticsTest, tellOfAStyleThatThereIsNot)
{
    EXPECT_EQ(notesFor("D1,1,1,0,0,9,13,4,4,0,3,\nD2,1,1,0,0,9,13,4,3,0,3,\n"),
              QStringList{u"7: style 4 of D1 does not exist, it draws nothing; the styles are 0 to 3"_qs});
}

TEST_F(SkinDiagnosticsTest, tellOfPolygonsThatDoNotAddUp)
{
    EXPECT_EQ(notesFor("M4,2,3,3\nP0,0\nP9,0\nP9,9\nP0,9\n").join(u'\n').section(u' ', 1),
              u"the polygons have 6 points together and 4 are declared"_qs);
    EXPECT_EQ(notesFor("M6,2,3,3\nP0,0\nP9,0\nP9,9\nP0,9\nP1,1\nP2,2\n"), QStringList());
}

TEST_F(SkinDiagnosticsTest, tellOfAWindowThatShowsNothing)
{
    callsFor(QByteArray(kHeader).replace("100,50\n80,40\n60,30\n", "0,0\n80,-1\n60,30\n"));
    EXPECT_EQ(notes.notes, (QStringList{u"2: a window of 0 by 0 pixels shows nothing of the skin"_qs,
                                        u"3: a window of 80 by -1 pixels shows nothing of the skin"_qs}));
}

// The skin asks for one picture under several names.
TEST_F(SkinDiagnosticsTest, tellWhatASkinGoesOnWithout)
{
    const QByteArray lines = "R2,a.bmp\n?1,have\nR2,a.png\n?1,have\n?0,none\n:have\nU\n:none\n";
    target.missing = {u"D:\\skins\\a.bmp"_qs};
    EXPECT_EQ(notesFor(lines), QStringList());
    EXPECT_EQ(notes.lacking, QStringList()) << "one of its names was there";
    EXPECT_EQ(notes.usedFiles, QStringList{u"D:\\skins\\a.png"_qs});
    target.missing.insert(u"D:\\skins\\a.png"_qs);
    EXPECT_EQ(notesFor(lines), QStringList());
    EXPECT_EQ(notes.lacking, QStringList{u"D:\\skins\\a.png"_qs});
}
