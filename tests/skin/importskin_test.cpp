#include "tests/skin/skinloadertest.h"

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
    EXPECT_EQ(loader.switchName(49), u"next.skin"_qs);
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
