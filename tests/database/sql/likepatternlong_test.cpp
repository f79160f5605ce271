// Long patterns over long texts. A way that takes its time by length times length would not end within the
// tests' time limit.
#include "database/sql/likepattern.h"

#include <gtest/gtest.h>

namespace {

constexpr qsizetype kLong = 1000000;

// The text with that behind it fits, but not without.
void expectNeeded(const QByteArray& pattern, const QByteArray& text, const QByteArray& end)
{
    const LikePattern compiled(pattern, LikeSyntax::Sql);
    EXPECT_FALSE(compiled.matches(text));
    EXPECT_TRUE(compiled.matches(text + end));
}

} // namespace

TEST(LikePatternLong, manyShortPieces)
{
    const QByteArray text(kLong, 'a');
    expectNeeded(QByteArray("%a").repeated(20000) + "%b", text, "b");
    expectNeeded(QByteArray("%a").repeated(20000) + "%b%", text, "B");
    expectNeeded(QByteArray("%a").repeated(20000) + "%\xFF%", text, "\xFF");
    expectNeeded(QByteArray("%_").repeated(20000) + "%b%", text, "b");
    EXPECT_TRUE(LikePattern(QByteArray("*a").repeated(20000) + '*', LikeSyntax::Find).matches(text));
}

// Each piece has rare forms that would have to be looked for in the whole text.
TEST(LikePatternLong, manyShortPiecesWithRareForms)
{
    const QByteArray text = QByteArray(kLong, 'k') + "ø";
    expectNeeded(QByteArray("%k").repeated(20000) + "%b%", text, "b");
    expectNeeded(QByteArray("%k").repeated(20000) + "%s%", text, "ſ");
}

TEST(LikePatternLong, onePieceThatAlmostFitsEverywhere)
{
    const QByteArray text(kLong, 'a');
    const QByteArray half(20000, 'a');
    for (const QByteArray& odd : {QByteArray("b"), QByteArray("k"), QByteArray("ø"), QByteArray("\xFF")})
        expectNeeded('%' + half + odd + half + '%', text, odd + half);
    expectNeeded('%' + half + 'b' + half, text, 'b' + half);
    expectNeeded('%' + half + "b%" + half + "b%", text, 'b' + half + 'b');
}

TEST(LikePatternLong, textsWithoutAnyWildcard)
{
    const QByteArray text = QByteArray("aå").repeated(kLong);
    EXPECT_TRUE(LikePattern(text, LikeSyntax::Sql).matches(QByteArray("AÅ").repeated(kLong)));
    EXPECT_FALSE(LikePattern(text, LikeSyntax::Sql).matches(text.chopped(2)));
    EXPECT_FALSE(LikePattern(text, LikeSyntax::Sql).matches(text + 'a'));
}

TEST(LikePatternLong, nothingButWildcards)
{
    const QByteArray text(kLong, 'a');
    EXPECT_TRUE(LikePattern(QByteArray(kLong, '%'), LikeSyntax::Sql).matches(text));
    EXPECT_TRUE(LikePattern(QByteArray(kLong, '_'), LikeSyntax::Sql).matches(text));
    EXPECT_FALSE(LikePattern(QByteArray(kLong + 1, '_'), LikeSyntax::Sql).matches(text));
    EXPECT_TRUE(LikePattern('b' + QByteArray(kLong, '%') + 'c', LikeSyntax::Sql).matches('b' + text + 'c'));
}
