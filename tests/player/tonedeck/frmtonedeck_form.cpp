#include "tests/support/tonedecktest.h"

#include <QTimer>

using FrmTonedeck = TonedeckTest;

TEST_F(FrmTonedeck, loadsTheDefaultSkinAtTheFirstStartWithoutAMessage)
{
    writeSkin("");
    loaded();
    EXPECT_TRUE(world.dialogs.messages.empty());
    EXPECT_EQ(window().size(), kFace);
    EXPECT_EQ(window().face(), counted(kFace, 10));
    EXPECT_EQ(settings.Skin, u"P:\\default.skin"_qs);
}

TEST_F(FrmTonedeck, saysWhenTheSkinSelectedBeforeIsGoneAndTakesTheDefaultOne)
{
    writeSkin("");
    world.settings.save(u"tonedeckpro"_qs, u"config"_qs, u"Skin"_qs, u"P:\\gone.skin"_qs);
    loaded();
    EXPECT_EQ(world.dialogs.said(0),
              u"Songbin|Previously selected skin not found (P:\\gone.skin)! Using default"_qs);
    EXPECT_EQ(settings.Skin, u"P:\\default.skin"_qs);
    EXPECT_EQ(window().face(), counted(kFace, 10));
}

TEST_F(FrmTonedeck, saysWhenThereIsNoSkinAtAll)
{
    loaded();
    EXPECT_EQ(world.dialogs.said(0), u"Songbin|Skin not found!\rSkinName=P:\\default.skin\rSkinPath="_qs);
    EXPECT_FALSE(window().size().isEmpty());
}

TEST_F(FrmTonedeck, placesEachElementWhereTheSkinSays)
{
    writeSkin("B7,1,2,30,20,100,50,P,Quieter\n"
              "L5,3,4,50,12,255,128,0,9,Sans Serif,Snooze\n"
              "I4,5,6,7,8,10,20,30,0,tip\n"
              "S3,10,60,40,0,150,20,8,6,A slider\n"
              "D2,60,10,0,50,9,13,4,0,1,3,Track\n"
              "C,70,30,20,22,Cover\n"
              "X1,2,40,50,30,1,2,3,250,240,230,8,Sans Serif,List\n");
    frmTonedeck& w = loaded();
    const FaceControls& controls = w.controls;
    EXPECT_EQ(controls.Btn[Command::VolumeDown]->geometry(), QRect(1, 2, 30, 20));
    EXPECT_EQ(controls.Btn[Command::VolumeDown]->toolTip(), u"Quieter"_qs);
    EXPECT_EQ(controls.Btn[Command::VolumeDown]->accessibleName(), u"Quieter"_qs);
    EXPECT_EQ(controls.Btn[Command::VolumeDown]->property("Tag").toString(), u"100,50"_qs);
    EXPECT_EQ(w.skin().buttons[7].key, u"P"_qs);
    EXPECT_EQ(w.skin().buttons[7].pressed, QPoint(100, 50));
    EXPECT_EQ(controls.Lbl[Label::Snooze]->geometry(), QRect(3, 4, 50, 12));
    EXPECT_EQ(controls.Light[4]->geometry(), QRect(5, 6, 7, 8));
    EXPECT_EQ(controls.iSlider[3]->geometry(), QRect(10, 60, 8, 6));
    EXPECT_EQ(w.skin().sliders[3].track, QRect(10, 60, 40, 0));
    EXPECT_EQ(controls.Dig[DisplayItem::Track]->geometry(), QRect(60, 10, 27, 13));
    EXPECT_EQ(controls.iCover->geometry(), QRect(70, 30, 20, 22));
    EXPECT_EQ(controls.PlNames->geometry(), QRect(2, 40, 50, 30));
    for (const QWidget* shown :
         {static_cast<QWidget*>(controls.Btn[Command::VolumeDown]),
          static_cast<QWidget*>(controls.Lbl[Label::Snooze]), static_cast<QWidget*>(controls.iSlider[3]),
          static_cast<QWidget*>(controls.Dig[DisplayItem::Track]), static_cast<QWidget*>(controls.iCover),
          static_cast<QWidget*>(controls.PlNames)})
        EXPECT_FALSE(shown->isHidden()) << qPrintable(shown->objectName());
    EXPECT_TRUE(controls.Btn[Command::VolumeUp]->isHidden());
    EXPECT_TRUE(controls.Dig[DisplayItem::Time]->isHidden());
}

TEST_F(FrmTonedeck, saysTheCommandOfAButtonWithoutAToolTip)
{
    writeSkin("B12,1,2,30,20,0,0,X,~\nB40,40,2,30,20,0,0,Y,~\nD6,1,40,0,0,8,8,4,1,0,5,~\n");
    const FaceControls& controls = loaded().controls;
    EXPECT_EQ(controls.Btn[Command::Play]->accessibleName(), u"Play"_qs);
    EXPECT_EQ(controls.Btn[Command::Play]->toolTip(), QString());
    EXPECT_EQ(controls.Btn[40]->accessibleName(), QString());
    EXPECT_EQ(controls.Dig[DisplayItem::Name]->accessibleName(), u"Name"_qs);
}

TEST_F(FrmTonedeck, namesItsControlsByKindAndNumber)
{
    for (const char* name : {"Btn(1)", "Btn(50)", "Lbl(1)", "Lbl(20)", "Light(1)", "Light(16)", "iSlider(1)",
                             "iSlider(4)", "Dig(1)", "Dig(6)", "Pic(0)", "Pic(2)", "Img(1)", "ResBmp",
                             "TmpBtn", "iCover", "PlNames", "PlPath"})
        EXPECT_TRUE(window().findChild<QWidget*>(QLatin1String(name))) << name;
    EXPECT_TRUE(window().findChild<QTimer*>(u"Timer1"_qs));
    EXPECT_EQ(window().objectName(), u"frmTonedeck"_qs);
    EXPECT_EQ(window().windowTitle(), u"Tonedeck"_qs);
}

TEST_F(FrmTonedeck, paintsTheTimeFromTheGlyphsOfTheResourceBitmap)
{
    writeSkin("D1,10,20,0,0,9,13,4,0,1,0,Time\n");
    loaded().SetDD(DisplayItem::Time, 65.0);
    // It shows blank, 1, colon, 0, 5, with one pixel between them.
    EXPECT_EQ(pixel(10, 20), partPixel(90, 0));
    EXPECT_EQ(pixel(20, 20), partPixel(9, 0));
    EXPECT_EQ(pixel(28, 32), partPixel(17, 12));
    EXPECT_EQ(pixel(30, 20), partPixel(108, 0)) << "the colon is the separator's width";
    EXPECT_EQ(pixel(35, 20), partPixel(0, 0));
    EXPECT_EQ(pixel(45, 20), partPixel(45, 0));
    EXPECT_EQ(pixel(29, 20), facePixel(29, 20)) << "the gap shows the face";
    EXPECT_EQ(pixel(54, 20), facePixel(54, 20));
    EXPECT_EQ(pixel(10, 33), facePixel(10, 33));
}

TEST_F(FrmTonedeck, paintsNothingForADisplayThatTheSkinDoesNotHave)
{
    writeSkin("");
    for (int item = -1; item <= 8; ++item)
        loaded().SetDD(static_cast<DisplayItem>(item), 65.0);
    EXPECT_EQ(window().face(), counted(kFace, 10));
}

TEST_F(FrmTonedeck, showsTheTrackNumberAndTheClockWhenASkinIsLoaded)
{
    writeSkin("D2,10,20,0,0,9,13,4,0,0,3,Track\nL3,0,0,60,10,0,0,0,8,Sans Serif,Clock\n");
    loaded();
    EXPECT_EQ(pixel(28, 20), partPixel(9, 0)) << "track 1";
    EXPECT_EQ(pixel(10, 20), partPixel(90, 0)) << "a blank before it";
    EXPECT_TRUE(window().controls.Lbl[Label::Clock]->text().contains(u':'));
}

TEST_F(FrmTonedeck, drawsLightsOnTheFaceByThePlayersState)
{
    writeSkin("I2,10,10,4,4,255,0,0,0,x\nI4,20,10,4,4,0,255,0,0,x\n");
    loaded();
    EXPECT_EQ(pixel(11, 11), qRgb(255, 0, 0)) << "not playing";
    EXPECT_EQ(pixel(21, 11), facePixel(21, 11)) << "playing";
    EXPECT_EQ(pixel(14, 11), facePixel(14, 11));
}

TEST_F(FrmTonedeck, drawsTheThumbsOfSliders)
{
    writeSkin("S1,10,60,40,0,150,20,8,6,Position\n");
    loaded();
    EXPECT_EQ(pixel(10, 60), partPixel(150, 20));
    EXPECT_EQ(pixel(17, 65), partPixel(157, 25));
    EXPECT_EQ(pixel(18, 65), facePixel(18, 65));
}

TEST_F(FrmTonedeck, hidesWhatTheSkinBeforeHadButLeavesItsButtons)
{
    writeSkin(
        "B1,1,2,30,20,1,1,A,one\nB9,1,2,30,20,100,50,P,nine\nL5,3,4,50,12,255,128,0,9,Sans Serif,Snooze\n"
        "I2,5,6,7,8,10,20,30,0,tip\nS2,10,60,40,0,150,20,8,6,Volume\nD2,60,10,0,50,9,13,4,0,1,3,Track\n"
        "C,70,30,20,22,Cover\nX1,2,40,50,30,1,2,3,250,240,230,8,Sans Serif,List\n");
    writeSkin("B2,1,2,30,20,0,0,Q,two\n", "second.skin");
    frmTonedeck& w = loaded();
    w.LoadSkin(u"second.skin"_qs, true);
    EXPECT_TRUE(w.controls.Btn[Command::Close]->isHidden());
    EXPECT_FALSE(w.controls.Btn[Command::Mute]->isHidden())
        << "kept: of the buttons the first one alone is hidden";
    EXPECT_EQ(w.skin().buttons[9].key, u"P"_qs);
    EXPECT_TRUE(w.controls.Lbl[Label::Snooze]->isHidden());
    EXPECT_TRUE(w.controls.iSlider[2]->isHidden());
    EXPECT_EQ(w.skin().sliders[2].track.size(), QSize(0, 0));
    EXPECT_TRUE(w.controls.Dig[DisplayItem::Track]->isHidden());
    EXPECT_EQ(w.skin().displays[2].origin.x(), 0);
    EXPECT_TRUE(w.controls.iCover->isHidden());
    EXPECT_TRUE(w.controls.PlNames->isHidden());
    EXPECT_EQ(w.face(), counted(kFace, 10)) << "no light, thumb or glyph of the skin before";
}

TEST_F(FrmTonedeck, keepsThePressedPictureOfAButtonWhoseSkinGivesNone)
{
    writeSkin("B9,1,2,30,20,100,50,P,nine\n");
    writeSkin("B9,1,2,30,20,0,0,Q,nine\n", "second.skin");
    frmTonedeck& w = loaded();
    w.LoadSkin(u"second.skin"_qs, true);
    EXPECT_EQ(w.skin().buttons[9].pressed, QPoint(100, 50));
    EXPECT_EQ(w.skin().buttons[9].key, u"Q"_qs);
}

TEST_F(FrmTonedeck, isCutToItsOutlineAndWholeAgainWithoutOne)
{
    writeSkin("N4\nP10,0\nP50,0\nP50,80\nP10,80\n");
    writeSkin("N4\nP10,0\nP50,0\nP50,80\n", "three.skin");
    frmTonedeck& w = loaded();
    EXPECT_EQ(w.mask(), QRegion(10, 0, 40, 80));
    w.LoadSkin(u"three.skin"_qs, true);
    EXPECT_TRUE(w.mask().isEmpty()) << "a point too few";
}

TEST_F(FrmTonedeck, leavesOutWhatLiesInTwoPolygonsOfItsOutline)
{
    writeSkin("M8,2,4,4\nP0,0\nP120,0\nP120,80\nP0,80\nP10,10\nP20,10\nP20,20\nP10,20\n");
    const QRegion expected = QRegion(0, 0, 120, 80) - QRegion(10, 10, 10, 10);
    EXPECT_TRUE(loaded().mask().xored(expected).isEmpty());
}

TEST_F(FrmTonedeck, composesAnImportedFaceFromPiecesOfPictures)
{
    world.directory.write(
        "program/own.skin",
        "Tonedeck Skin\n60,40\n60,40\n60,40\n*,P:\\\n\"Pictures|*.BMP\",main.bmp\n0,0,0,0,0,0,0,0\n"
        "W0,60,40\nW1,30,20\nR2,face.bmp\nZ0,5,6,20,10,1,2\nR2,parts.bmp\nZ1,100,50,30,20,0,0\nU\n"
        "S1,50,30,5,0,3,4,8,6,Position\nE\n");
    settings.SkinImport = u"P:\\"_qs;
    writeSkin("");
    frmTonedeck& w = loaded();
    settings.SkinImport = u"P:\\"_qs;
    w.LoadSkin(u"own.skin"_qs, true);
    EXPECT_TRUE(world.dialogs.messages.empty());
    EXPECT_EQ(w.size(), QSize(60, 40));
    EXPECT_EQ(pixel(1, 2), facePixel(5, 6));
    EXPECT_EQ(pixel(20, 11), facePixel(24, 15));
    EXPECT_EQ(pixel(21, 11), qRgb(0, 0, 0));
    EXPECT_EQ(pixel(50, 30), partPixel(103, 54)) << "a thumb of the composed resource bitmap";
    EXPECT_TRUE(w.controls.Pic[2]->picture().isNull());
}

TEST_F(FrmTonedeck, keepsItsFaceWhenTheImportIsCancelled)
{
    writeSkin("B2,1,2,30,20,0,0,Q,two\nN4\nP10,0\nP50,0\nP50,80\nP10,80\n");
    world.directory.write("program/own.skin",
                          "Tonedeck Skin\n60,40\n50,30\n40,20\n*,P:\\\n\"Pictures|*.BMP\",main.bmp\n"
                          "0,5,0,0,0,0,0,0\nW0,60,40\nE\n");
    frmTonedeck& w = loaded();
    const QPoint place = w.pos();
    w.LoadSkin(u"own.skin"_qs, false);
    EXPECT_EQ(world.dialogs.asked.size(), 1);
    EXPECT_EQ(w.size(), kFace);
    EXPECT_EQ(w.pos(), place);
    EXPECT_EQ(w.face(), counted(kFace, 10));
    EXPECT_EQ(w.mask(), QRegion(10, 0, 40, 80));
    EXPECT_FALSE(w.controls.Btn[Command::Minimise]->isHidden());
    w.DoIt(Command::NextSize);
    EXPECT_EQ(w.size(), QSize(60, 40)) << "the sizes of the skin that stayed";
}

TEST_F(FrmTonedeck, endsALoadThatAsksForAWorkPictureTooLarge)
{
    writeSkin("B2,1,2,30,20,0,0,Q,two\nW0,32767,32767\nB3,1,2,30,20,0,0,Q,three\n");
    loaded();
    EXPECT_FALSE(window().controls.Btn[Command::Minimise]->isHidden());
    EXPECT_TRUE(window().controls.Btn[Command::NextSize]->isHidden());
    EXPECT_TRUE(window().Timer1->isActive());
}

TEST_F(FrmTonedeck, goesThroughItsSizeModes)
{
    writeSkin("");
    frmTonedeck& w = loaded();
    w.DoIt(Command::NextSize);
    EXPECT_EQ(w.size(), QSize(60, 40));
    EXPECT_EQ(w.face(), counted(kFace, 10).copy(0, 0, 60, 40));
    w.DoIt(Command::NextSize);
    EXPECT_EQ(w.size(), QSize(120, 30));
    w.DoIt(Command::NextSize);
    EXPECT_EQ(w.size(), kFace);
}

TEST_F(FrmTonedeck, staysVisibleWhateverSizeASkinAsksFor)
{
    for (const char* sizes : {"0,0\n0,0\n0,0\n", "-5,-5\n-5,-5\n-5,-5\n", "32767,32767\n1,1\n1,1\n"}) {
        world.directory.write("program/odd.skin", QByteArray("Tonedeck Skin\n") + sizes +
                                                      "face.bmp,parts.bmp\n0,0,0,0,0,0,0,0\nE\n");
        writeSkin("");
        loaded().LoadSkin(u"odd.skin"_qs, true);
        EXPECT_GE(window().width(), 1);
        EXPECT_LE(window().width(), 4096);
        EXPECT_GE(window().height(), 1);
        EXPECT_LE(window().height(), 4096);
    }
}

TEST_F(FrmTonedeck, switchesToTheSkinsOfItsButtons)
{
    writeSkin("B49,1,2,30,20,0,0,Q,forty-nine,second.skin\n");
    writeSkin("", "second.skin");
    frmTonedeck& w = loaded();
    w.controls.Btn[Command::PreviousSkin]->click();
    EXPECT_EQ(settings.Skin, u"P:\\second.skin"_qs);
    w.DoIt(Command::NextSkin); // none given
    EXPECT_EQ(settings.Skin, u"P:\\second.skin"_qs);
    EXPECT_TRUE(world.dialogs.messages.empty());
}

TEST_F(FrmTonedeck, restsItsTimerWhileASkinLoads)
{
    writeSkin("");
    loaded();
    EXPECT_TRUE(window().Timer1->isActive());
    EXPECT_EQ(window().Timer1->interval(), 100);
    world.directory.write("program/none.skin", "Tonedeck Skin\n60,40\n60,40\n60,40\nno.bmp,no2.bmp\n");
    bool active = true;
    world.dialogs.onMessage = [&](const Message&) { active = window().Timer1->isActive(); };
    window().LoadSkin(u"none.skin"_qs, true);
    EXPECT_FALSE(active);
    EXPECT_TRUE(window().Timer1->isActive());
    EXPECT_EQ(world.dialogs.said(0), u"Songbin|Main bitmap not found: P:\\no.bmp"_qs);
    EXPECT_EQ(world.dialogs.said(1), u"Songbin|Resource bitmap not found: P:\\no2.bmp"_qs);
    EXPECT_EQ(window().face(), counted(kFace, 10).copy(0, 0, 60, 40)) << "the old bitmap stays";
}

TEST_F(FrmTonedeck, keepsItsListAndItsSkinFromOneStartToTheNext)
{
    writeSkin("");
    writeSkin("", "second.skin");
    world.directory.write("disk/a.mp3", "a");
    world.directory.write("disk/b.mp3", "b");
    world.directory.write("program/playlist.m3u", "D:\\a.mp3\r\nD:\\b.mp3\r\n");
    world.settings.save(u"tonedeckpro"_qs, u"config"_qs, u"StartMd"_qs, u"1"_qs);
    world.settings.save(u"tonedeckpro"_qs, u"config"_qs, u"LastTrack"_qs, u"2"_qs);
    frmTonedeck& w = loaded();
    EXPECT_EQ(w.playlist().count(), 2);
    EXPECT_EQ(w.playlist().CurTrack(), 2);
    EXPECT_EQ(w.controls.PlNames->currentIndex().row(), 1);
    EXPECT_EQ(w.controls.Lbl[Label::EntryCount]->text(), u" 2"_qs);
    w.LoadSkin(u"second.skin"_qs, true);
    w.DoIt(Command::MoveEntryDown); // nothing behind the last entry
    w.DoIt(Command::MoveEntryUp);
    owned.release()->unload(); // deletes itself
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(world.directory.read("program/playlist.m3u"), QByteArray("D:\\b.mp3\r\nD:\\a.mp3\r\n"));
    EXPECT_EQ(world.settings.get(u"tonedeckpro"_qs, u"config"_qs, u"Skin"_qs, {}), u"P:\\second.skin"_qs);

    settings = {};
    loaded();
    EXPECT_EQ(settings.Skin, u"P:\\second.skin"_qs);
    EXPECT_EQ(window().playlist().count(), 2);
}

TEST_F(FrmTonedeck, showsTheNamesOfThePlaylistAndSelectsWhatIsChosen)
{
    writeSkin("X1,0,0,100,60,1,2,3,250,240,230,8,Sans Serif,List\n");
    world.directory.write("program/playlist.m3u", "D:\\a.mp3\r\nD:\\b.mp3\r\n");
    world.settings.save(u"tonedeckpro"_qs, u"config"_qs, u"StartMd"_qs, u"1"_qs);
    frmTonedeck& w = loaded();
    const QAbstractItemModel& names = *w.controls.PlNames->model();
    EXPECT_EQ(names.index(0, 0).data().toString(), u"a"_qs);
    EXPECT_EQ(w.controls.PlPath->model()->index(1, 0).data().toString(), u"D:\\b.mp3"_qs);
    w.controls.PlNames->setCurrentIndex(names.index(1, 0));
    EXPECT_EQ(w.playlist().selected(), 1);
    w.DoIt(Command::ClearPlaylist);
    EXPECT_EQ(names.rowCount(), 0);
    EXPECT_EQ(w.controls.Lbl[Label::EntryCount]->text(), u" 0"_qs);
    EXPECT_EQ(w.controls.Lbl[Label::ListName]->text(), u"untitled"_qs);
}

TEST_F(FrmTonedeck, endsALoadThatAsksForTooManyPixels)
{
    const QByteArray before = "B2,1,2,30,20,0,0,Q,two\n";
    const QByteArray after = "B3,1,2,30,20,0,0,Q,three\n";
    for (const QByteArray& greedy :
         {QByteArray("S1,1,1,5,0,0,0,20000,10000,x\n"), QByteArray("W0,8000,8000\n").repeated(3),
          QByteArray("R2,parts.bmp\n").repeated(7000)}) {
        owned.reset();
        writeSkin(before + greedy + after);
        loaded();
        EXPECT_FALSE(window().controls.Btn[Command::Minimise]->isHidden());
        EXPECT_TRUE(window().controls.Btn[Command::NextSize]->isHidden()) << greedy.left(20).constData();
    }
}

TEST_F(FrmTonedeck, showsAToolTipAsPlainText)
{
    writeSkin("B2,1,2,30,20,0,0,Q,<img src='file:///dev/zero'>\nB3,1,2,30,20,0,0,R," + QByteArray(5000, 'x') +
              "\nL1,1,1,9,9,0,0,0,9,F,<b>bold</b>\nX1,1,1,9,9,0,0,0,9,9,9,9,F,<b>list</b>\n");
    const FaceControls& controls = loaded().controls;
    EXPECT_EQ(controls.Btn[Command::Minimise]->toolTip(),
              u"<span>&lt;img src='file:///dev/zero'&gt;</span>"_qs);
    EXPECT_EQ(controls.Btn[Command::Minimise]->accessibleName(), u"<img src='file:///dev/zero'>"_qs);
    EXPECT_EQ(controls.Btn[Command::NextSize]->toolTip().size(), 1000);
    EXPECT_EQ(controls.Lbl[Label::Time]->toolTip(), u"<span>&lt;b&gt;bold&lt;/b&gt;</span>"_qs);
    EXPECT_EQ(controls.PlNames->toolTip(), u"<span>&lt;b&gt;list&lt;/b&gt;</span>"_qs);
}

TEST_F(FrmTonedeck, cutsWhatAMessageShowsOfAPath)
{
    writeSkin("");
    world.directory.write("program/long.skin", "Tonedeck Skin\n60,40\n60,40\n60,40\n" +
                                                   QByteArray(1000000, 'x') +
                                                   ",parts.bmp\n0,0,0,0,0,0,0,0\nE\n");
    loaded().LoadSkin(u"long.skin"_qs, true);
    EXPECT_TRUE(world.dialogs.said(0).startsWith(u"Songbin|Main bitmap not found: P:\\xxx"_qs));
    EXPECT_LT(world.dialogs.said(0).size(), 2100);
}

TEST_F(FrmTonedeck, staysWholeWhenItsOutlineLeavesNothing)
{
    writeSkin("N4\nP500,500\nP600,500\nP600,600\nP500,600\n");
    EXPECT_TRUE(loaded().mask().isEmpty());
}

TEST_F(FrmTonedeck, drawsTheClockInALetterFontWithoutBlanksBehindIt)
{
    writeSkin("D3,10,20,0,0,3,5,1,1,0,8,Clock\n");
    loaded();
    EXPECT_NE(pixel(24, 20), facePixel(24, 20)) << "the fifth character";
    EXPECT_EQ(pixel(25, 20), facePixel(25, 20));
}
