// Types single keys into the player's window.
#include "tests/player/tonedeck/playertest.h"

namespace {

struct Keys : PlayerTest {
    Keys()
    {
        writeSkin("B25,10,10,20,16,0,0,I,Intro\nB26,40,10,20,16,0,0,s,Stop\nB27,70,10,20,16,0,0,R,Repeat\n"
                  "B28,90,10,20,16,0,0,R,Shuffle\nB45,10,30,20,16,0,0,Z,nothing\n"
                  "B49,10,50,20,16,0,0,Y,skin,second.skin\nL5,40,50,30,12,0,0,0,8,Sans Serif,Snooze\n"
                  "X1,60,30,50,40,1,2,3,250,240,230,8,Sans Serif,List\n");
        writeSkin("", "second.skin");
        startWith({u"irish.mp3"_qs, u"other.mp3"_qs, u"third.mp3"_qs});
        shown();
    }
    int opaque()
    {
        int found = 0;
        for (const HotArea* button : w().controls.Btn)
            found += button->isOpaque();
        for (const FaceLabel* label : w().controls.Lbl)
            found += label->isOpaque();
        return found;
    }
    int framed()
    {
        int found = 0;
        for (const HotArea* button : w().controls.Btn)
            found += button->hasBorder();
        return found;
    }
    int row() { return w().controls.PlNames->currentIndex().row(); }
};

} // namespace

// --- commands -------------------------------------------------------------------------------------

TEST_F(Keys, runTheCommandOfTheirButton)
{
    type(u'i');
    EXPECT_TRUE(w().engine().IntroMode);
    type(u'I', Qt::ShiftModifier);
    EXPECT_FALSE(w().engine().IntroMode);
}

TEST_F(Keys, ofALowerCaseButtonNeverAnswer)
{
    type(u's');
    type(u'S', Qt::ShiftModifier);
    EXPECT_FALSE(w().engine().StopAfterTrack);
}

TEST_F(Keys, belongToTheFirstOfTwoButtons)
{
    type(u'r');
    EXPECT_TRUE(w().engine().RepeatMode);
    EXPECT_FALSE(w().engine().ShuffleMode);
}

TEST_F(Keys, ofButtonsFrom41OnDoNothing)
{
    const QString before = settings.Skin;
    type(u'z');
    type(u'y');
    EXPECT_EQ(settings.Skin, before);
}

TEST_F(Keys, answerForButtonsThatAreHidden)
{
    w().controls.Btn[Command::Intro]->hide();
    type(u'i');
    EXPECT_TRUE(w().engine().IntroMode);
}

TEST_F(Keys, withCtrlOrAltAreNotTaken)
{
    for (const Qt::KeyboardModifier modifier : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
        type(u'i', modifier);
        EXPECT_FALSE(w().engine().IntroMode) << int(modifier);
        type(u'~', modifier);
        EXPECT_EQ(framed(), 0) << int(modifier);
    }
}

TEST_F(Keys, areOffWhenAskedForExceptTheAids)
{
    w().KeysOff = true;
    type(u'i');
    EXPECT_FALSE(w().engine().IntroMode);
    type(u'`');
    EXPECT_EQ(opaque(), 70);
    type(u'~');
    EXPECT_EQ(framed(), 50);
    press(Qt::Key_Escape, u"\x1B"_qs);
    EXPECT_EQ(opaque() + framed(), 0);
    w().KeysOff = false;
    type(u'i');
    EXPECT_TRUE(w().engine().IntroMode);
}

TEST_F(Keys, escapeEndsALongLoad)
{
    const QString before = settings.Skin;
    writeSkin(QByteArray("B25,70,10,20,16,0,0,I,Intro\n").repeated(300'000) + "B26,9,9,9,9,0,0,S,Stop\n",
              "long.skin");
    int yields = 0;
    world.program.onYield = [&] {
        if (++yields == 2)
            press(Qt::Key_Escape, u"\x1B"_qs);
    };
    w().LoadSkin(u"long.skin"_qs, true);
    EXPECT_EQ(yields, 2);
    EXPECT_FALSE(w().skinLoader().loading());
    EXPECT_EQ(w().controls.Btn[Command::Intro]->x(), 70) << "what was read before stays";
    EXPECT_NE(w().controls.Btn[Command::StopAfterTrack]->x(), 9);
    EXPECT_EQ(settings.Skin, before);
    EXPECT_TRUE(w().Timer1->isActive());
}

// --- the aids -------------------------------------------------------------------------------------

TEST_F(Keys, makeAllButtonsAndLabelsVisible)
{
    EXPECT_EQ(opaque(), 0);
    const QImage before = w().grab().toImage();
    type(u'`');
    EXPECT_EQ(opaque(), 70);
    EXPECT_EQ(framed(), 0);
    const QImage shown = w().grab().toImage();
    EXPECT_NE(shown.pixel(12, 12), before.pixel(12, 12)) << "a button";
    EXPECT_NE(shown.pixel(55, 60), before.pixel(55, 60)) << "a label";
    EXPECT_EQ(shown.pixel(2, 2), before.pixel(2, 2));
    press(Qt::Key_Escape, u"\x1B"_qs);
    EXPECT_EQ(opaque(), 0);
    EXPECT_EQ(w().grab().toImage(), before);
}

TEST_F(Keys, frameAllButtons)
{
    const QImage before = w().grab().toImage();
    type(u'~');
    EXPECT_EQ(framed(), 50);
    EXPECT_EQ(opaque(), 0);
    const QImage shown = w().grab().toImage();
    EXPECT_NE(shown.copy(10, 10, 20, 1), before.copy(10, 10, 20, 1));
    EXPECT_EQ(shown.copy(12, 12, 16, 12), before.copy(12, 12, 16, 12)) << "nothing inside";
    press(Qt::Key_Escape, u"\x1B"_qs);
    EXPECT_EQ(framed(), 0);
    EXPECT_EQ(w().grab().toImage(), before);
}

TEST_F(Keys, showButtonsThatAreHiddenByNoAid)
{
    type(u'`');
    EXPECT_TRUE(w().controls.Btn[Command::LoopStart]->isHidden());
    EXPECT_TRUE(w().controls.Btn[Command::LoopStart]->isOpaque());
}

TEST_F(Keys, undoTheBorderOfAHoverToo)
{
    w().controls.Btn[Command::Intro]->setBorder(true);
    press(Qt::Key_Escape, u"\x1B"_qs);
    EXPECT_EQ(framed(), 0);
}

// --- whose they are -------------------------------------------------------------------------------

TEST_F(Keys, thatAreCommandsDoNotReachTheList)
{
    w().controls.PlNames->setFocus();
    w().controls.PlNames->setCurrentIndex(w().controls.PlNames->model()->index(2, 0));
    type(u'i'); // "irish" would be found
    EXPECT_EQ(row(), 2);
    EXPECT_TRUE(w().engine().IntroMode);
    type(u'`');
    EXPECT_EQ(opaque(), 70);
    EXPECT_EQ(row(), 2);
}

TEST_F(Keys, thatAreNoCommandsReachTheList)
{
    w().controls.PlNames->setFocus();
    type(u'o');
    EXPECT_EQ(row(), 1);
    EXPECT_EQ(w().playlist().selected(), 1);
    press(Qt::Key_Down);
    EXPECT_EQ(row(), 2);
    w().KeysOff = true;
    QTest::qWait(QApplication::keyboardInputInterval() + 50);
    type(u'i');
    EXPECT_EQ(row(), 0) << "no command any more";
}

TEST_F(Keys, removeTheSelectedEntry)
{
    w().controls.PlNames->setFocus();
    w().controls.PlNames->setCurrentIndex(w().controls.PlNames->model()->index(1, 0));
    press(Qt::Key_Delete, u"\x7F"_qs);
    EXPECT_EQ(names(), (QStringList{u"irish"_qs, u"third"_qs}));
    EXPECT_EQ(row(), 1) << "the one that follows";
    EXPECT_EQ(label(Label::EntryCount), u" 2"_qs);
    press(Qt::Key_Delete, u"\x7F"_qs);
    EXPECT_EQ(row(), 0) << "the new last one";
    press(Qt::Key_Backspace, u"\b"_qs);
    EXPECT_EQ(names(), QStringList(u"irish"_qs));
    press(Qt::Key_Delete, u"\x7F"_qs);
    press(Qt::Key_Delete, u"\x7F"_qs);
    EXPECT_EQ(names(), QStringList());
    EXPECT_EQ(label(Label::EntryCount), u" 0"_qs);
    EXPECT_TRUE(world.dialogs.errors.empty());
}

TEST_F(Keys, removeNothingWithoutTheFocusOfTheList)
{
    w().controls.Btn[Command::Intro]->setFocus();
    press(Qt::Key_Delete, u"\x7F"_qs);
    EXPECT_EQ(w().playlist().count(), 3);
}

TEST_F(Keys, leaveTheCurrentEntryWhereItIs)
{
    w().DoIt(Command::Next);
    ASSERT_EQ(w().playlist().CurTrack(), 2);
    w().controls.PlNames->setFocus();
    w().controls.PlNames->setCurrentIndex(w().controls.PlNames->model()->index(0, 0));
    press(Qt::Key_Delete, u"\x7F"_qs);
    EXPECT_EQ(w().playlist().CurTrack(), 2) << "kept: it is another entry's number now";
}

// --- a keyboard's own keys for players ------------------------------------------------------------

TEST_F(Keys, forPlayersPlay)
{
    press(Qt::Key_MediaPlay);
    EXPECT_TRUE(w().engine().IsPlaying());
    press(Qt::Key_MediaTogglePlayPause);
    EXPECT_TRUE(w().engine().IsPaused());
    press(Qt::Key_MediaPause);
    EXPECT_FALSE(w().engine().IsPaused());
    press(Qt::Key_MediaNext);
    EXPECT_EQ(w().playlist().CurTrack(), 2);
    press(Qt::Key_MediaPrevious);
    EXPECT_EQ(w().playlist().CurTrack(), 1);
    tickAt(30'000);
    clearNotes();
    press(Qt::Key_AudioForward);
    EXPECT_EQ(notes(), jumpsTo(40'000));
    press(Qt::Key_AudioRewind);
    EXPECT_EQ(notes(), jumpsTo(20'000));
    press(Qt::Key_MediaStop);
    EXPECT_FALSE(w().engine().IsPlaying());
}
