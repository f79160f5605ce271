// Looks at the cover that the player shows.
#include "tests/player/tonedeck/playertest.h"

namespace {

struct Covers : PlayerTest {
    Covers()
    {
        writeSkin("C,70,30,20,20,Cover\n");
        cover("Al.bmp", 1);
        cover("Other.bmp", 2);
        cover("hand.bmp", 3);
        song("a.mp3", "Al");
        song("b.mp3", "Other");
        song("c.mp3", "None");
        world.directory.write("disk/d.wav", QByteArray(300, 'x'));
        world.directory.write("program/playlist.m3u",
                              "D:\\a.mp3\r\nD:\\b.mp3\r\nD:\\c.mp3\r\nD:\\d.wav\r\nD:\\hand.bmp\r\n");
        store(u"StartMd"_qs, u"1"_qs);
        store(u"UseTagCover"_qs, u"1"_qs);
        shown();
    }
    // Writes a picture of its own colour.
    void cover(const char* name, int colour)
    {
        QImage image(20, 20, QImage::Format_RGB32);
        image.fill(colourOfCover(colour));
        ASSERT_TRUE(image.save(QString::fromLocal8Bit(world.directory.at(QByteArray("disk/") + name))));
    }
    static QRgb colourOfCover(int colour) { return qRgb(10 * colour, 200, 0); }
    void song(const char* name, const QByteArray& album)
    {
        const auto field = [](const QByteArray& text) { return text.leftJustified(30, ' '); };
        world.directory.write(QByteArray("disk/") + name, QByteArray(300, 'x') + "TAG" + field("Title") +
                                                              field("Artist") + field(album) + "1999" +
                                                              field("") + '\x05');
    }
    QString shownCover() { return w().coverPath(); }
    QRgb coverPixel() { return w().grab().toImage().pixel(80, 40); }
};

} // namespace

TEST_F(Covers, areThoseOfTheTagsAlbum)
{
    w().DoIt(Command::Play);
    EXPECT_EQ(shownCover().toLower(), u"d:\\al.bmp"_qs);
    EXPECT_EQ(coverPixel(), colourOfCover(1));
    EXPECT_EQ(settings.LastCover, shownCover());
    w().DoIt(Command::Next);
    EXPECT_EQ(coverPixel(), colourOfCover(2));
    EXPECT_EQ(w().engine().tag().album, u"Other"_qs) << "without its blanks";
}

TEST_F(Covers, goWithTheSongTheyBelongTo)
{
    w().DoIt(Command::Next);
    ASSERT_FALSE(shownCover().isEmpty());
    w().DoIt(Command::Next);
    EXPECT_EQ(shownCover(), QString());
    EXPECT_TRUE(w().controls.iCover->picture().isNull());
    EXPECT_EQ(settings.LastCover, QString());
}

TEST_F(Covers, stayThroughSoundsThatHaveNoTag)
{
    w().DoIt(Command::Previous);
    w().DoIt(Command::Previous); // the wave file
    w().LoadCover(u"D:\\Al.bmp"_qs);
    w().DoIt(Command::Play);
    EXPECT_EQ(device().fileName, u"D:\\d.wav"_qs);
    EXPECT_EQ(shownCover(), u"D:\\Al.bmp"_qs);
}

TEST_F(Covers, putThereByHandStayWithoutOneOfTheTag)
{
    w().LoadCover(u"D:\\hand.bmp"_qs);
    EXPECT_EQ(coverPixel(), colourOfCover(3));
    w().DoIt(Command::Previous);
    w().DoIt(Command::Previous);
    w().DoIt(Command::Previous); // c
    ASSERT_EQ(w().playlist().CurTrack(), 3);
    EXPECT_EQ(coverPixel(), colourOfCover(3));
    w().DoIt(Command::Previous);
    EXPECT_EQ(coverPixel(), colourOfCover(2)) << "one of the tag takes its place";
}

TEST_F(Covers, areNotLookedForUnlessAsked)
{
    for (const qint16 option : {qint16(0), qint16(2)}) {
        settings.UseTagCover = option;
        w().DoIt(Command::Play);
        EXPECT_EQ(shownCover(), QString()) << option;
    }
}

TEST_F(Covers, arePicturesOfTheListToo)
{
    w().DoIt(Command::Previous); // the last entry
    EXPECT_EQ(device().deviceType, u"Delay"_qs);
    EXPECT_EQ(shownCover(), u"D:\\hand.bmp"_qs);
    EXPECT_EQ(coverPixel(), colourOfCover(3));
    EXPECT_EQ(label(Label::Length), u"0:05"_qs);
    EXPECT_EQ(label(Label::Name), u"hand (picture)"_qs);
    for (int tick = 1; tick <= 20; ++tick)
        w().Timer1_Timer();
    EXPECT_EQ(label(Label::Time), u"0:02"_qs);
    w().DoIt(Command::Pause);
    for (int tick = 1; tick <= 20; ++tick)
        w().Timer1_Timer();
    EXPECT_EQ(label(Label::Time), u"0:02"_qs) << "paused";
    w().DoIt(Command::Pause);
    for (int tick = 1; tick <= 29; ++tick)
        w().Timer1_Timer();
    EXPECT_TRUE(w().engine().IsPlaying());
    w().Timer1_Timer();
    EXPECT_FALSE(w().engine().IsPlaying()) << "it was the last entry";
}

TEST_F(Covers, thatCannotBeReadLeaveTheOneThereIs)
{
    w().LoadCover(u"D:\\hand.bmp"_qs);
    world.directory.write("disk/broken.bmp", "BM");
    for (const QString& none : {u"D:\\broken.bmp"_qs, u"D:\\none.bmp"_qs, u"D:\\"_qs, u"*"_qs, QString()}) {
        w().LoadCover(none);
        EXPECT_EQ(shownCover(), u"D:\\hand.bmp"_qs) << qPrintable(none);
    }
    world.directory.write("disk/Al.bmp", "BM");
    w().DoIt(Command::Play);
    EXPECT_EQ(shownCover(), u"D:\\hand.bmp"_qs);
    EXPECT_TRUE(world.dialogs.messages.empty());
}

TEST_F(Covers, goWithTheList)
{
    w().DoIt(Command::Play);
    w().DoIt(Command::ClearPlaylist);
    EXPECT_EQ(shownCover(), QString());
    EXPECT_EQ(coverPixel(), facePixel(80, 40));
    EXPECT_EQ(settings.LastCover, QString());
}

TEST_F(Covers, areKeptForTheNextTime)
{
    w().DoIt(Command::Play);
    const QString last = shownCover();
    unload();
    EXPECT_EQ(stored(u"LastCover"_qs), last);
    shown();
    EXPECT_EQ(shownCover(), last);
    EXPECT_EQ(coverPixel(), colourOfCover(1));
}
