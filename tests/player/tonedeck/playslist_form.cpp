// Gives the player's commands on its playlist, and what comes from outside.
#include "player/face/statusline.h"
#include "tests/player/tonedeck/playertest.h"
#include "tests/support/rights.h"
#include "tests/support/zipfiles.h"

#include <QBuffer>
#include <QListView>
#include <QScrollBar>

#include <sys/stat.h>

namespace {

struct PlaysList : PlayerTest {
    PlaysList()
    {
        writeSkin("X1,10,10,100,60,1,2,3,250,240,230,8,Sans Serif,List\n");
        startWith({u"a.mp3"_qs, u"b.mp3"_qs, u"c.mp3"_qs});
        shown();
    }
    void select(int row)
    {
        w().controls.PlNames->setCurrentIndex(w().controls.PlNames->model()->index(row, 0));
    }
    QByteArray address(const QByteArray& name) { return "file://" + world.directory.at("disk/" + name); }
};

const QStringList kAbc{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};

} // namespace

// --- commands -------------------------------------------------------------------------------------

TEST_F(PlaysList, removesTheSelectedEntryWith17)
{
    select(1);
    w().DoIt(Command::RemoveEntry);
    EXPECT_EQ(names(), (QStringList{u"a"_qs, u"c"_qs}));
    EXPECT_EQ(w().playlist().selected(), 1);
    EXPECT_EQ(label(Label::EntryCount), u" 2"_qs);
    w().DoIt(Command::ClearPlaylist);
    w().DoIt(Command::RemoveEntry);
    EXPECT_TRUE(world.dialogs.errors.empty());
}

TEST_F(PlaysList, movesTheSelectedEntryWith18And19)
{
    select(0);
    w().DoIt(Command::MoveEntryDown);
    EXPECT_EQ(names(), (QStringList{u"b"_qs, u"a"_qs, u"c"_qs}));
    EXPECT_EQ(w().controls.PlNames->currentIndex().row(), 1);
    EXPECT_EQ(w().playlist().entries()[1].path, u"D:\\a.mp3"_qs);
    w().DoIt(Command::MoveEntryDown);
    w().DoIt(Command::MoveEntryDown);
    EXPECT_EQ(names(), (QStringList{u"b"_qs, u"c"_qs, u"a"_qs}));
    w().DoIt(Command::MoveEntryUp);
    w().DoIt(Command::MoveEntryUp);
    w().DoIt(Command::MoveEntryUp);
    EXPECT_EQ(names(), kAbc);
    EXPECT_EQ(w().playlist().selected(), 0);
}

TEST_F(PlaysList, clearsItWith20)
{
    w().DoIt(Command::Next);
    write(u"cover.bmp"_qs, counted({20, 20}, 90));
    w().LoadCover(u"P:\\cover.bmp"_qs);
    w().DoIt(Command::ClearPlaylist);
    EXPECT_EQ(names(), QStringList());
    EXPECT_EQ(w().playlist().CurTrack(), 1);
    EXPECT_EQ(label(Label::EntryCount), u" 0"_qs);
    EXPECT_EQ(label(Label::ListName), u"untitled"_qs);
    EXPECT_TRUE(w().controls.iCover->picture().isNull());
    EXPECT_EQ(settings.LastCover, QString());
}

TEST_F(PlaysList, loadsAPlaylistWith21)
{
    w().DoIt(Command::LoadPlaylist);
    EXPECT_EQ(names(), kAbc) << "none chosen";
    world.directory.write("disk/more.m3u", "x.mp3\r\ny.mp3\r\n");
    world.dialogs.fileAnswer = u"D:\\more.m3u"_qs;
    w().DoIt(Command::LoadPlaylist);
    EXPECT_EQ(names(), kAbc + QStringList({u"x"_qs, u"y"_qs}));
    EXPECT_EQ(label(Label::ListName), u"more"_qs);
    EXPECT_EQ(label(Label::EntryCount), u" 5"_qs);
    EXPECT_FALSE(w().engine().IsPlaying());
    settings.ClearPLFirst = 1;
    w().DoIt(Command::LoadPlaylist);
    EXPECT_EQ(names(), (QStringList{u"x"_qs, u"y"_qs}));
}

TEST_F(PlaysList, savesItWith22)
{
    world.dialogs.fileAnswer = u"D:\\Saved_List.m3u"_qs;
    w().DoIt(Command::SavePlaylist);
    EXPECT_EQ(world.directory.read("disk/Saved_List.m3u"), "a.mp3\r\nb.mp3\r\nc.mp3\r\n");
    EXPECT_EQ(label(Label::ListName), u"Saved List"_qs);
    EXPECT_EQ(settings.Path, u"D:\\"_qs);
    EXPECT_EQ(stored(u"Path"_qs), u"D:\\"_qs);
    world.dialogs.asked.clear();
    w().DoIt(Command::LoadPlaylist);
    EXPECT_TRUE(world.dialogs.asked.value(0).startsWith(u"open|Load Playlist||D:\\|"_qs));
}

TEST_F(PlaysList, saysWhenItCannotBeSaved)
{
    world.dialogs.fileAnswer = u"D:\\none\\x.m3u"_qs;
    w().DoIt(Command::SavePlaylist);
    EXPECT_EQ(world.dialogs.said(0), u"Songbin|Unable to write Playlist! Is the file read-only?"_qs);
}

TEST_F(PlaysList, saysWhenTheOneFileIsNotFound)
{
    world.dialogs.fileAnswer = u"D:\\special\u2047.mp3"_qs;
    w().EjectDirect();
    EXPECT_EQ(world.dialogs.said(0),
              u"Songbin|It is a special character in your MP3 filename. You have to open it manually"_qs);
    EXPECT_EQ(names(), kAbc);
    EXPECT_EQ(notes(), QStringList());
}

TEST_F(PlaysList, staysWhenTheOneFileIsAListThatCannotBeRead)
{
    songs({u"new.mp3"_qs});
    world.directory.write("disk/secret.m3u", "D:\\new.mp3\r\n");
    chmod(world.directory.at("disk/secret.m3u").constData(), 0);
    chmod(world.directory.path().constData(), 0755);
    world.dialogs.fileAnswer = u"D:\\secret.m3u"_qs;
    {
        const Unprivileged ordinary;
        w().EjectDirect();
    }
    EXPECT_EQ(names(), kAbc);
    EXPECT_EQ(notes(), QStringList());
    EXPECT_EQ(w().findChild<StatusLine*>(u"StatusLine"_qs)->text(), u"secret.m3u could not be read."_qs);
    chmod(world.directory.at("disk/secret.m3u").constData(), 0644);
    w().EjectDirect();
    EXPECT_EQ(names(), QStringList(u"new"_qs)) << "the whole list";
}

// --- the list itself ------------------------------------------------------------------------------

TEST_F(PlaysList, playsTheEntryThatIsDoubleClicked)
{
    const QRect second = w().controls.PlNames->visualRect(w().controls.PlNames->model()->index(1, 0));
    QTest::mouseClick(w().controls.PlNames->viewport(), Qt::LeftButton, {}, second.center());
    EXPECT_EQ(w().playlist().selected(), 1);
    EXPECT_EQ(notes(), QStringList());
    QTest::mouseDClick(w().controls.PlNames->viewport(), Qt::LeftButton, {}, second.center());
    EXPECT_EQ(w().playlist().CurTrack(), 2);
    EXPECT_EQ(notes(), kStarts);
    EXPECT_EQ(device().fileName, u"D:\\b.mp3"_qs);
}

TEST_F(PlaysList, staysWhereItIsScrolledWhenEntriesComeAndGo)
{
    for (int number = 0; number < 50; ++number)
        w().PlAddFileFromEditor(u"D:\\%1.mp3"_qs.arg(number));
    QCoreApplication::processEvents();
    QScrollBar& bar = *w().controls.PlNames->verticalScrollBar();
    bar.setValue(bar.maximum() / 2);
    const int place = bar.value();
    ASSERT_GT(place, 0);
    w().PlAddFileFromEditor(u"D:\\one more.mp3"_qs);
    QCoreApplication::processEvents();
    EXPECT_EQ(bar.value(), place);
    EXPECT_EQ(w().controls.PlNames->model()->rowCount(), 54);
    EXPECT_EQ(w().controls.PlNames->model()->index(53, 0).data().toString(), u"one more"_qs);
}

TEST_F(PlaysList, keepsThePlaylistsSelectionWhenRowsGo)
{
    PlaylistBox& box = *w().controls.PlNames;
    select(2);
    w().DoIt(Command::RemoveEntry);
    EXPECT_EQ(w().playlist().selected(), 1);
    EXPECT_EQ(box.currentIndex().row(), 1);
    select(0);
    w().DoIt(Command::RemoveEntry);
    EXPECT_EQ(w().playlist().selected(), 0);
    EXPECT_EQ(box.currentIndex().data().toString(), u"b"_qs);
    w().DoIt(Command::RemoveEntry);
    EXPECT_EQ(w().playlist().selected(), -1);
    EXPECT_FALSE(box.currentIndex().isValid());
}

TEST_F(PlaysList, playsNothingForADoubleClickBelowItsEntries)
{
    const QPoint below(5, w().controls.PlNames->viewport()->height() - 2);
    ASSERT_FALSE(w().controls.PlNames->indexAt(below).isValid());
    QTest::mouseDClick(w().controls.PlNames->viewport(), Qt::LeftButton, {}, below);
    EXPECT_EQ(notes(), QStringList());
}

// --- what is dropped ------------------------------------------------------------------------------

TEST_F(PlaysList, takesDroppedFilesInTheirOrder)
{
    songs({u"x.mp3"_qs, u"m/y.wav"_qs});
    world.directory.write("disk/list.m3u", "p.mp3\r\n");
    EXPECT_TRUE(drop(w(), address("x.mp3") + "\r\n" + address("list.m3u") + "\r\n" + address("m") + "\r\n"));
    EXPECT_EQ(names(), kAbc + QStringList({u"x"_qs, u"p"_qs, u"y"_qs}));
    EXPECT_EQ(label(Label::EntryCount), u" 6"_qs);
    EXPECT_EQ(notes(), QStringList()) << "added, not played";
}

TEST_F(PlaysList, takesWhatIsDroppedOnTheListToo)
{
    songs({u"x.mp3"_qs});
    EXPECT_TRUE(drop(*w().controls.PlNames->viewport(), address("x.mp3")));
    EXPECT_EQ(names(), kAbc + QStringList(u"x"_qs)) << "once";
    EXPECT_TRUE(drop(*w().controls.Lbl[Label::Time], address("x.mp3")));
    EXPECT_EQ(w().playlist().count(), 5);
}

TEST_F(PlaysList, keepsTheListWhateverIsDropped)
{
    settings.ClearPLFirst = 1;
    world.directory.write("disk/list.m3u", "p.mp3\r\n");
    EXPECT_TRUE(drop(w(), address("list.m3u")));
    EXPECT_EQ(names(), kAbc + QStringList(u"p"_qs));
}

TEST_F(PlaysList, wearsADroppedSetOfPictures)
{
    world.directory.write(
        "program/classic.skin",
        "Tonedeck Skin\n120,80\n120,80\n120,80\n*,classic\nP|*.BMP,main.bmp\n0,0,0,0,0,0,0,0\n"
        "W0,120,80\nW1,9,9\nR2,main.bmp\nZ0,0,0,120,80,0,0\nU\n");
    QImage gold(120, 80, QImage::Format_RGB32);
    gold.fill(qRgb(200, 160, 20));
    QBuffer bitmap;
    bitmap.open(QIODevice::WriteOnly);
    ASSERT_TRUE(gold.save(&bitmap, "BMP"));
    world.directory.write("disk/Gold.wsz", ZipMaker::of({{"Gold/MAIN.BMP", bitmap.data()}}));
    songs({u"x.mp3"_qs});
    EXPECT_TRUE(drop(w(), address("Gold.wsz") + "\r\n" + address("x.mp3") + "\r\n"));
    EXPECT_EQ(names(), kAbc + QStringList(u"x"_qs)) << "music in the same drop is added";
    EXPECT_EQ(pixel(60, 40), qRgb(200, 160, 20));
    EXPECT_EQ(settings.Skin, u"P:\\classic.skin"_qs);
    EXPECT_TRUE(world.dialogs.asked.isEmpty());
    EXPECT_TRUE(world.dialogs.messages.empty());
}

TEST_F(PlaysList, refusesWhatIsNoListOfFiles)
{
    EXPECT_FALSE(drop(w(), "file:///x.mp3", u"text/plain"_qs));
    EXPECT_FALSE(
        drop(*w().controls.PlNames->viewport(), "x", u"application/x-qabstractitemmodeldatalist"_qs));
    EXPECT_EQ(names(), kAbc);
}

TEST_F(PlaysList, isNotHarmedByOddAddresses)
{
    for (const QByteArray& odd :
         {QByteArray(), QByteArray("\r\n\r\n"), QByteArray("http://x/y.mp3"), QByteArray("%"),
          QByteArray("file://%00"), QByteArray(10000, '\0'), QByteArray("\xFF\xFE")})
        EXPECT_TRUE(drop(w(), odd));
    EXPECT_EQ(names(), kAbc);
    EXPECT_TRUE(world.dialogs.errors.empty());
}

// --- files from outside ---------------------------------------------------------------------------

TEST_F(PlaysList, beginsAListWithASingleFile)
{
    w().DoIt(Command::ClearPlaylist);
    songs({u"x.mp3"_qs});
    w().openAndPlay(u"D:\\x.mp3"_qs);
    EXPECT_EQ(label(Label::ListName), u"Commandline: x"_qs);
}
