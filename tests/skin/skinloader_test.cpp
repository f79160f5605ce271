#include "skin/skinloader.h"

#include "player/playersettings.h"
#include "tests/skin/skinworld.h"
#include "tests/support/world.h"

#include <unistd.h>

namespace {

const QString kFound = u"background "_qs;

} // namespace

struct SkinLoaderTest : testing::Test {
    SkinLoaderTest()
    {
        world.directory.write("disk/skins/a.skin", kHeader);
        settings.SkinPath = u"D:\\skins"_qs;
    }
    // The skin whose directory the bitmaps come from; nothing when the window was left untouched.
    QString load(const QString& name, bool silent = false)
    {
        target.calls.clear();
        loader.LoadSkin(name, silent);
        const QString background = target.calls.filter(kFound).value(0).mid(kFound.size());
        return target.calls.isEmpty() ? u"untouched"_qs : background;
    }

    World world;
    PlayerSettings settings;
    RecordingTarget target;
    int width = 1024;
    bool closed = false;
    SkinLoader loader{{world.context.platform, world.fileNumbers, settings, world.codePage},
                      target,
                      {[this] { return width; }, [this] { return closed; }}};
};

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
    EXPECT_EQ(loader.switchName(49), u"b.skin"_qs);
    EXPECT_EQ(loader.switchName(50), QString());
}

TEST_F(SkinLoaderTest, readsTheCodePageOfTheSettings)
{
    world.directory.write("disk/skins/a.skin", QByteArray(kHeader).replace("main.bmp", "m\xE5.bmp"));
    EXPECT_EQ(load(u"a.skin"_qs), u"D:\\skins\\må.bmp"_qs);
}

struct ImportSkin : SkinLoaderTest {
    ImportSkin()
    {
        world.directory.write(
            "disk/skins/i.skin",
            QByteArray(kHeader).replace("main.bmp,parts.bmp\n", "*,C:\\Deck\nPictures|*.BMP,main.bmp\n") +
                "R2,main.bmp\n");
    }
    QString picture() const { return target.calls.filter(u"load 2 "_qs).value(0).mid(7); }
};

TEST_F(ImportSkin, asksWhereThePicturesAre)
{
    world.dialogs.fileAnswer = u"D:\\deck\\gold\\main.bmp"_qs;
    load(u"i.skin"_qs);
    EXPECT_EQ(world.dialogs.asked,
              QStringList{u"open|Import Skin|main.bmp|C:\\Deck|CommonDialog1|Pictures|*.BMP"_qs});
    EXPECT_EQ(settings.SkinImport, u"D:\\deck\\gold\\"_qs);
    EXPECT_EQ(picture(), u"D:\\deck\\gold\\main.bmp"_qs);
    EXPECT_EQ(settings.Skin, u"D:\\skins\\i.skin"_qs);
}

TEST_F(ImportSkin, isAbandonedWhenCancelled)
{
    settings.SkinImport = u"D:\\old\\"_qs;
    settings.Skin = u"D:\\skins\\a.skin"_qs;
    load(u"i.skin"_qs);
    EXPECT_EQ(settings.SkinImport, u"D:\\old\\"_qs);
    EXPECT_EQ(settings.Skin, u"D:\\skins\\a.skin"_qs);
    EXPECT_EQ(picture(), QString());
    EXPECT_EQ(target.calls.last(), u"end"_qs);
    EXPECT_TRUE(world.dialogs.messages.empty());
}

TEST_F(ImportSkin, asksNothingWhenSilent)
{
    settings.SkinImport = u"D:\\old"_qs;
    load(u"i.skin"_qs, true);
    EXPECT_EQ(world.dialogs.asked, QStringList());
    EXPECT_EQ(picture(), u"D:\\old\\main.bmp"_qs);
    EXPECT_EQ(settings.SkinImport, u"D:\\old"_qs);
}

TEST_F(ImportSkin, takesTheProposalWhereNothingIsStored)
{
    load(u"i.skin"_qs, true);
    EXPECT_EQ(picture(), u"C:\\Deck\\main.bmp"_qs);
    EXPECT_EQ(settings.SkinImport, QString());
}

TEST_F(ImportSkin, proposesADirectoryBesideTheSkin)
{
    world.directory.write("disk/skins/i.skin", QByteArray(kHeader).replace("main.bmp,parts.bmp\n",
                                                                           "*,classic\nP|*.BMP,main.bmp\n"));
    load(u"i.skin"_qs);
    EXPECT_EQ(world.dialogs.asked,
              QStringList{u"open|Import Skin|main.bmp|D:\\skins\\classic|CommonDialog1|P|*.BMP"_qs});
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
