#include "database/sql/likepattern.h"

#include "tests/database/sql/guardedbytes.h"

#include <QString>

#include <gtest/gtest.h>

namespace {

bool like(const char16_t* text, const char16_t* pattern)
{
    return LikePattern(QStringView(pattern).toUtf8(), LikeSyntax::Sql).matches(QStringView(text).toUtf8());
}

bool likeBytes(const QByteArray& text, const QByteArray& pattern)
{
    return LikePattern(pattern, LikeSyntax::Sql).matches(text);
}

bool found(const QByteArray& text, const QByteArray& pattern)
{
    return LikePattern(pattern, LikeSyntax::Find).matches(text);
}

} // namespace

TEST(LikePattern, theWholeTextHasToFit)
{
    EXPECT_TRUE(like(u"beat", u"beat"));
    EXPECT_FALSE(like(u"beats", u"beat"));
    EXPECT_FALSE(like(u"a beat", u"beat"));
    EXPECT_FALSE(like(u"bea", u"beat"));
    EXPECT_TRUE(like(u"", u""));
    EXPECT_FALSE(like(u"a", u""));
    EXPECT_FALSE(like(u"", u"a"));
    EXPECT_TRUE(LikePattern({}, LikeSyntax::Sql).matches({}));
}

TEST(LikePattern, aPercentSignStandsForAnyCharactersAlsoNone)
{
    EXPECT_TRUE(like(u"", u"%"));
    EXPECT_TRUE(like(u"å", u"%"));
    EXPECT_TRUE(like(u"beat", u"%beat%"));
    EXPECT_TRUE(like(u"the beat it", u"%beat%"));
    EXPECT_FALSE(like(u"the bea it", u"%beat%"));
    EXPECT_TRUE(like(u"beat it", u"beat%"));
    EXPECT_FALSE(like(u"a beat it", u"beat%"));
    EXPECT_TRUE(like(u"the beat", u"%beat"));
    EXPECT_FALSE(like(u"the beat it", u"%beat"));
    EXPECT_TRUE(like(u"D:\\Abba\\x.mp3s", u"%.MP3%"));
    EXPECT_TRUE(like(u"100%", u"%0%%"));
}

TEST(LikePattern, thePiecesStandInTheirOrderWithoutOverlap)
{
    EXPECT_TRUE(like(u"one two three", u"%one%three%"));
    EXPECT_FALSE(like(u"one two three", u"%three%one%"));
    EXPECT_TRUE(like(u"abcabc", u"%abc%abc%"));
    EXPECT_FALSE(like(u"abcab", u"%abc%abc%"));
    EXPECT_FALSE(like(u"aba", u"%ab%ba%"));
    EXPECT_FALSE(like(u"aba", u"ab%ba"));
    EXPECT_TRUE(like(u"abba", u"ab%ba"));
    EXPECT_FALSE(like(u"abca", u"a%bc%ca"));
    EXPECT_TRUE(like(u"aabab", u"a%ab"));
    EXPECT_TRUE(like(u"ababac", u"%abac"));
    EXPECT_TRUE(like(u"xababacx", u"_%abac%_"));
}

TEST(LikePattern, severalWildcardsInARowAreOne)
{
    EXPECT_TRUE(like(u"", u"%%%"));
    EXPECT_TRUE(like(u"a", u"%%%"));
    EXPECT_TRUE(like(u"abc", u"%%a%%%c%%"));
    EXPECT_FALSE(like(u"acb", u"%%b%%%c%%"));
    EXPECT_TRUE(like(u"abc", u"a%%c"));
    EXPECT_FALSE(like(u"abcd", u"a%%c"));
}

TEST(LikePattern, anUnderscoreStandsForJustOneCharacter)
{
    EXPECT_TRUE(like(u"beat", u"b_at"));
    EXPECT_TRUE(like(u"å", u"_"));
    EXPECT_TRUE(like(u"\U0001F3B5", u"_"));
    EXPECT_TRUE(like(u"_", u"_"));
    EXPECT_FALSE(like(u"", u"_"));
    EXPECT_FALSE(like(u"ab", u"_"));
    EXPECT_TRUE(like(u"e\u0301", u"__"));
    EXPECT_FALSE(like(u"e\u0301", u"_"));
    EXPECT_TRUE(like(u"song 12", u"%1_"));
    EXPECT_FALSE(like(u"song 1", u"%1_"));
    EXPECT_TRUE(like(u"xaxb", u"%_a_b%"));
    EXPECT_FALSE(like(u"axb", u"%_a_b%"));
    EXPECT_TRUE(like(u"aab", u"%a_%"));
    EXPECT_FALSE(like(u"ba", u"%a_%"));
}

TEST(LikePattern, theCaseOfNoLetterCounts)
{
    const char16_t* const same[][2] = {
        {u"Å", u"å"},      {u"Я", u"я"},      {u"Ø", u"ø"}, {u"É", u"é"},          {u"Σ", u"ς"},
        {u"σ", u"ς"},      {u"ẞ", u"ß"},      {u"ſ", u"S"}, {u"\u212A", u"k"},     {u"Ü", u"ü"},
        {u"\u212B", u"å"}, {u"\u00B5", u"Μ"}, {u"Ǆ", u"ǅ"}, {u"\U00010400", u"𐐨"}, {u"\u1E9E", u"ß"}};
    for (const auto& [one, other] : same) {
        const QString text = u"the "_qs + QString::fromUtf16(one) + u" of it"_qs;
        const QString sought = u"%"_qs + QString::fromUtf16(other) + u"%"_qs;
        const QByteArray shown = (text + sought).toUtf8();
        EXPECT_TRUE(like(one, other)) << shown.constData();
        EXPECT_TRUE(like(other, one)) << shown.constData();
        EXPECT_TRUE(likeBytes(text.toUtf8(), sought.toUtf8())) << shown.constData();
        EXPECT_TRUE(likeBytes(text.toUpper().toUtf8(), sought.toLower().toUtf8())) << shown.constData();
    }
}

TEST(LikePattern, lettersThatOnlyLookAlikeDiffer)
{
    for (const char16_t* pattern : {u"%i%", u"%ss%", u"%a%", u"%o%", u"%e%", u"%\u03C9\u0301%"})
        EXPECT_FALSE(like(u"İı ß å ø é \u03CE", pattern)) << QString::fromUtf16(pattern).toStdString();
}

// A letter that is seen at once further on must not hide one in a rarer form before it.
TEST(LikePattern, aRareFormOfALetterBeforeAPlainOneIsSeen)
{
    EXPECT_TRUE(like(u"\u212Aate and kate", u"%kate%kate%"));
    EXPECT_TRUE(like(u"\u212Ax k", u"%k%x%"));
    EXPECT_FALSE(like(u"\u212A k x", u"%x%k%"));
    EXPECT_TRUE(like(u"ſå \u212B", u"%så%å%"));
    EXPECT_TRUE(like(u"ångstrom \u212Bngſtrom", u"%NGS%ångs%"));
    EXPECT_TRUE(like(u"ας", u"%Σ%"));
    EXPECT_TRUE(like(u"Σς", u"%ΣΣ%"));
}

TEST(LikePattern, aByteThatBelongsToNoCharacterIsOneAndEqualsOnlyItself)
{
    EXPECT_TRUE(likeBytes("a\xFF", "A\xFF"));
    EXPECT_FALSE(likeBytes("\xE9", "\xC9"));
    EXPECT_FALSE(likeBytes("\xE9", "é"));
    EXPECT_TRUE(likeBytes("a\xFF@b", "%\xFF%"));
    EXPECT_TRUE(likeBytes("a\xFF\xFE@b", "a__@b"));
    EXPECT_FALSE(likeBytes("a\xFF\xFE@b", "a_@b"));
    EXPECT_TRUE(likeBytes("\xE2\x84", "__"));
    EXPECT_FALSE(likeBytes("\xC3\xA5", "%\xC3%")); // the first half of a whole letter
    EXPECT_FALSE(likeBytes("\xC3\xA5", "%\xA5%"));
    EXPECT_TRUE(likeBytes("\xC3\xC3\xA5", "\xC3Å"));
    EXPECT_TRUE(likeBytes("\xC3\xC3\xA5", "%å%"));
    for (const char* none :
         {"\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xF8\x88\x80\x80"}) {
        EXPECT_TRUE(likeBytes(none, QByteArray(qstrlen(none), '_')));
        EXPECT_FALSE(likeBytes(none, "_"));
        EXPECT_FALSE(likeBytes(none, "%/%"));
        EXPECT_TRUE(likeBytes(none, QByteArray("%") + none + '%'));
    }
}

TEST(LikePattern, nullCharactersAndByteOrderMarksAreCharacters)
{
    const QByteArray null("a\0b", 3);
    EXPECT_TRUE(likeBytes(null, "%B"));
    EXPECT_TRUE(likeBytes(null, "a_b"));
    EXPECT_FALSE(likeBytes(null, "a"));
    EXPECT_TRUE(likeBytes(null, QByteArray("%\0%", 3)));
    EXPECT_FALSE(likeBytes("ab", QByteArray("%\0%", 3)));
    EXPECT_TRUE(like(u"\uFEFFmark", u"%\uFEFF%"));
    EXPECT_TRUE(like(u"\uFEFFmark", u"%\uFEFFMark%"));
    EXPECT_FALSE(like(u"mark", u"%\uFEFF%"));
    EXPECT_FALSE(like(u"mark", u"%\uFEFFmark%"));
    EXPECT_TRUE(like(u"\uFFFE\uFFFF", u"%\uFFFE%\uFFFF%"));
}

TEST(LikePattern, inFindOnlyTheAsteriskIsAWildcard)
{
    EXPECT_TRUE(found("the BEAT it", "*beat*"));
    EXPECT_TRUE(found("Sjøen", "SJ*N"));
    EXPECT_TRUE(found("", "*"));
    EXPECT_TRUE(found("a*b", "A*B"));
    EXPECT_FALSE(found("beat it", "beat"));
    EXPECT_FALSE(found("beat", "%eat"));
    EXPECT_FALSE(found("beat", "b_at"));
    EXPECT_TRUE(found("100% b_at", "*0% B_AT"));
    EXPECT_FALSE(like(u"beat", u"*eat"));
    EXPECT_TRUE(like(u"*eat", u"*EAT"));
}

TEST(LikePattern, onePatternServesManyTexts)
{
    const LikePattern pattern("%sjøen%k", LikeSyntax::Sql);
    for (int round = 0; round < 3; ++round) {
        EXPECT_TRUE(pattern.matches("SJØEN er en lang tekst med k"));
        EXPECT_FALSE(pattern.matches("k"));
        EXPECT_TRUE(pattern.matches("sjøen\xE2\x84\xAA"));
        EXPECT_FALSE(pattern.matches({}));
    }
}

// They are places around the borders of the blocks that are searched at once, right up to the end of the
// memory.
TEST(LikePattern, findsAPieceAtEachPlaceOfALongText)
{
    GuardedBytes memory;
    for (const QByteArray& piece :
         {QByteArray("b"), QByteArray("bB"), QByteArray("SJØEN"), QByteArray("\xF0\x90\x90\x80"),
          QByteArray("b2345678901234567890B"), QByteArray("bbbbbbbbbbbbbbbbb")}) {
        const LikePattern pattern('%' + QString::fromUtf8(piece).toLower().toUtf8() + '%', LikeSyntax::Sql);
        for (int length = 0; length < 70; ++length)
            for (int at = 0; at <= length; ++at) {
                QByteArray text(length, 'a');
                EXPECT_FALSE(pattern.matches(memory.atEnd(text)));
                text.insert(at, piece);
                EXPECT_TRUE(pattern.matches(memory.atEnd(text))) << at << " of " << length;
                EXPECT_TRUE(pattern.matches(memory.atStart(text))) << at << " of " << length;
                text.remove(at + piece.size() - 1, 1);
                EXPECT_FALSE(pattern.matches(memory.atEnd(text))) << at << " of " << length;
            }
    }
}
