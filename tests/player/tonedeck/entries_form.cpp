// Holds what the list box shows of its entries: which one is played, and what to do when there is none.
#include "player/face/playerkeys.h"
#include "tests/player/tonedeck/playertest.h"

namespace {

const QByteArray kList = "X1,10,10,100,60,0,0,0,250,250,250,9,DejaVu Sans,List\n";
const QByteArray kAddFiles = "B23,0,0,9,9,1,1,O,Add files\n";

struct Entries : PlayerTest {
    void play(const QStringList& files)
    {
        startWith(files);
        writeSkin(kList);
        shown();
        w().DoIt(Command::Play);
    }
    QVariant data(int row, int role) { return w().controls.PlNames->model()->index(row, 0).data(role); }
    EntryMark mark(int row) { return static_cast<EntryMark>(data(row, kEntryMarkRole).toInt()); }
    bool isBold(int row) { return data(row, Qt::FontRole).value<QFont>().bold(); }
    // Takes the part of the window where the first entries' marks are.
    QImage marks()
    {
        const PlaylistBox& list = *w().controls.PlNames;
        const QFontMetrics metrics(list.font());
        return w().grab().toImage().copy(10, 10, 2 * (metrics.xHeight() | 1), 2 * (metrics.height() + 4));
    }
    static int dark(const QImage& image)
    {
        int found = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                found += qGray(image.pixel(x, y)) < 128;
        return found;
    }
    QImage listShown() { return w().grab().toImage().copy(10, 10, 100, 60); }
};

} // namespace

TEST_F(Entries, thePlayingOneIsBoldWithAMark)
{
    play({u"a.mp3"_qs, u"b.mp3"_qs});
    w().controls.PlNames->setCurrentIndex({}); // the selected one has other colours
    EXPECT_EQ(mark(0), EntryMark::Playing);
    EXPECT_TRUE(isBold(0));
    EXPECT_EQ(mark(1), EntryMark::None);
    EXPECT_FALSE(isBold(1));
    EXPECT_GT(dark(marks()), 8);
    EXPECT_EQ(data(0, Qt::AccessibleDescriptionRole).toString(), u"playing"_qs);
    EXPECT_EQ(data(0, Qt::DisplayRole).toString(), u"a"_qs) << "its name stays";
    w().DoIt(Command::Next);
    EXPECT_EQ(mark(0), EntryMark::None);
    EXPECT_EQ(mark(1), EntryMark::Playing);
}

TEST_F(Entries, thePausedOneHasAnotherMarkAndAStoppedListNone)
{
    play({u"a.mp3"_qs});
    w().controls.PlNames->setCurrentIndex({});
    const QImage playing = marks();
    w().DoIt(Command::Pause);
    EXPECT_EQ(mark(0), EntryMark::Paused);
    EXPECT_NE(marks(), playing);
    w().DoIt(Command::Pause);
    EXPECT_EQ(marks(), playing);
    w().DoIt(Command::Stop);
    EXPECT_EQ(mark(0), EntryMark::None);
    EXPECT_FALSE(isBold(0));
    EXPECT_EQ(dark(marks()), 0);
}

// The current number stays where it was, which is another entry then.
TEST_F(Entries, theMarkGoesWithTheEntryThatIsPlayed)
{
    play({u"a.mp3"_qs, u"b.mp3"_qs, u"c.mp3"_qs});
    w().DoIt(Command::Next); // b
    w().controls.PlNames->setCurrentIndex(w().controls.PlNames->model()->index(0, 0));
    w().DoIt(Command::RemoveEntry); // a goes
    EXPECT_EQ(mark(0), EntryMark::Playing);
    EXPECT_EQ(mark(1), EntryMark::None);
    w().DoIt(Command::MoveEntryDown); // b below c
    EXPECT_EQ(mark(1), EntryMark::Playing);
}

TEST_F(Entries, anEmptyListSaysHowToFillIt)
{
    writeSkin(kList + kAddFiles);
    shown();
    EXPECT_EQ(emptyListText(w().skin()), u"Drop music here or press O"_qs);
    EXPECT_GT(dark(listShown()), 100);
    w().PlAddFileFromEditor(songs({u"a.mp3"_qs}).front());
    w().controls.PlNames->setCurrentIndex({});
    EXPECT_EQ(dark(listShown().copy(0, 30, 100, 30)), 0) << "below the one entry";
    w().DoIt(Command::ClearPlaylist);
    EXPECT_GT(dark(listShown()), 100);
}

TEST_F(Entries, anEmptyListNamesTheKeyThatTheSkinReallyHas)
{
    SkinState skin;
    EXPECT_EQ(emptyListText(skin), u"Drop music here"_qs);
    skin.buttons[23].key = u"A"_qs;
    EXPECT_EQ(emptyListText(skin), u"Drop music here or press A"_qs);
    skin.buttons[23].key = u" "_qs;
    EXPECT_EQ(emptyListText(skin), u"Drop music here or press Space"_qs);
    skin.buttons[23].key = u"o"_qs;
    EXPECT_EQ(emptyListText(skin), u"Drop music here"_qs) << "a small letter never answers";
    skin.buttons[23].key = u"O"_qs;
    skin.buttons[12].key = u"O"_qs;
    EXPECT_EQ(emptyListText(skin), u"Drop music here"_qs) << "that key plays";
}

TEST_F(Entries, theListThatTheKeyboardComesToHasAFrame)
{
    writeSkin(kList);
    shown();
    w().activateWindow();
    w().controls.PlNames->clearFocus(); // which it has from the start
    const QImage before = listShown();
    w().controls.PlNames->setFocus(Qt::TabFocusReason);
    const QImage framed = listShown();
    EXPECT_EQ(framed.pixel(50, 0), qRgb(0, 0, 0));
    EXPECT_EQ(framed.pixel(50, 1), qRgb(255, 255, 255));
    w().controls.PlNames->clearFocus();
    EXPECT_EQ(listShown(), before);
}
