#include "tests/player/tonedeck/skinloadertest.h"

#include <unistd.h>

TEST_F(SkinLoaderTest, loadsASkinByItsName)
{
    EXPECT_EQ(load(u"a.skin"_qs), u"D:\\skins\\main.bmp"_qs);
    EXPECT_EQ(settings.Skin, u"D:\\skins\\a.skin"_qs);
    EXPECT_EQ(loader.SkinDir(), u"D:\\skins\\"_qs);
    EXPECT_TRUE(world.dialogs.messages.empty());
    EXPECT_EQ(world.fileNumbers.freeFile(), 1);
}

TEST_F(SkinLoaderTest, loadsASkinByItsPath)
{
    world.directory.write("disk/other/b.skin", kHeader);
    EXPECT_EQ(load(u"D:\\other\\b.skin"_qs), u"D:\\other\\main.bmp"_qs);
    EXPECT_EQ(settings.Skin, u"D:\\other\\b.skin"_qs);
}

TEST_F(SkinLoaderTest, choosesTheVariantOfTheScreen)
{
    world.directory.write("disk/skins/Gold800.skin", kHeader);
    width = 800;
    load(u"Gold*"_qs);
    EXPECT_EQ(settings.Skin, u"D:\\skins\\Gold800.skin"_qs);
}

TEST_F(SkinLoaderTest, looksWhereTheSkinBeforeWas)
{
    world.directory.write("disk/other/b.skin", kHeader);
    world.directory.write("disk/other/c.skin", kHeader);
    load(u"D:\\other\\b.skin"_qs);
    settings.SkinPath.clear();
    EXPECT_EQ(load(u"c.skin"_qs), u"D:\\other\\main.bmp"_qs);
}

TEST_F(SkinLoaderTest, looksBesideTheProgramAtLast)
{
    world.directory.write("program/default.skin", kHeader);
    EXPECT_EQ(load(u"D:\\gone\\default.skin"_qs), u"P:\\main.bmp"_qs);
    settings.SkinPath.clear();
    EXPECT_EQ(loader.find(u"default.skin"_qs), u"P:\\default.skin"_qs);
    EXPECT_FALSE(loader.find(u"none.skin"_qs));
}

TEST_F(SkinLoaderTest, tellsOfASkinThatIsNotThere)
{
    load(u"a.skin"_qs);
    for (const char* name : {"b%2.skin", "D:\\gone\\x.skin", "", "D:\\skins", "D:\\"}) {
        const QString text = QString::fromLatin1(name);
        EXPECT_EQ(load(text), u"untouched"_qs);
        EXPECT_EQ(world.dialogs.said(-1),
                  u"Songbin|Skin not found!\rSkinName="_qs + text + u"\rSkinPath=D:\\skins"_qs);
    }
    EXPECT_EQ(load(u"G*"_qs), u"untouched"_qs);
    EXPECT_EQ(world.dialogs.said(-1), u"Songbin|Skin not found!\rSkinName=G1024.skin\rSkinPath=D:\\skins"_qs);
    EXPECT_EQ(settings.Skin, u"D:\\skins\\a.skin"_qs);
    EXPECT_EQ(loader.SkinDir(), u"D:\\skins\\"_qs);
}

TEST_F(SkinLoaderTest, tellsOfAFileThatIsNoSkin)
{
    world.directory.write("disk/skins/a.skin", QByteArray(kHeader).replace("Skin\n", "Skin, about a\n"));
    load(u"a.skin"_qs);
    world.directory.write("disk/other/b.skin", "Tonedeck skin\n1,2\n");
    EXPECT_EQ(load(u"D:\\other\\b.skin"_qs), u"untouched"_qs);
    EXPECT_EQ(world.dialogs.said(-1), u"Songbin|Invalid Skin!"_qs);
    EXPECT_EQ(settings.Skin, u"D:\\skins\\a.skin"_qs);
    EXPECT_EQ(loader.SkinDir(), u"D:\\skins\\"_qs);
    EXPECT_EQ(loader.SkinInfoText(), u"about a"_qs);
}

TEST_F(SkinLoaderTest, tellsOfAFileThatIsTooLarge)
{
    world.directory.write("disk/skins/huge.skin", kHeader);
    const QByteArray path = world.directory.at("disk/skins/huge.skin");
    ASSERT_EQ(truncate(path.constData(), (64 << 20) + 1), 0);
    EXPECT_EQ(load(u"huge.skin"_qs), u"untouched"_qs);
    EXPECT_EQ(world.dialogs.said(-1), u"Songbin|Invalid Skin!"_qs);
    EXPECT_EQ(world.fileNumbers.freeFile(), 1);
}

TEST_F(SkinLoaderTest, tellsOfAFileThatCannotBeRead)
{
    for (int i = 1; i < 512; ++i)
        world.fileNumbers.openBinary(i, u"D:\\skins\\a.skin"_qs);
    EXPECT_EQ(load(u"a.skin"_qs), u"untouched"_qs);
    EXPECT_EQ(world.dialogs.said(-1), u"Songbin|Invalid Skin!"_qs);
    world.fileNumbers.closeAll();
    EXPECT_EQ(load(u"a.skin"_qs), u"D:\\skins\\main.bmp"_qs);
}

TEST_F(SkinLoaderTest, showsItsMessagesUnderTheProgramsName)
{
    target.missing = {u"D:\\skins\\main.bmp"_qs};
    world.directory.write("disk/skins/a.skin", kHeader + "B51,1,2,3,4,5,6,P,\nL21,1,2,3,4,1,2,3,9,F,\n");
    load(u"a.skin"_qs);
    EXPECT_EQ(world.dialogs.said(0), u"Songbin|Main bitmap not found: D:\\skins\\main.bmp"_qs);
    EXPECT_EQ(world.dialogs.said(1), u"Songbin|Error in skin file!\rThe skin file contains references to the "
                                     u"following elements that do not exist!:\r L21"_qs);
    EXPECT_EQ(world.dialogs.messages.size(), 2U);
}

TEST_F(SkinLoaderTest, keepsDescriptionAndSwitchNames)
{
    world.directory.write("disk/skins/a.skin", QByteArray(kHeader).replace("Skin\n", "Skin, by x\n") +
                                                   "/more\nB49,1,2,3,4,5,6,A,tip,b.skin\n");
    load(u"a.skin"_qs);
    EXPECT_EQ(loader.SkinInfoText(), u"by x\rmore"_qs);
    EXPECT_EQ(loader.switchName(Command::PreviousSkin), u"b.skin"_qs);
    EXPECT_EQ(loader.switchName(Command::NextSkin), QString());
}

TEST_F(SkinLoaderTest, readsTheCodePageOfTheSettings)
{
    world.directory.write("disk/skins/a.skin", QByteArray(kHeader).replace("main.bmp", "m\xE5.bmp"));
    EXPECT_EQ(load(u"a.skin"_qs), u"D:\\skins\\må.bmp"_qs);
}

TEST_F(SkinLoaderTest, refusesALoadWithinALoad)
{
    world.directory.write("disk/skins/b.skin", kHeader);
    target.onCall = [this](const QString& call) {
        if (call == u"reset")
            loader.LoadSkin(u"b.skin"_qs, false);
        if (call == u"reset")
            loader.SelectSkin();
    };
    load(u"a.skin"_qs);
    EXPECT_EQ(target.calls.filter(u"begin"_qs).size(), 1);
    EXPECT_EQ(world.dialogs.asked, QStringList());
    EXPECT_EQ(settings.Skin, u"D:\\skins\\a.skin"_qs);
    target.onCall = nullptr;
    EXPECT_EQ(load(u"b.skin"_qs), u"D:\\skins\\main.bmp"_qs);
}

TEST_F(SkinLoaderTest, isFreeAgainAfterAFailure)
{
    load(u"none.skin"_qs);
    EXPECT_FALSE(loader.loading());
    EXPECT_EQ(load(u"a.skin"_qs), u"D:\\skins\\main.bmp"_qs);
}

TEST_F(SkinLoaderTest, yieldsToTheEventLoop)
{
    world.directory.write("disk/skins/a.skin", kHeader + QByteArray("U\n").repeated(10));
    world.program.onYield = [this] { closed = true; };
    load(u"a.skin"_qs);
    EXPECT_EQ(world.program.yields, 1);
    EXPECT_EQ(target.calls.filter(u"use"_qs).size(), 1);
    EXPECT_EQ(target.calls.last(), u"end"_qs);
}

TEST_F(SkinLoaderTest, endsALoadThatTheUserStops)
{
    load(u"a.skin"_qs);
    world.directory.write("disk/skins/long.skin", kHeader + QByteArray("U\n").repeated(10));
    world.program.onYield = [this] { loader.stop(); };
    load(u"long.skin"_qs);
    EXPECT_EQ(target.calls.filter(u"use"_qs).size(), 1);
    EXPECT_EQ(target.calls.last(3), (QStringList{u"release"_qs, u"repaint"_qs, u"end"_qs}))
        << "the window goes on";
    EXPECT_EQ(settings.Skin, u"D:\\skins\\a.skin"_qs) << "the next start does not load it once more";
    EXPECT_TRUE(world.dialogs.messages.empty());
    world.program.onYield = nullptr;
    EXPECT_EQ(load(u"a.skin"_qs), u"D:\\skins\\main.bmp"_qs);
    EXPECT_EQ(target.calls.filter(u"repaint"_qs).size(), 1);
}

TEST_F(SkinLoaderTest, tellsItsNotes)
{
    RecordingNotes notes;
    world.directory.write("disk/skins/a.skin", kHeader + "Q\n");
    loader.LoadSkin(u"a.skin"_qs, true, &notes);
    EXPECT_EQ(notes.notes.size(), 1);
}

TEST_F(SkinLoaderTest, selectsASkinByADialog)
{
    world.dialogs.fileAnswer = u"D:\\skins\\a.skin"_qs;
    loader.SelectSkin();
    EXPECT_EQ(world.dialogs.asked,
              QStringList{u"open|Select Skin||D:\\skins|CommonDialog1|Skin control file (*.skin)|*.skin"_qs});
    EXPECT_EQ(settings.Skin, u"D:\\skins\\a.skin"_qs);
}

TEST_F(SkinLoaderTest, beginsTheDialogBesideTheProgram)
{
    settings.SkinPath.clear();
    loader.SelectSkin();
    EXPECT_EQ(world.dialogs.asked,
              QStringList{u"open|Select Skin||P:|CommonDialog1|Skin control file (*.skin)|*.skin"_qs});
    EXPECT_EQ(target.calls, QStringList());
    EXPECT_TRUE(world.dialogs.messages.empty());
}
