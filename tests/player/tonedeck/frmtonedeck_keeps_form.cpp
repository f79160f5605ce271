// Holds what the player's window keeps: what a skin set, its place, and what comes back at the next start.
#include "tests/support/tonedecktest.h"

#include <QScreen>

namespace {

const QString kAbsent = QStringLiteral("(absent)");

struct FrmTonedeckKeeps : TonedeckTest {
    QRect room() { return window().screen()->availableGeometry(); }
    // Returns where the window stands that was there, with a skin of that position code.
    QPoint placed(const QByteArray& code, QPoint before)
    {
        writeSkin("", "placed.skin", "0," + code + ",0,0,0,0,0,0");
        window().move(before);
        window().LoadSkin(u"placed.skin"_qs, true);
        return window().pos();
    }
};

} // namespace

// --- a skin's values ------------------------------------------------------------------------------

TEST_F(FrmTonedeckKeeps, hidesTheFirstImageWithTheSkinBefore)
{
    writeSkin("");
    frmTonedeck& w = loaded();
    w.controls.Img[1]->show();
    w.LoadSkin(u"default.skin"_qs, true);
    EXPECT_TRUE(w.controls.Img[1]->isHidden());
}

TEST_F(FrmTonedeckKeeps, takesTheHoverStyle)
{
    writeSkin("", "default.skin", "2,0,0,0,0,0,0,0");
    writeSkin("", "second.skin", "1,0,9,9,9,9,9,9");
    EXPECT_EQ(loaded().skin().HoverStyle, 2);
    window().LoadSkin(u"second.skin"_qs, true);
    EXPECT_EQ(window().skin().HoverStyle, 1);
    window().LoadSkin(u"none.skin"_qs, true);
    EXPECT_EQ(window().skin().HoverStyle, 1);
}

TEST_F(FrmTonedeckKeeps, theWindowSizesInTwips)
{
    writeSkin("");
    const WindowSizes expected{QSize(1800, 1200), QSize(900, 600), QSize(1800, 450)};
    EXPECT_EQ(loaded().skin().WindowSizes, expected);
}

// --- its place ------------------------------------------------------------------------------------

TEST_F(FrmTonedeckKeeps, eachPositionCodeTouchesItsEdges)
{
    writeSkin("");
    loaded();
    const int right = room().x() + room().width() - kFace.width();
    const int bottom = room().y() + room().height() - kFace.height();
    const QPoint before = room().topLeft() + QPoint(50, 60);
    for (const bool shown : {false, true}) {
        window().setVisible(shown);
        EXPECT_EQ(placed("0", before), before);
        EXPECT_EQ(placed("1", before), QPoint(room().x(), before.y()));
        EXPECT_EQ(placed("2", before), QPoint(right, before.y()));
        EXPECT_EQ(placed("3", before), QPoint(right, bottom));
        EXPECT_EQ(placed("4", before), QPoint(room().x(), bottom));
        EXPECT_EQ(placed("5", before), QPoint((room().x() + right) / 2, (room().y() + bottom) / 2));
        EXPECT_EQ(placed("6", before), before);
    }
}

TEST_F(FrmTonedeckKeeps, staysInsideTheScreenWhateverThePositionCode)
{
    writeSkin("");
    loaded();
    const int right = room().x() + room().width() - kFace.width();
    const int bottom = room().y() + room().height() - kFace.height();
    EXPECT_EQ(placed("0", {-500, -500}), room().topLeft());
    EXPECT_EQ(placed("0", {9000, 9000}), QPoint(right, bottom));
    EXPECT_EQ(placed("1", {0, 9000}), QPoint(room().x(), bottom));
    EXPECT_EQ(placed("2", {0, -500}), QPoint(right, room().y()));
}

TEST_F(FrmTonedeckKeeps, itsStoredPlaceWithASkinThatSaysNone)
{
    writeSkin("");
    store(u"WinSavePos"_qs, u"1"_qs);
    store(u"X"_qs, u"1500"_qs);
    store(u"Y"_qs, u"2250"_qs);
    EXPECT_EQ(loaded().pos(), QPoint(100, 150));
    window().showForm();
    EXPECT_EQ(window().pos(), QPoint(100, 150));
}

TEST_F(FrmTonedeckKeeps, theMiddleWithoutAStoredPlace)
{
    writeSkin("");
    loaded();
    EXPECT_EQ(window().pos(), QPoint(room().x() + (room().width() - kFace.width()) / 2,
                                     room().y() + (room().height() - kFace.height()) / 2));
}

TEST_F(FrmTonedeckKeeps, aSkinsPositionGoesBeforeTheStoredPlace)
{
    writeSkin("", "default.skin", "0,4,0,0,0,0,0,0");
    store(u"WinSavePos"_qs, u"1"_qs);
    store(u"X"_qs, u"1500"_qs);
    store(u"Y"_qs, u"2250"_qs);
    EXPECT_EQ(loaded().pos(), QPoint(room().x(), room().y() + room().height() - kFace.height()));
}

// --- the end --------------------------------------------------------------------------------------

TEST_F(FrmTonedeckKeeps, everyOptionInTheStoreWhenItUnloads)
{
    writeSkin("");
    loaded();
    ASSERT_EQ(stored(u"WinOnTop"_qs), kAbsent);
    settings = {.Path = u"D:\\lists"_qs,
                .WinOnTop = 2,
                .WinSnap = 3,
                .WinSavePos = 4,
                .Auto = 0,
                .Snooze = 6,
                .SnoozeMode = 7,
                .SnoozeTime = u"07:30"_qs,
                .SnoozeHide = 8,
                .ExitMode = 9,
                .StartMd = 10,
                .StartMin = 11,
                .StartMute = 12,
                .StartFile = u"D:\\start.mp3"_qs,
                .Skin = u"P:\\default.skin"_qs,
                .SkinPath = u"D:\\skins"_qs,
                .SkinImport = u"D:\\import\\"_qs,
                .TimeFmt = 13,
                .VisPLPath = u"D:\\visual"_qs,
                .ClearPLFirst = 14,
                .AutoPlay = 15,
                .ValidExt = u"mp3 ogg"_qs,
                .OverlapMs = 1600,
                .ScrollName = 17,
                .UseTagCover = 18,
                .FriendlyNames = 19,
                .LastCover = u"D:\\cover.png"_qs};
    unload();
    const std::pair<const char*, const char*> expected[] = {{"Skin", "P:\\default.skin"},
                                                            {"SkinPath", "D:\\skins"},
                                                            {"SkinImport", "D:\\import\\"},
                                                            {"WinOnTop", "2"},
                                                            {"WinSnap", "3"},
                                                            {"WinSavePos", "4"},
                                                            {"Auto", "0"},
                                                            {"Snooze", "6"},
                                                            {"SnoozeMode", "7"},
                                                            {"SnoozeTime", "07:30"},
                                                            {"SnoozeHide", "8"},
                                                            {"ExitMode", "9"},
                                                            {"StartMd", "10"},
                                                            {"StartMin", "11"},
                                                            {"StartMute", "12"},
                                                            {"StartFile", "D:\\start.mp3"},
                                                            {"TimeFmt", "13"},
                                                            {"VisPLPath", "D:\\visual"},
                                                            {"ClearPlFirst", "14"},
                                                            {"AutoPlay", "15"},
                                                            {"ValidExt", "mp3 ogg"},
                                                            {"PBOverlap", "1600"},
                                                            {"ScrollName", "17"},
                                                            {"UseTagCover", "18"},
                                                            {"FriendlyNames", "19"},
                                                            {"LastCover", "D:\\cover.png"},
                                                            {"LastTrack", "1"}};
    for (const auto& [key, value] : expected)
        EXPECT_EQ(stored(QLatin1String(key)), QLatin1String(value)) << key;
    EXPECT_EQ(stored(u"Path"_qs), kAbsent) << "kept when a playlist is saved, not here";
}

TEST_F(FrmTonedeckKeeps, itsPlaceInTwipsWhenAskedTo)
{
    writeSkin("");
    loaded().move(70, 90);
    settings.WinSavePos = 1;
    unload();
    EXPECT_EQ(stored(u"X"_qs), u"1050"_qs);
    EXPECT_EQ(stored(u"Y"_qs), u"1350"_qs);
}

TEST_F(FrmTonedeckKeeps, noPlaceWhenNotAskedTo)
{
    writeSkin("");
    loaded().move(70, 90);
    settings.WinSavePos = 0;
    unload();
    EXPECT_EQ(stored(u"X"_qs), kAbsent);
    EXPECT_EQ(stored(u"Y"_qs), kAbsent);
    EXPECT_EQ(stored(u"WinSavePos"_qs), u"0"_qs);
}

TEST_F(FrmTonedeckKeeps, thePlaylistAndItsCurrentEntry)
{
    writeSkin("");
    world.directory.write("program/playlist.m3u", "D:\\a.mp3\r\nD:\\b.mp3\r\nD:\\c.mp3\r\n");
    store(u"StartMd"_qs, u"1"_qs);
    store(u"LastTrack"_qs, u"3"_qs);
    loaded();
    world.directory.write("program/playlist.m3u", "");
    store(u"LastTrack"_qs, u"9"_qs);
    window().PlAddFileFromEditor(u"D:\\d.mp3"_qs);
    unload();
    EXPECT_EQ(world.directory.read("program/playlist.m3u"),
              "D:\\a.mp3\r\nD:\\b.mp3\r\nD:\\c.mp3\r\nD:\\d.mp3\r\n");
    EXPECT_EQ(stored(u"LastTrack"_qs), u"3"_qs);
}

TEST_F(FrmTonedeckKeeps, theAutomaticListWhenItIsOn)
{
    writeSkin("");
    const QByteArray list = "D:\\Music\\one.mp3\r\nD:\\Music\\two & Bl\xc3\xa5.mp3\r\n";
    world.directory.write("program/autolist.txt", list);
    store(u"Auto"_qs, u"1"_qs);
    loaded();
    world.directory.write("program/autolist.txt", "of another program");
    unload();
    EXPECT_EQ(world.directory.read("program/autolist.txt"), list);
}

TEST_F(FrmTonedeckKeeps, noAutomaticListWhenItIsOff)
{
    writeSkin("");
    loaded();
    unload();
    EXPECT_FALSE(world.directory.exists("program/autolist.txt"));
    EXPECT_TRUE(world.directory.exists("program/playlist.m3u"));
}

// --- the cover of the last time -------------------------------------------------------------------

TEST_F(FrmTonedeckKeeps, theLastCoverWithItsList)
{
    writeSkin("C,70,30,20,20,Cover\n");
    QImage cover(40, 40, QImage::Format_RGB32);
    cover.fill(qRgb(250, 120, 30));
    ASSERT_TRUE(cover.save(QString::fromLocal8Bit(world.directory.at("disk/cover.png"))));
    store(u"StartMd"_qs, u"1"_qs);
    store(u"LastCover"_qs, u"D:\\cover.png"_qs);
    EXPECT_EQ(loaded().controls.iCover->picture().convertToFormat(QImage::Format_RGB32), cover);
    const QImage shown = window().grab().toImage();
    EXPECT_EQ(shown.pixel(70, 30), qRgb(250, 120, 30));
    EXPECT_EQ(shown.pixel(89, 49), qRgb(250, 120, 30));
    EXPECT_EQ(shown.pixel(90, 49), facePixel(90, 49));
    unload();
    EXPECT_EQ(stored(u"LastCover"_qs), u"D:\\cover.png"_qs);
}

TEST_F(FrmTonedeckKeeps, noCoverWithoutTheListOfTheLastTime)
{
    writeSkin("C,70,30,20,20,Cover\n");
    write(u"cover.png"_qs, counted({20, 20}, 90));
    for (const QString& mode : {u"0"_qs, u"2"_qs}) {
        owned.reset();
        store(u"StartMd"_qs, mode);
        store(u"LastCover"_qs, u"P:\\cover.png"_qs);
        EXPECT_TRUE(loaded().controls.iCover->picture().isNull()) << qPrintable(mode);
    }
}

TEST_F(FrmTonedeckKeeps, noCoverThatOnlyAWindowBeforeHasShown)
{
    writeSkin("");
    write(u"cover.png"_qs, counted({20, 20}, 90));
    loaded().LoadCover(u"P:\\cover.png"_qs);
    unload();
    ASSERT_EQ(stored(u"LastCover"_qs), u"P:\\cover.png"_qs);
    loaded();
    unload();
    EXPECT_EQ(stored(u"LastCover"_qs), QString());
}

TEST_F(FrmTonedeckKeeps, quietAboutACoverThatIsMissingOrDamaged)
{
    writeSkin("C,70,30,20,20,Cover\n");
    write(u"whole.png"_qs, counted({20, 20}, 90));
    const QByteArray whole = world.directory.read("program/whole.png");
    world.directory.write("program/damaged.png", whole.left(30));
    world.directory.write("program/empty.png");
    world.directory.write("program/text.png", "no picture at all");
    world.directory.makeDirectory("program/directory.png");
    world.directory.write("program/playlist.m3u", "D:\\a.mp3\r\n");
    store(u"StartMd"_qs, u"1"_qs);
    for (const char* name : {"P:\\gone.png", "P:\\damaged.png", "P:\\empty.png", "P:\\text.png",
                             "P:\\directory.png", "Q:\\no\\drive.png", "no path at all", "\\", "*?"}) {
        owned.reset();
        store(u"LastCover"_qs, QLatin1String(name));
        EXPECT_TRUE(loaded().controls.iCover->picture().isNull()) << name;
        EXPECT_EQ(window().playlist().count(), 1) << name;
    }
    EXPECT_TRUE(world.dialogs.messages.empty());
    EXPECT_TRUE(world.dialogs.errors.empty());
}
