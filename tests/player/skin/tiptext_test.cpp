#include "player/skin/skinelements.h"

#include <gtest/gtest.h>

TEST(TipText, isTheTextItself)
{
    EXPECT_EQ(TipText(u"Play"_qs), u"Play"_qs);
    EXPECT_EQ(TipText(u"a~b"_qs), u"a~b"_qs);
    EXPECT_EQ(TipText(QString()), QString());
}

TEST(TipText, hidesOneThatBeginsWithATilde)
{
    EXPECT_EQ(TipText(u"~Play"_qs), QString());
}
