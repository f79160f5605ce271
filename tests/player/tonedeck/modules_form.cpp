// Plays music modules, whose own player waits for a key.
#include "tests/player/tonedeck/playertest.h"

struct Modules : PlayerTest {
    Modules()
    {
        startWith({u"Tune.mod"_qs, u"Alpha.mp3"_qs});
        shown();
        device().positionMs = 5; // it plays at once
    }
};

TEST_F(Modules, areStartedByABlankInTheirPlayersWindow)
{
    moduleWindow.onFront = [this] { world.program.onYield = [this] { moduleWindow.notes += u"yield"_qs; }; };
    w().DoIt(Command::Play);
    EXPECT_EQ(moduleWindow.notes.mid(0, 3), (QStringList{u"front MOD"_qs, u"yield"_qs, u"blank 77"_qs}));
    EXPECT_EQ(moduleWindow.notes.count(u"blank 77"_qs), 1);
}

TEST_F(Modules, areStartedByNothingWhereThatWindowIsNot)
{
    moduleWindow.isThere = false;
    w().DoIt(Command::Play);
    EXPECT_EQ(moduleWindow.notes, QStringList(u"front MOD"_qs));
    EXPECT_TRUE(w().engine().IsPlaying());
}

TEST_F(Modules, aloneAreHandedOver)
{
    w().DoIt(Command::Next);
    w().DoIt(Command::Play);
    EXPECT_EQ(device().fileName, u"D:\\Alpha.mp3"_qs);
    EXPECT_EQ(moduleWindow.notes, QStringList());
}
