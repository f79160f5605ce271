// Marks on the player's face: which are seen, and what of the resource bitmap they show.
#include "tests/player/tonedeck/playertest.h"

namespace {

struct MarksShown : PlayerTest {
    MarksShown()
    {
        writeSkin(";@mark,playing,1,1,4,4,100,50\n;@mark,paused,11,1,4,4,110,50\n"
                  ";@mark,stopped,21,1,4,4,120,50\n;@mark,mono,31,1,4,4,130,50\n"
                  ";@mark,stereo,41,1,4,4,140,50\n;@mark,shuffle,51,1,4,4,150,50\n"
                  ";@mark,repeat,61,1,4,4,160,50\n");
        writeSkin("", "bare.skin");
        startWith({u"mono.mp3"_qs, u"stereo.mp3"_qs, u"text.wav"_qs});
        world.directory.write("disk/mono.mp3", "\xFF\xFB\x90\xC0" + QByteArray(300, 'x'));
        world.directory.write("disk/stereo.mp3", QByteArray("\xFF\xFB\x90\x00", 4) + QByteArray(300, 'x'));
        shown();
    }
    // The states whose pictures are on the face, in the order of MarkState.
    QList<int> seen()
    {
        QList<int> states;
        for (int state = 0; state < 7; ++state)
            if (pixel(10 * state + 1, 1) == partPixel(10 * state + 100, 50) &&
                pixel(10 * state + 4, 4) == partPixel(10 * state + 103, 53))
                states += state;
            else
                EXPECT_EQ(pixel(10 * state + 1, 1), facePixel(10 * state + 1, 1)) << state;
        return states;
    }
};

} // namespace

TEST_F(MarksShown, followWhatThePlayerDoes)
{
    EXPECT_EQ(seen(), QList<int>{2}) << "stopped";
    w().DoIt(Command::Play);
    EXPECT_EQ(seen(), (QList<int>{0, 3})) << "playing, mono";
    w().DoIt(Command::Pause);
    EXPECT_EQ(seen(), (QList<int>{1, 3})) << "paused";
    w().DoIt(Command::Pause);
    EXPECT_EQ(seen(), (QList<int>{0, 3})) << "playing";
    w().DoIt(Command::Shuffle);
    w().DoIt(Command::RepeatTrack);
    EXPECT_EQ(seen(), (QList<int>{0, 3, 5, 6})) << "shuffle, repeat";
    w().DoIt(Command::Stop);
    EXPECT_TRUE(seen().contains(2)) << "stopped";
}

TEST_F(MarksShown, followTheChannelsOfTheEntry)
{
    w().DoIt(Command::Next);
    w().DoIt(Command::Play);
    EXPECT_EQ(seen(), (QList<int>{0, 4})) << "stereo";
    w().DoIt(Command::Next);
    EXPECT_EQ(seen(), QList<int>{0}) << "a file that tells none";
    w().DoIt(Command::Previous);
    w().DoIt(Command::Previous);
    EXPECT_EQ(seen(), (QList<int>{0, 3})) << "mono";
}

TEST_F(MarksShown, goWithTheirSkin)
{
    w().LoadSkin(u"bare.skin"_qs, true);
    EXPECT_EQ(seen(), QList<int>());
    w().DoIt(Command::Play);
    EXPECT_EQ(seen(), QList<int>());
}

TEST_F(MarksShown, letThePointerThrough)
{
    writeSkin("B28,18,0,20,20,0,0,Q,shuffle\n;@mark,stopped,21,1,4,4,120,50\n", "below.skin");
    w().LoadSkin(u"below.skin"_qs, true);
    ASSERT_TRUE(w().controls.Mark[1]->isVisible());
    ASSERT_FALSE(w().engine().ShuffleMode);
    clickAt(22, 2);
    EXPECT_TRUE(w().engine().ShuffleMode) << "the button below was not pressed";
}
