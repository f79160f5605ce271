// Goes the way through a control file: tokens, jumps, ranges, the end.
#include "tests/support/skinworld.h"

struct SkinLinesTest : SkinWorld {
    QString unknownIn(const QByteArray& lines)
    {
        host.messages.clear();
        elements(lines);
        return host.messages.value(0);
    }
    static QString errorList(const QString& tokens)
    {
        return u"Error in skin file!\rThe skin file contains references to the following elements that do "
               u"not exist!:\r"_qs +
               tokens;
    }
};

TEST_F(SkinLinesTest, endAtTheLetterE)
{
    EXPECT_EQ(elements("U\nEnd\nU\n"), QStringList{u"use"_qs});
    EXPECT_EQ(elements("U,E,U\n"), QStringList{u"use"_qs});
}

TEST_F(SkinLinesTest, endWithTheFile)
{
    EXPECT_EQ(elements("U"), QStringList{u"use"_qs});
    EXPECT_EQ(elements(""), QStringList());
    EXPECT_EQ(elements("U\n\x1A"), QStringList{u"use"_qs});
}

TEST_F(SkinLinesTest, ignoreLettersThatAreNone)
{
    EXPECT_EQ(elements("Q1,2,3\n\nb1,1,2,3,4,5,6,,tip\n12,x\nU\n"), QStringList{u"use"_qs});
    EXPECT_EQ(host.messages, QStringList());
    EXPECT_EQ(notes.notes, (QStringList{u"7: \"Q1\" begins with no element's letter and is ignored"_qs,
                                        u"9: \"b1\" begins with no element's letter and is ignored"_qs,
                                        u"10: \"12\" begins with no element's letter and is ignored"_qs}));
}

TEST_F(SkinLinesTest, takeAnUnknownLettersFieldsForTokens)
{
    EXPECT_EQ(elements("Q,U,x,U\n"), (QStringList{u"use"_qs, u"use"_qs}));
    EXPECT_EQ(elements("Q,End\nU\n"), QStringList());
}

TEST_F(SkinLinesTest, dropComments)
{
    EXPECT_EQ(elements("; a comment, U, E\n;\nU\n;,E\n;x\nU\n"), (QStringList{u"use"_qs, u"use"_qs}));
    EXPECT_EQ(notes.notes, QStringList());
}

TEST_F(SkinLinesTest, collectTheDescription)
{
    callsFor(QByteArray(kHeader).replace("Tonedeck Skin", "Tonedeck Skin, by someone, 2001 ") +
             "/First line\n/Second, with \"commas\", in it\n/, behind a comma\n/\nU\n/last,one");
    EXPECT_EQ(texts.info, u"by someone, 2001\rFirst line\rSecond, with \"commas\", in it\rbehind a comma\r"
                          u"\rlast,one"_qs);
}

TEST_F(SkinLinesTest, beginTheDescriptionAnew)
{
    elements("/text\n");
    EXPECT_EQ(texts.info, u"\rtext"_qs);
    elements("");
    EXPECT_EQ(texts.info, QString());
}

TEST_F(SkinLinesTest, limitTheDescription)
{
    elements("/" + QByteArray(40000, 'x') + "\n/more\nU\n");
    EXPECT_EQ(texts.info.size(), 32767);
    EXPECT_EQ(notes.notes.size(), 2);
    EXPECT_TRUE(notes.notes.value(0).contains(u"7: the description is too long"_qs));
}

TEST_F(SkinLinesTest, jumpToALabelWhenThePictureIsMissing)
{
    target.missing = {u"D:\\skins\\a.bmp"_qs};
    EXPECT_EQ(
        elements("R2,a.bmp\n?0,nobmp\nC,1,2,3,4,\nU\nEnd\n:other\n:Nobmp\nU\n:nobmp2\n:nobmp\nW0,1,1\n"),
        (QStringList{u"load 2 D:\\skins\\a.bmp (missing)"_qs, u"size 0 1x1"_qs}));
    EXPECT_EQ(elements("R2,a.bmp\n?1,nobmp\nU\n:nobmp\n").last(), u"use"_qs);
}

TEST_F(SkinLinesTest, jumpToALabelWhenThePictureIsThere)
{
    EXPECT_EQ(elements("R2,b.bmp\n?1,have\nU\n:have\nW0,1,1\n"),
              (QStringList{u"load 2 D:\\skins\\b.bmp"_qs, u"size 0 1x1"_qs}));
    EXPECT_EQ(elements("R2,b.bmp\n?0,have\nU\n:have\n").last(), u"use"_qs);
}

TEST_F(SkinLinesTest, rememberTheLastPictureAlone)
{
    target.missing = {u"D:\\skins\\a.bmp"_qs};
    EXPECT_EQ(elements("R2,b.bmp\nR2,a.bmp\n?1,x\nU\n:x\n").last(), u"use"_qs);
    EXPECT_EQ(elements("R2,a.bmp\nR2,b.bmp\n?0,x\nU\n:x\n").last(), u"use"_qs);
}

TEST_F(SkinLinesTest, beginWithoutAPicture)
{
    EXPECT_EQ(elements("?0,x\nU\n:x\n"), QStringList());
    EXPECT_EQ(elements("?1,x\nU\n:x\n"), QStringList{u"use"_qs});
    EXPECT_EQ(elements("?,x\nU\n:x\n"), QStringList());
    EXPECT_EQ(elements("?7,x\nU\n:x\n"), QStringList{u"use"_qs});
}

TEST_F(SkinLinesTest, countNoPictureForANumberThatThereIsNot)
{
    EXPECT_EQ(elements("R2,b.bmp\nR3,b.bmp\n?0,x\nU\n:x\n"), QStringList{u"load 2 D:\\skins\\b.bmp"_qs});
}

TEST_F(SkinLinesTest, skipFieldsOneByOneWhileAJumpIsPending)
{
    EXPECT_EQ(elements("?0,x\n;,:x,U\n"), QStringList{u"use"_qs});
    EXPECT_EQ(elements("?0,x\nB1,U,:x\nU\n"), QStringList{u"use"_qs});
    EXPECT_EQ(elements("?0,\"a, b\"\nU\n\":a, b\"\nW0,1,1\n"), QStringList{u"size 0 1x1"_qs});
}

TEST_F(SkinLinesTest, jumpForwardOnly)
{
    EXPECT_EQ(elements(":x\nU\n?0,x\nU\nE\n"), QStringList{u"use"_qs});
    EXPECT_EQ(host.messages, QStringList());
    EXPECT_EQ(notes.notes, QStringList{u"9: no label \"x\" follows, everything behind is skipped"_qs});
}

TEST_F(SkinLinesTest, matchAnEmptyLabelExactly)
{
    EXPECT_EQ(elements("?0,\n:x\nU\n:\nW0,1,1\n"), QStringList{u"size 0 1x1"_qs});
}

TEST_F(SkinLinesTest, nameElementsBeyondTheirRange)
{
    EXPECT_EQ(unknownIn("L21,1,2,3,4,1,2,3,9,F,tip\nU\n"), errorList(u" L21"_qs));
    EXPECT_EQ(unknownIn("I17,1,2,3,4,1,2,3,99,tip\nS5,1,2,3,4,5,6,7,8,\nD7,1,2,10,20,9,13,4,0,1,3,\n"
                        "X2,1,2,3,4,1,2,3,4,5,6,10,Sans,\nR3,a\nW2,1,1\nZ2,1,2,3,4,5,6\nU\n"),
              errorList(u" I17 S5 D7 X2 R3 W2 Z2"_qs));
    EXPECT_EQ(target.calls.count(u"use"_qs), 1);
}

TEST_F(SkinLinesTest, nameNegativeNumbersToo)
{
    EXPECT_EQ(unknownIn("B-1,1,2,3,4,5,6,P,tip\nL-99999,1,2,3,4,1,2,3,9,F,tip\nR-1,a\n"),
              errorList(u" B-1 L-99999 R-1"_qs));
}

TEST_F(SkinLinesTest, takeHugeNumbersForOnesBeyondTheRange)
{
    EXPECT_EQ(unknownIn("L99999999999999999999,1,2,3,4,1,2,3,9,F,tip\nL32769,1,2,3,4,1,2,3,9,F,tip\n"
                        "L65537,1,2,3,4,1,2,3,9,F,tip\nL18446744073709551618,1,2,3,4,1,2,3,9,F,"
                        "tip\nL4294967297,1,2,3,4,1,2,3,9,F,tip\n"),
              errorList(u" L99999999999999999999 L32769 L65537 L18446744073709551618 L4294967297"_qs));
}

TEST_F(SkinLinesTest, doNotNameButtonsAboveTheLast)
{
    EXPECT_EQ(unknownIn("B51,1,2,3,4,5,6,P,tip\nU\n"), errorList(QString()));
    EXPECT_EQ(unknownIn("B51,1,2,3,4,5,6,P,tip\nL21,1,2,3,4,1,2,3,9,F,tip\n"), errorList(u" L21"_qs));
}

TEST_F(SkinLinesTest, limitTheListOfNames)
{
    const QString text = unknownIn(QByteArray("L21,1,2,3,4,1,2,3,9,F,tip\n").repeated(2000));
    EXPECT_LT(text.size(), 1200);
    EXPECT_TRUE(text.endsWith(u" L21 L21 ..."_qs));
    EXPECT_LT(unknownIn("L21" + QByteArray(100000, 'x') + ",1,2,3,4,1,2,3,9,F,tip\n").size(), 200);
}

TEST_F(SkinLinesTest, showTheListBehindTheRepaintAndBeforeTheEnd)
{
    host.onYield = [this] { target.calls += u"yield"_qs; };
    callsFor(kHeader + "L21,1,2,3,4,1,2,3,9,F,tip\n");
    EXPECT_EQ(target.calls.last(4), (QStringList{u"yield"_qs, u"release"_qs, u"repaint"_qs, u"end"_qs}));
    EXPECT_EQ(host.messages.size(), 1);
}

TEST_F(SkinLinesTest, readLeadingNumbers)
{
    EXPECT_EQ(elements("L2x,1,2,3,4,1,2,3,9,F,\n").value(0).left(3), u"L2 "_qs);
    EXPECT_EQ(elements("L 3,1,2,3,4,1,2,3,9,F,\n").value(0).left(3), u"L3 "_qs);
    EXPECT_EQ(elements("L+4.9,1,2,3,4,1,2,3,9,F,\n").value(0).left(3), u"L4 "_qs);
}
