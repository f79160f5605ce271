#include "system/desktop/namefilters.h"

#include <gtest/gtest.h>

namespace {

// Returns "text=pattern,pattern" of each entry.
std::string entries(const QString& filter)
{
    QStringList all;
    for (const NameFilter& one : nameFilters(filter))
        all += one.text + u'=' + one.patterns.join(u',');
    return all.join(u'/').toStdString();
}

std::string inToolkit(const QString& text, const QStringList& patterns)
{
    return toolkitFilter({text, patterns}).toStdString();
}

std::string extension(const QString& pattern)
{
    return firstExtension({u"x"_qs, {pattern, u"*.second"_qs}}).toStdString();
}

} // namespace

TEST(nameFilters, partsTextsAndPatternsAtBars)
{
    EXPECT_EQ(entries(u"MP3 Playlists (*.M3U)|*.M3U|Pictures|*.BMP; *.GIF;|Modules|*FAR"_qs),
              "MP3 Playlists (*.M3U)=*.M3U/Pictures=*.BMP,*.GIF/Modules=*FAR");
}

TEST(nameFilters, aTextWithoutAPatternOffersEveryFile)
{
    EXPECT_EQ(entries(u"Music|*.MP?|Bitmaps|"_qs), "Music=*.MP?/Bitmaps=*");
    EXPECT_EQ(entries(u"Music|*.MP?|Bitmaps"_qs), "Music=*.MP?/Bitmaps=*");
    EXPECT_EQ(entries(u"Music| ; |All Files|*.*"_qs), "Music=*/All Files=*");
}

TEST(nameFilters, nothingBehindTheLastBarIsNoEntry)
{
    EXPECT_EQ(entries(u"Music|*.MP?|"_qs), "Music=*.MP?");
    EXPECT_EQ(entries(QString()), "");
    EXPECT_EQ(entries(u"|"_qs), "=*"); // a text, if an empty one
}

TEST(nameFilters, thePatternsStandInTheLastParentheses)
{
    EXPECT_EQ(inToolkit(u"Playlists (*.M3U)"_qs, {u"*.M3U"_qs, u"*.PLS"_qs}),
              "Playlists (*.M3U) (*.M3U *.PLS)");
}

TEST(nameFilters, whatTheToolkitTakesForNoPatternIsAnyCharacter)
{
    EXPECT_EQ(inToolkit(u"x"_qs, {u"*(1) [a] \u00E5\U0001F3B5.*"_qs}), "x (*?1???a????.*)");
}

TEST(nameFilters, onlyAPlainExtensionIsAppended)
{
    EXPECT_EQ(extension(u"*.M3U"_qs), "M3U");
    for (const QString& open :
         {u"*"_qs, u"*."_qs, u"*FAR"_qs, u"*.MP?"_qs, u"*.*"_qs, u"a.*"_qs, u"*.tar.gz"_qs})
        EXPECT_EQ(extension(open), "") << open.toStdString();
}
