#include "base/runtimeerror.h"

#include <gtest/gtest.h>

TEST(resumeNext, goesOnWithTheNextStepAfterAnError)
{
    int done = 0;
    resumeNext([&] { ++done; }, [] { throw RunTimeError(ErrorNumber::FileNotFound); }, [&] { ++done; });
    EXPECT_EQ(done, 2);
}

TEST(resumeNext, hidesNothingButRunTimeErrors)
{
    EXPECT_THROW(resumeNext([] { throw std::logic_error("a bug"); }), std::logic_error);
}

TEST(stopOnError, marksTheErrorAsOneThatStops)
{
    try {
        stopOnError([] { throw RunTimeError(ErrorNumber::FileNotFound); });
        FAIL();
    } catch (const StoppingError& error) {
        EXPECT_EQ(error.number(), numberOf(ErrorNumber::FileNotFound));
        EXPECT_EQ(error.text(), u"File not found"_qs);
    }
}

TEST(RunTimeError, carriesADetailBehindItsUsualText)
{
    EXPECT_EQ(RunTimeError(ErrorNumber::PathNotFound, u"D:\\x"_qs).text(), u"Path not found: D:\\x"_qs);
}
