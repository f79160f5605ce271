#include "tests/database/sql/guardedbytes.h"
#include "tests/database/sql/likereference.h"

#include <QByteArray>
#include <QRandomGenerator>

#include <gtest/gtest.h>

#include <array>

namespace {

// Each row is one letter in its cases, or some that are easily taken for one.
const std::vector<std::vector<std::string>>& families()
{
    static const std::vector<std::vector<std::string>> all{
        {"s", "S", "ſ"},
        {"k", "K", "\xE2\x84\xAA"},
        {"å", "Å", "\xE2\x84\xAB"},
        {"a", "A"},
        {"i", "I", "İ", "ı"},
        {"ß", "ẞ", "ss"},
        {"ø", "Ø"},
        {"Я", "я"},
        {"σ", "ς", "Σ"},
        {"𐐀", "𐐨"},
        {"µ", "μ", "Μ"},
        {"b", "B"},
        {" ", "  "},
        {"\xFF", "\xC3", "\xA5", "\xE2\x84", "\xF0\x90\x90", "\xED\xA0\x80"},
        {"\xEF\xBB\xBF", std::string(1, '\0')},
        {"%", "_", "*"},
    };
    return all;
}

class Cases {
public:
    explicit Cases(quint32 seed) : m_random(seed) {}

    bool oneIn(int number) { return m_random.bounded(number) == 0; }
    LikeSyntax syntax() { return oneIn(4) ? LikeSyntax::Find : LikeSyntax::Sql; }

    // It takes few families at a time, so that texts and patterns meet.
    void chooseLetters()
    {
        for (const std::vector<std::string>*& family : m_chosen)
            family = &of(families());
    }

    // The pieces are letters; a long one is mostly of ASCII.
    std::vector<std::string> letters()
    {
        const bool isLong = oneIn(3);
        std::vector<std::string> letters;
        for (int left = m_random.bounded(isLong ? 90 : 9); left > 0; --left)
            letters.push_back(isLong && !oneIn(12) ? std::string(1, "abks"[m_random.bounded(4)])
                                                   : of(*of(m_chosen)));
        return letters;
    }

    std::string pattern(const std::vector<std::string>& text, char anyRun)
    {
        return oneIn(4) || text.empty() ? randomPattern(anyRun) : patternOf(text, anyRun);
    }

private:
    template <typename List>
    const typename List::value_type& of(const List& list)
    {
        return list[static_cast<std::size_t>(m_random.bounded(static_cast<int>(list.size())))];
    }

    std::string randomPattern(char anyRun)
    {
        std::string pattern;
        for (int left = m_random.bounded(6); left > 0; --left)
            pattern += oneIn(3) ? std::string(1, anyRun) : of(*of(m_chosen));
        return pattern;
    }

    // Takes parts of the text with other cases, which it fits often, and nearly always but for one letter.
    std::string patternOf(const std::vector<std::string>& text, char anyRun)
    {
        std::string pattern = oneIn(6) ? "" : std::string(1, anyRun);
        const auto size = static_cast<int>(text.size());
        for (int at = oneIn(6) ? 0 : m_random.bounded(size); at < size; at += m_random.bounded(size)) {
            for (int left = m_random.bounded(oneIn(4) ? 40 : 5); left > 0 && at < size; --left, ++at)
                pattern += letterFor(text[static_cast<std::size_t>(at)]);
            if (at < size || !oneIn(3))
                pattern += anyRun;
            if (oneIn(3))
                break;
            ++at;
        }
        return pattern;
    }

    std::string letterFor(const std::string& letter)
    {
        if (oneIn(50))
            return "_";
        if (oneIn(50))
            return of(*of(m_chosen));
        for (const std::vector<std::string>& family : families())
            if (std::find(family.begin(), family.end(), letter) != family.end())
                return oneIn(2) ? letter : of(family);
        return letter;
    }

    QRandomGenerator m_random;
    std::array<const std::vector<std::string>*, 3> m_chosen{};
};

std::string joined(const std::vector<std::string>& letters)
{
    std::string text;
    for (const std::string& letter : letters)
        text += letter;
    return text;
}

std::string shown(std::string_view bytes)
{
    return QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size()))
        .toPercentEncoding(" ")
        .toStdString();
}

} // namespace

// Both stand now at the end and now at the start of their memory.
TEST(LikePatternRandom, fitsWhatThePlainReferenceFits)
{
    constexpr int kRounds = 60000;
    GuardedBytes textMemory;
    GuardedBytes patternMemory;
    Cases cases(2001);
    int fitting = 0;
    int held = 0;
    for (int round = 0; round < kRounds; ++round) {
        cases.chooseLetters();
        const LikeSyntax syntax = cases.syntax();
        std::vector<std::string> letters = cases.letters();
        const std::string pattern = cases.pattern(letters, syntax == LikeSyntax::Sql ? '%' : '*');
        const LikePattern compiled(patternMemory.atEnd(pattern), syntax);
        for (int texts = 0; texts < 3; ++texts, letters = cases.letters()) {
            const std::string text = joined(letters);
            const bool wanted = likereference::fits(text, pattern, syntax);
            const bool got =
                compiled.matches(cases.oneIn(2) ? textMemory.atEnd(text) : textMemory.atStart(text));
            ASSERT_EQ(got, wanted) << "text " << shown(text) << ", pattern " << shown(pattern)
                                   << (syntax == LikeSyntax::Find ? " in find" : "");
            fitting += wanted ? 1 : 0;
            ++held;
        }
    }
    EXPECT_EQ(held, 3 * kRounds);
    EXPECT_GT(fitting, held / 5); // neither answer is a rarity
    EXPECT_LT(fitting, held * 4 / 5);
}

// It seeks pieces that begin like their own middle, in both ways.
TEST(LikePatternRandom, findsEachShortPieceInEachShortTextOfTwoLetters)
{
    const auto ofTwoLetters = [](unsigned bits) {
        std::string text;
        for (; bits > 1; bits /= 2)
            text += bits % 2 == 0 ? 'a' : 'b';
        return text;
    };
    for (unsigned pieceBits = 1; pieceBits < 1U << 8; ++pieceBits) {
        const std::string piece = ofTwoLetters(pieceBits);
        const LikePattern quick('%' + piece + '%', LikeSyntax::Sql);
        const LikePattern slow('%' + piece + "%_", LikeSyntax::Sql);
        for (unsigned textBits = 1; textBits < 1U << 12; ++textBits) {
            const std::string text = ofTwoLetters(textBits);
            const bool wanted = text.find(piece) != std::string::npos;
            ASSERT_EQ(quick.matches(text), wanted) << text << ' ' << piece;
            ASSERT_EQ(slow.matches(text + '.'), wanted) << text << ' ' << piece;
        }
    }
}
