#include "tests/player/tonedeck/skinloadertest.h"
#include "tests/support/zipfiles.h"

#include <cstdio>

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

TEST_F(ImportSkin, leavesTheSkinBeforeItsDirectoryAndTextsWhenCancelled)
{
    world.directory.write("disk/skins/b.skin",
                          QByteArray(kHeader).replace("Tonedeck Skin\n", "Tonedeck Skin, the first\n") +
                              "B49,1,1,9,9,1,1,Q,x,next.skin\n");
    load(u"b.skin"_qs);
    world.directory.write("disk/else/i.skin", world.directory.read("disk/skins/i.skin"));
    EXPECT_EQ(load(u"D:\\else\\i.skin"_qs), QString());
    EXPECT_EQ(loader.SkinDir(), u"D:\\skins\\"_qs);
    EXPECT_EQ(loader.SkinInfoText(), u"the first"_qs);
    EXPECT_EQ(loader.switchName(Command::PreviousSkin), u"next.skin"_qs);
}

TEST_F(ImportSkin, leavesThePicturesOfTheSkinBeforeWhenTheUserStopsTheLoad)
{
    settings.SkinImport = u"D:\\old\\"_qs;
    world.dialogs.fileAnswer = u"D:\\deck\\gold\\main.bmp"_qs;
    world.program.onYield = [this] { loader.stop(); };
    world.directory.write("disk/skins/i.skin",
                          world.directory.read("disk/skins/i.skin") + QByteArray("U\n").repeated(10));
    load(u"i.skin"_qs);
    EXPECT_EQ(settings.SkinImport, u"D:\\old\\"_qs);
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

// --- packed sets ----------------------------------------------------------------------------------

namespace {

struct PackedSetWorn : ImportSkin {
    PackedSetWorn()
    {
        world.directory.write("program/classic.skin", world.directory.read("disk/skins/i.skin"));
        world.directory.write("disk/sets/Gold.WSZ",
                              ZipMaker::of({{"Gold/MAIN.BMP", "m"}, {"Gold/region.txt", "r"}}));
    }
    void write(const QByteArray& content) { world.directory.write("disk/sets/Gold.WSZ", content); }
    // Where the set was unpacked to, as the settings have it.
    QString unpacked() const { return settings.SkinImport; }
    void expectNothingButAMessage(const QString& text)
    {
        EXPECT_EQ(world.dialogs.messages.size(), 1U);
        EXPECT_EQ(world.dialogs.said(-1), u"Songbin|"_qs + text + u"\rD:\\sets\\Gold.WSZ"_qs);
        EXPECT_EQ(settings.SkinImport, QString());
        EXPECT_EQ(settings.Skin, u"D:\\skins\\a.skin"_qs);
        world.dialogs.messages.clear();
    }
};

} // namespace

TEST_F(PackedSetWorn, isWornByTheSkinForSets)
{
    load(u"D:\\sets\\Gold.WSZ"_qs);
    EXPECT_EQ(world.dialogs.asked, QStringList()) << "its pictures are known";
    EXPECT_EQ(settings.Skin, u"P:\\classic.skin"_qs);
    EXPECT_EQ(picture(), unpacked() + u"main.bmp"_qs);
    EXPECT_TRUE(world.files.exists(unpacked() + u"region.txt"_qs)) << qPrintable(unpacked());
    EXPECT_TRUE(
        world.drives.machinePath(unpacked()).value_or(QByteArray()).startsWith(world.user.data + "/sets/"));
    EXPECT_TRUE(world.dialogs.messages.empty());
}

TEST_F(PackedSetWorn, isThereAtTheNextStart)
{
    load(u"D:\\sets\\Gold.WSZ"_qs);
    ASSERT_EQ(std::remove(world.directory.at("disk/sets/Gold.WSZ").constData()), 0);
    load(settings.Skin, true);
    EXPECT_EQ(picture(), unpacked() + u"main.bmp"_qs);
    EXPECT_TRUE(world.files.exists(picture()));
    EXPECT_EQ(world.dialogs.asked, QStringList());
}

TEST_F(PackedSetWorn, isChosenInEitherDialog)
{
    world.dialogs.fileAnswer = u"D:\\sets\\Gold.WSZ"_qs;
    loader.SelectSkin();
    EXPECT_EQ(picture(), unpacked() + u"main.bmp"_qs);
    const QString first = unpacked();
    write(ZipMaker::of({{"main.png", "another"}}));
    load(u"i.skin"_qs);
    EXPECT_EQ(settings.Skin, u"D:\\skins\\i.skin"_qs);
    EXPECT_NE(unpacked(), first);
    EXPECT_TRUE(world.files.exists(unpacked() + u"main.png"_qs));
}

TEST_F(PackedSetWorn, tellsInOneBoxWhatIsWrongWithIt)
{
    settings.Skin = u"D:\\skins\\a.skin"_qs;
    world.dialogs.fileAnswer = u"D:\\sets\\Gold.WSZ"_qs;
    write("no archive");
    EXPECT_EQ(load(u"D:\\sets\\Gold.WSZ"_qs), u"untouched"_qs);
    expectNothingButAMessage(u"This set of pictures is damaged, or is no ZIP archive:"_qs);
    load(u"i.skin"_qs);
    expectNothingButAMessage(u"This set of pictures is damaged, or is no ZIP archive:"_qs);
    write(ZipMaker::ofEntries({{.name = "main.bmp", .content = "x", .flags = ZipMaker::kEncrypted}}));
    EXPECT_EQ(load(u"D:\\sets\\Gold.WSZ"_qs), u"untouched"_qs);
    expectNothingButAMessage(u"This set of pictures is protected by a password:"_qs);
    write(ZipMaker::of({{"text.bmp", "x"}}));
    EXPECT_EQ(load(u"D:\\sets\\Gold.WSZ"_qs), u"untouched"_qs);
    expectNothingButAMessage(u"There is no main.bmp and no main.png in this set of pictures:"_qs);
}

TEST_F(PackedSetWorn, needsTheSkinForSets)
{
    ASSERT_EQ(std::remove(world.directory.at("program/classic.skin").constData()), 0);
    EXPECT_EQ(load(u"D:\\sets\\Gold.WSZ"_qs), u"untouched"_qs);
    EXPECT_EQ(world.dialogs.said(-1),
              u"Songbin|Skin not found!\rSkinName=classic.skin\rSkinPath=D:\\skins"_qs);
    EXPECT_EQ(settings.SkinImport, QString());
}
