// Reads each element's line, as it reaches the target.
#include "tests/support/skinworld.h"

struct SkinElements : SkinWorld {
    void expectIgnored(const QByteArray& line, const char* note)
    {
        EXPECT_EQ(elements(line + "\nU\n"), QStringList{u"use"_qs}) << line.constData();
        EXPECT_EQ(host.messages, QStringList()) << line.constData();
        EXPECT_TRUE(notes.notes.join(u'\n').contains(QString::fromLatin1(note))) << line.constData();
        notes.notes.clear();
    }
};

TEST_F(SkinElements, placeAButton)
{
    EXPECT_EQ(elements("B3,10,20,30,40,5,6,Play,Play a song\n"),
              QStringList{u"B3 10,20 30x40 pressed 5,6 tag [5,6] key [P] tip [Play a song] skin []"_qs});
    EXPECT_EQ(elements("B1,-10,-20,1,1,-5,06,,~hidden\n"),
              QStringList{u"B1 -10,-20 1x1 pressed -5,6 tag [-5,6] key [] tip [] skin []"_qs});
}

TEST_F(SkinElements, keepWhatTheSwitchButtonsLoad)
{
    EXPECT_EQ(elements("B49,1,2,3,4,5,6,A,tip,small.skin\nB50,1,2,3,4,5,6,B,tip,\"a,b.skin\"\n"),
              (QStringList{u"B49 1,2 3x4 pressed 5,6 tag [5,6] key [A] tip [tip] skin [small.skin]"_qs,
                           u"B50 1,2 3x4 pressed 5,6 tag [5,6] key [B] tip [tip] skin [a,b.skin]"_qs}));
    EXPECT_EQ(texts.previousSkin, u"small.skin"_qs);
    EXPECT_EQ(texts.nextSkin, u"a,b.skin"_qs);
    elements("B50,1,2,3,4,5,6,B,tip,c.skin\nB49,1,2,0,4,5,6,A,tip,none.skin\nB48,1,2,3,4,5,6,A,tip\n");
    EXPECT_EQ(texts.previousSkin, u"small.skin"_qs);
    EXPECT_EQ(texts.nextSkin, u"c.skin"_qs);
}

TEST_F(SkinElements, placeALabel)
{
    EXPECT_EQ(elements("L20,1,2,3,4,255,128,1,9,Sans Serif,tip\n"),
              QStringList{u"L20 1,2 3x4 colour 180ff font [Sans Serif] 9 tip [tip]"_qs});
}

TEST_F(SkinElements, placeALight)
{
    EXPECT_EQ(elements("I16,1,2,3,4,1,2,3,0,U\nI1,1,2,3,4,1,2,3,5,tip\n"),
              (QStringList{u"I16 1,2 3x4 colour 30201 shape 0"_qs, u"I1 1,2 3x4 colour 30201 shape 5"_qs}));
}

TEST_F(SkinElements, placeASlider)
{
    EXPECT_EQ(
        elements("S4,1,2,100,0,5,6,7,8,tip\nS1,1,2,0,100,5,6,7,8,~\n"),
        (QStringList{u"S4 1,2 100x0 thumb 5,6 7x8 tip [tip]"_qs, u"S1 1,2 0x100 thumb 5,6 7x8 tip []"_qs}));
}

TEST_F(SkinElements, placeADisplay)
{
    EXPECT_EQ(elements("D2,1,2,10,20,9,13,4,0,1,3,tip\n"),
              QStringList{u"D2 1,2 27x13 glyphs 10,20 cell 9x13 sep 4 style 0 gap 1 cells 3 tip [tip]"_qs});
}

TEST_F(SkinElements, giveADisplayWithoutCellsTheRoomOfATime)
{
    EXPECT_EQ(elements("D1,1,2,10,20,9,13,4,0,1,0,\n"),
              QStringList{u"D1 1,2 40x13 glyphs 10,20 cell 9x13 sep 4 style 0 gap 1 cells 0 tip []"_qs});
    EXPECT_EQ(elements("D3,1,2,10,20,9,13,4,0,1,8,\n"),
              QStringList{u"D3 1,2 40x13 glyphs 10,20 cell 9x13 sep 4 style 0 gap 1 cells 8 tip []"_qs});
}

TEST_F(SkinElements, placeTheCoverWhateverItsNumber)
{
    EXPECT_EQ(elements("C,1,2,3,4,tip\nC0,1,2,3,4,tip\nC99,1,2,3,4,tip\nC-1,1,2,3,4,tip\n"),
              QStringList(4, u"C 1,2 3x4 tip [tip]"_qs));
}

TEST_F(SkinElements, placeThePlaylist)
{
    EXPECT_EQ(elements("X1,1,2,3,4,1,2,3,4,5,6,10,Sans,tip\n"),
              QStringList{u"X 1,2 3x4 colours 30201 60504 font [Sans] 10 tip [tip]"_qs});
}

TEST_F(SkinElements, combineColoursToTwentyFourBits)
{
    EXPECT_EQ(elements("L1,1,2,3,4,-1,0,0,9,F,\nL2,1,2,3,4,32767,32767,32767,9,F,\n"),
              (QStringList{u"L1 1,2 3x4 colour ffffff font [F] 9 tip []"_qs,
                           u"L2 1,2 3x4 colour 7f7eff font [F] 9 tip []"_qs}));
}

TEST_F(SkinElements, areIgnoredWithoutANumber)
{
    for (const char* line :
         {"B0,1,2,3,4,5,6,P,tip", "B,1,2,3,4,5,6,P,tip", "L0,1,2,3,4,1,2,3,9,F,tip",
          "I0,1,2,3,4,1,2,3,99,tip", "S0,1,2,3,4,5,6,7,8,tip", "D0,1,2,10,20,9,13,4,0,1,3,tip",
          "X0,1,2,3,4,1,2,3,4,5,6,10,Sans,tip", "X,1,2,3,4,1,2,3,4,5,6,10,Sans,tip", "Bx,1,2,3,4,5,6,P,tip"})
        expectIgnored(line, "it has no number");
}

TEST_F(SkinElements, areIgnoredWithoutASize)
{
    for (const char* line :
         {"B1,1,2,0,4,5,6,P,tip", "B1,1,2,3,-4,5,6,P,tip", "L1,1,2,3,0,1,2,3,9,F,tip",
          "I1,1,2,0,4,1,2,3,99,tip", "S1,1,2,0,0,5,6,7,8,tip", "S1,1,2,-3,0,5,6,7,8,tip",
          "D1,1,2,10,20,9,0,4,0,1,3,tip", "D1,1,2,10,20,0,13,0,0,1,3,tip", "D1,1,2,10,20,0,13,0,0,1,0,tip",
          "C,1,2,0,4,tip", "C,1,2,3,0,tip", "X1,1,2,3,0,1,2,3,4,5,6,10,Sans,tip", "W0,0,5", "W0,5,-1",
          "Z0,1,2,0,4,5,6", "Z1,1,2,3,0,5,6"})
        expectIgnored(line, "its width or height is below 1");
}

TEST_F(SkinElements, multiplyADisplaysCellsWithoutOverflow)
{
    EXPECT_EQ(elements("D2,0,0,0,0,32767,1,0,0,0,32767,\n").value(0).left(21), u"D2 0,0 1073676289x1 g"_qs);
    expectIgnored("D2,0,0,0,0,32767,1,0,0,0,-32768,", "below 1");
}

TEST_F(SkinElements, goOnToTheNextLineForTheirFields)
{
    EXPECT_EQ(elements("C,1\n2,3\n4,tip\nU\n"), (QStringList{u"C 1,2 3x4 tip [tip]"_qs, u"use"_qs}));
    EXPECT_EQ(notes.notes, QStringList{u"7: C has too few fields, it goes on to line 9"_qs});
}

TEST_F(SkinElements, buildAFaceFromWorkPictures)
{
    target.missing = {u"D:\\skins\\none.bmp"_qs};
    EXPECT_EQ(elements("R2,main.bmp\nW0,275,116\nW1,5,6\nZ0,1,2,3,4,5,6\nZ1,0,0,9,9,-1,-2\nR,none.bmp\nU\n"),
              (QStringList{u"load 2 D:\\skins\\main.bmp"_qs, u"size 0 275x116"_qs, u"size 1 5x6"_qs,
                           u"copy 0 1,2 3x4 to 5,6"_qs, u"copy 1 0,0 9x9 to -1,-2"_qs,
                           u"load 0 D:\\skins\\none.bmp (missing)"_qs, u"use"_qs}));
    EXPECT_EQ(host.messages, QStringList());
    EXPECT_EQ(notes.notes, QStringList{u"12: work picture not found, or no picture: D:\\skins\\none.bmp"_qs});
}

TEST_F(SkinElements, takeAnyNumberOfTheSameKind)
{
    EXPECT_EQ(elements("C,1,2,3,4,a\nC,5,6,7,8,b\n").size(), 2);
    EXPECT_EQ(notes.notes, QStringList{u"8: C0 was there before, this one replaces it"_qs});
}
