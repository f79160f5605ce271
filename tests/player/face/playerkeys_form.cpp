#include "player/face/playerkeys.h"

#include <gtest/gtest.h>

namespace {

struct PlayerKeys : testing::Test {
    SkinState skin;

    void key(std::size_t button, const QString& key) { skin.buttons[button].key = key; }
    KeyAction action(char16_t typed, bool keysOff = false) { return keyAction(QChar(typed), skin, keysOff); }
    static KeyAction command(int button) { return {KeyAction::Command, button}; }
};

constexpr KeyAction kNothing{};

} // namespace

TEST_F(PlayerKeys, areComparedInUpperCase)
{
    key(12, QStringLiteral("P"));
    EXPECT_EQ(action(u'p'), command(12));
    EXPECT_EQ(action(u'P'), command(12));
    EXPECT_EQ(action(u'q'), kNothing);
}

TEST_F(PlayerKeys, thatASkinGivesInLowerCaseNeverAnswer)
{
    key(12, QStringLiteral("p"));
    EXPECT_EQ(action(u'p'), kNothing);
    EXPECT_EQ(action(u'P'), kNothing);
}

TEST_F(PlayerKeys, belongToTheFirstButtonThatHasThem)
{
    key(30, QStringLiteral("X"));
    key(7, QStringLiteral("X"));
    EXPECT_EQ(action(u'x'), command(7));
}

TEST_F(PlayerKeys, areOfTheFirstFortyButtons)
{
    key(1, QStringLiteral("A"));
    key(40, QStringLiteral("B"));
    key(41, QStringLiteral("C"));
    key(45, QStringLiteral("D"));
    key(50, QStringLiteral("E"));
    EXPECT_EQ(action(u'a'), command(1));
    EXPECT_EQ(action(u'b'), command(40));
    for (const char16_t typed : {u'c', u'd', u'e'})
        EXPECT_EQ(action(typed), kNothing) << int(typed);
}

TEST_F(PlayerKeys, mayBeAnyCharacter)
{
    key(1, QStringLiteral(" "));
    key(2, QStringLiteral("+"));
    key(3, QStringLiteral("Å"));
    key(4, QStringLiteral("\r"));
    EXPECT_EQ(action(u' '), command(1));
    EXPECT_EQ(action(u'+'), command(2));
    EXPECT_EQ(action(u'å'), command(3));
    EXPECT_EQ(action(u'\r'), command(4));
}

TEST_F(PlayerKeys, thatAreNoneMatchNothing)
{
    for (const char16_t typed : {u'a', u'\0', u'\x7F', u'ß'})
        EXPECT_EQ(action(typed), kNothing) << int(typed);
}

TEST_F(PlayerKeys, ofTheAidsAreNoButtons)
{
    key(1, QStringLiteral("`"));
    key(2, QStringLiteral("~"));
    key(3, QStringLiteral("\x1B"));
    EXPECT_EQ(action(27), KeyAction{.kind = KeyAction::HideAids});
    EXPECT_EQ(action(u'`'), KeyAction{.kind = KeyAction::ShowAreas});
    EXPECT_EQ(action(u'~'), KeyAction{.kind = KeyAction::FrameButtons});
}

TEST_F(PlayerKeys, thatAreOffLeaveTheAids)
{
    key(12, QStringLiteral("P"));
    EXPECT_EQ(action(u'p', true), kNothing);
    EXPECT_EQ(action(27, true).kind, KeyAction::HideAids);
    EXPECT_EQ(action(u'`', true).kind, KeyAction::ShowAreas);
    EXPECT_EQ(action(u'~', true).kind, KeyAction::FrameButtons);
}
