// Reads the header of a control file, and holds how a load ends.
#include "base/runtimeerror.h"
#include "tests/support/skinworld.h"

struct SkinHeader : SkinWorld {
    static QByteArray with(const char* from, const char* to) { return QByteArray(kHeader).replace(from, to); }
    QString lastNote() const { return notes.notes.isEmpty() ? QString() : notes.notes.last(); }
};

TEST_F(SkinHeader, isAppliedInItsOrder)
{
    EXPECT_EQ(callsFor(kHeader),
              (QStringList{u"begin"_qs, u"sizes 100x50 80x40 60x30"_qs, u"background D:\\skins\\main.bmp"_qs,
                           u"resource D:\\skins\\parts.bmp"_qs, u"reset"_qs, u"hover 2"_qs, u"window 5"_qs,
                           u"release"_qs, u"repaint"_qs, u"end"_qs}));
    EXPECT_EQ(host.timesChosen, 1);
    EXPECT_EQ(host.messages, QStringList());
    EXPECT_EQ(notes.notes, QStringList());
}

TEST_F(SkinHeader, mustBeASkins)
{
    for (const char* file : {"", "\n", "Tonedeck", "tonedeck skin\n", "Tonedeck  Skin\n", "x,Tonedeck Skin\n",
                             "Tonedeck Skins\n"}) {
        texts.info = u"old"_qs;
        EXPECT_EQ(callsFor(file), QStringList()) << file;
        EXPECT_FALSE(recognised) << file;
        EXPECT_EQ(texts.info, u"old"_qs);
    }
    EXPECT_EQ(host.timesChosen, 0);
}

TEST_F(SkinHeader, mayBeQuotedAndHaveADescription)
{
    callsFor(with("Tonedeck Skin\n", "\"Tonedeck Skin\", by someone\n"));
    EXPECT_TRUE(recognised);
    EXPECT_EQ(texts.info, u"by someone"_qs);
}

TEST_F(SkinHeader, tellsMissingBitmapsAndGoesOn)
{
    target.missing = {u"D:\\skins\\main.bmp"_qs, u"D:\\skins\\parts.bmp"_qs};
    EXPECT_TRUE(callsFor(kHeader + "U\n").contains(u"use"_qs));
    EXPECT_EQ(host.messages, (QStringList{u"Main bitmap not found: D:\\skins\\main.bmp"_qs,
                                          u"Resource bitmap not found: D:\\skins\\parts.bmp"_qs}));
    EXPECT_EQ(notes.notes.size(), 2);
    EXPECT_EQ(notes.notes.value(0), u"5: Main bitmap not found, or no picture: D:\\skins\\main.bmp"_qs);
}

TEST_F(SkinHeader, needsNoResourceBitmap)
{
    target.missing = {u"D:\\skins\\"_qs};
    EXPECT_EQ(callsFor(with("main.bmp,parts.bmp", "main.bmp,")).filter(u"resource"_qs), QStringList());
    EXPECT_EQ(host.messages, QStringList());
    callsFor(with("main.bmp,parts.bmp", ",parts.bmp"));
    EXPECT_EQ(host.messages, QStringList{u"Main bitmap not found: D:\\skins\\"_qs});
}

TEST_F(SkinHeader, asksForTheDirectoryOfAnImportSkin)
{
    host.answer = u"D:\\other\\"_qs;
    const QStringList calls =
        callsFor(with("main.bmp,parts.bmp\n", "*,c:\\skins\nPictures|*.bmp,main.bmp\n") + "R2,a.bmp\n");
    EXPECT_EQ(host.asked, QStringList{u"c:\\skins|Pictures|*.bmp|main.bmp"_qs});
    EXPECT_EQ(calls, (QStringList{u"begin"_qs, u"sizes 100x50 80x40 60x30"_qs, u"reset"_qs, u"hover 2"_qs,
                                  u"window 5"_qs, u"load 2 D:\\other\\a.bmp"_qs, u"release"_qs, u"repaint"_qs,
                                  u"end"_qs}));
    EXPECT_EQ(host.timesChosen, 1);
}

TEST_F(SkinHeader, abandonsAnImportThatIsCancelled)
{
    EXPECT_EQ(callsFor(with("main.bmp,parts.bmp\n", "*,c:\\skins\nPictures|*.bmp,main.bmp\n") + "U\n"),
              (QStringList{u"begin"_qs, u"release"_qs, u"repaint"_qs, u"end"_qs}))
        << "the sizes come with the pictures";
    EXPECT_EQ(host.timesChosen, 0);
    EXPECT_EQ(host.messages, QStringList());
}

TEST_F(SkinHeader, touchesNothingWhenASizeIsMalformed)
{
    EXPECT_EQ(callsFor(with("80,40", "80,x")), QStringList());
    EXPECT_EQ(lastNote(), u"3: the load ends here: Type mismatch (13)"_qs);
    EXPECT_EQ(callsFor(with("80,40", "80,40000")), QStringList());
    EXPECT_EQ(lastNote(), u"3: the load ends here: Overflow (6)"_qs);
    EXPECT_EQ(callsFor("Tonedeck Skin\n1,2\n"), QStringList());
    EXPECT_EQ(lastNote(), u"2: the load ends here: Input past end of file (62)"_qs);
    EXPECT_EQ(host.messages, QStringList());
}

TEST_F(SkinHeader, keepsWhatWasAppliedBeforeAnError)
{
    EXPECT_EQ(callsFor(with("2,5,0,0", "2,5,x,0") + "U\n"),
              (QStringList{u"begin"_qs, u"sizes 100x50 80x40 60x30"_qs, u"background D:\\skins\\main.bmp"_qs,
                           u"resource D:\\skins\\parts.bmp"_qs, u"reset"_qs, u"release"_qs, u"repaint"_qs,
                           u"end"_qs}));
    EXPECT_EQ(host.timesChosen, 1);
}

TEST_F(SkinHeader, passesCodesOnThatThereAreNot)
{
    EXPECT_TRUE(callsFor(with("2,5,0", "-3,99,0")).contains(u"window 99"_qs));
    EXPECT_TRUE(target.calls.contains(u"hover -3"_qs));
    EXPECT_EQ(notes.notes, (QStringList{u"6: hover style -3 does not exist, the styles are 0 to 2"_qs,
                                        u"6: window position 99 does not exist, the codes are 0 to 5"_qs}));
}

struct SkinEnd : SkinHeader {};

TEST_F(SkinEnd, leavesWhatStoodBeforeAMalformedElement)
{
    EXPECT_EQ(elements("N3\nP0,0\nP1,0\nP1,1\nU\nL21,1,2,3,4,1,2,3,9,F,\nC,x,2,3,4,tip\nU\n"),
              QStringList{u"use"_qs});
    EXPECT_EQ(host.messages, QStringList()); // the list is that of a file that was read whole
    EXPECT_EQ(lastNote(), u"13: the load ends here: Type mismatch (13)"_qs);
}

TEST_F(SkinEnd, leavesWhatStoodBeforeAnUnfinishedElement)
{
    EXPECT_EQ(elements("U\nC,1,2,3"), QStringList{u"use"_qs});
    EXPECT_EQ(lastNote(), u"8: the load ends here: Input past end of file (62)"_qs);
}

TEST_F(SkinEnd, leavesWhatStoodBeforeAShapeThatThereIsNot)
{
    EXPECT_EQ(elements("U\nI1,1,2,3,4,1,2,3,6,\nU\n"), QStringList{u"use"_qs});
    EXPECT_EQ(lastNote(), u"8: the load ends here: Invalid property value (380)"_qs);
    EXPECT_EQ(elements("I1,1,2,3,4,1,2,3,-1,\nU\n"), QStringList());
}

TEST_F(SkinEnd, comesAlsoWhenTheTargetFails)
{
    target.onCall = [](const QString& call) {
        if (call == u"use" || call == u"repaint")
            throw RunTimeError(ErrorNumber::Overflow);
    };
    EXPECT_EQ(elements("U\nC,1,2,3,4,tip\n"), QStringList{u"use"_qs});
    EXPECT_EQ(notes.notes.size(), 2);
}

TEST_F(SkinEnd, stopsAtTheNextYieldWhenTheWindowWasClosed)
{
    host.onYield = [this] { host.isClosed = true; };
    EXPECT_EQ(
        callsFor(kHeader + "W0,1,1\n" + QByteArray("U\n").repeated(1000) + "N3\nP0,0,P1,0,P1,1").last(3),
        (QStringList{u"size 0 1x1"_qs, u"release"_qs, u"end"_qs}));
    EXPECT_EQ(host.yields, 1);
}

TEST_F(SkinEnd, stopsBehindAMessageWhenTheWindowWasClosed)
{
    host.isClosed = true;
    EXPECT_EQ(callsFor(kHeader + "U\n").last(3),
              (QStringList{u"resource D:\\skins\\parts.bmp"_qs, u"release"_qs, u"end"_qs}));
    EXPECT_EQ(host.timesChosen, 0);
    EXPECT_EQ(host.yields, 0);
}

TEST_F(SkinEnd, givesAClosedWindowNoOutline)
{
    target.onCall = [this](const QString& call) { host.isClosed = host.isClosed || call == u"use"; };
    EXPECT_EQ(callsFor(kHeader + "N3\nP0,0,P1,0,P1,1\nU\n").last(3),
              (QStringList{u"use"_qs, u"release"_qs, u"end"_qs}));
}

TEST_F(SkinEnd, needsNoNotes)
{
    SkinReader reader(kHeader + "Q\nL21,1,2,3,4,1,2,3,9,F,\nL0,1,2,3,4,1,2,3,9,F,\nC,1,2,0,4,\nC,1,2,3,4,\n"
                                "B41,1,2,3,4,5,6,x,\nR1,a\n?1,y\n:y\nN4\n?1,z",
                      codePage);
    SkinInterpreter interpreter({reader, target, host, texts});
    ASSERT_TRUE(interpreter.isSkin());
    interpreter.load(u"D:\\"_qs);
    EXPECT_EQ(target.calls.last(), u"end"_qs);
    EXPECT_EQ(host.messages.size(), 1);
}

TEST_F(SkinEnd, yieldsSometimesInAMillionLines)
{
    target.onCall = [this](const QString&) { target.calls.clear(); };
    callsFor(kHeader + QByteArray("U\n").repeated(1000000));
    EXPECT_GT(host.yields, 1);
    EXPECT_LT(host.yields, 10000);
    host.yields = 0;
    callsFor(kHeader + "?0,x\n" + QByteArray("B1,2,3,4,5,6,7,8,9\n").repeated(1000000));
    EXPECT_GT(host.yields, 1);
}
