#include "system/desktop/termination.h"

#include "tests/support/fakes.h"
#include "tests/support/hung.h"

#include <QCoreApplication>
#include <QTest>

#include <gtest/gtest.h>

#include <csignal>

TEST(Termination, aSignalEndsTheProgramAtTheNextYield)
{
    FakeProgram program;
    const Termination termination(program);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        std::raise(signal);
    EXPECT_FALSE(program.ending());
    EXPECT_TRUE(QTest::qWaitFor([&] { return program.ending(); }, kHung));
    EXPECT_EQ(program.status, 128 + SIGTERM);
}
