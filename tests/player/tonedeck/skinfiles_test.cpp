#include "player/tonedeck/skinfiles.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <algorithm>

namespace {

// What is asked for when only the given files exist.
struct Asked {
    std::optional<QString> found;
    QStringList paths;
};

Asked find(const QString& name, const SkinDirectories& directories, const QStringList& files)
{
    Asked asked;
    asked.found = findSkin(name, directories, [&](const QString& path) {
        asked.paths += path;
        return files.contains(path);
    });
    return asked;
}

} // namespace

TEST(skinFileName, putsTheScreensWidthForAStar)
{
    EXPECT_EQ(skinFileName(u"Gold*"_qs, 800), u"Gold800.skin"_qs);
    EXPECT_EQ(skinFileName(u"Gold*"_qs, 1024), u"Gold1024.skin"_qs);
    EXPECT_EQ(skinFileName(u"D:\\skins\\*"_qs, 1024), u"D:\\skins\\1024.skin"_qs);
    EXPECT_EQ(skinFileName(u"*"_qs, 1920), u"1920.skin"_qs);
}

TEST(skinFileName, replacesTheLastStarAlone)
{
    EXPECT_EQ(skinFileName(u"a*b"_qs, 800), u"a*b"_qs);
    EXPECT_EQ(skinFileName(u"a**"_qs, 800), u"a*800.skin"_qs);
    EXPECT_EQ(skinFileName(u"Gold.skin"_qs, 800), u"Gold.skin"_qs);
    EXPECT_EQ(skinFileName(QString(), 800), QString());
}

TEST(findSkin, looksInTheSettingsDirectoryFirst)
{
    const SkinDirectories directories{.skins = u"D:\\s"_qs, .before = u"D:\\b\\"_qs, .program = u"P:"_qs};
    EXPECT_EQ(find(u"a.skin"_qs, directories, {u"D:\\s\\a.skin"_qs}).paths, QStringList{u"D:\\s\\a.skin"_qs});
    EXPECT_EQ(find(u"a.skin"_qs, {.skins = u"D:\\s\\"_qs}, {u"D:\\s\\a.skin"_qs}).found, u"D:\\s\\a.skin"_qs);
}

TEST(findSkin, thenInThatOfTheSkinBefore)
{
    const SkinDirectories directories{.before = u"D:\\b\\"_qs, .program = u"P:"_qs};
    EXPECT_EQ(find(u"a.skin"_qs, directories, {u"D:\\b\\a.skin"_qs}).found, u"D:\\b\\a.skin"_qs);
}

TEST(findSkin, thenBesideTheProgram)
{
    EXPECT_EQ(find(u"a.skin"_qs, {.program = u"P:"_qs}, {u"P:\\a.skin"_qs}).paths,
              QStringList{u"P:\\a.skin"_qs});
}

TEST(findSkin, takesAPathWithADriveAsItStands)
{
    const SkinDirectories directories{.skins = u"D:\\s"_qs, .program = u"P:"_qs};
    EXPECT_EQ(find(u"D:\\x\\a.skin"_qs, directories, {u"D:\\x\\a.skin"_qs}).found, u"D:\\x\\a.skin"_qs);
    EXPECT_EQ(find(u"sub\\a.skin"_qs, directories, {u"D:\\s\\sub\\a.skin"_qs}).found,
              u"D:\\s\\sub\\a.skin"_qs);
}

TEST(findSkin, fallsBackOnTheNameBesideTheProgram)
{
    const SkinDirectories directories{.skins = u"D:\\s"_qs, .before = u"D:\\b\\"_qs, .program = u"P:"_qs};
    EXPECT_EQ(find(u"sub\\a.skin"_qs, directories, {u"P:\\a.skin"_qs, u"D:\\b\\sub\\a.skin"_qs}).paths,
              (QStringList{u"D:\\s\\sub\\a.skin"_qs, u"P:\\a.skin"_qs}));
    EXPECT_EQ(find(u"D:\\x\\a.skin"_qs, directories, {u"P:\\a.skin"_qs}).found, u"P:\\a.skin"_qs);
}

TEST(findSkin, findsNothingWhereNoneIs)
{
    const Asked asked = find(u"a.skin"_qs, {.skins = u"D:\\s"_qs, .program = u"P:"_qs}, {});
    EXPECT_FALSE(asked.found);
    EXPECT_EQ(asked.paths, (QStringList{u"D:\\s\\a.skin"_qs, u"P:\\a.skin"_qs}));
}
