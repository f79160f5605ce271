#include "posix/processmark.h"

#include "tests/support/childprocess.h"

#include <QByteArrayList>

#include <gtest/gtest.h>

#include <csignal>

TEST(ProcessMark, tellsWhoRuns)
{
    const QByteArray own = processmark::own();
    EXPECT_FALSE(own.isEmpty());
    EXPECT_FALSE(own.contains(' '));
    EXPECT_TRUE(processmark::isRunning(own));
    ChildProcess other([](int to) {
        say(to, processmark::own());
        pause();
    });
    const QByteArray mark = other.read();
    EXPECT_NE(mark, own);
    EXPECT_TRUE(processmark::isRunning(mark));
    kill(other.id(), SIGKILL);
    other.wait();
    EXPECT_FALSE(processmark::isRunning(mark));
}

TEST(ProcessMark, aNumberThatWasGivenOutAgainIsAnother)
{
    const QByteArrayList parts = processmark::own().split('-');
    const QByteArray machineStart = parts.mid(2).join('-');
    EXPECT_TRUE(processmark::isRunning(parts[0] + '-' + parts[1] + '-' + machineStart));
    EXPECT_FALSE(processmark::isRunning(parts[0] + "-1-" + machineStart));
    EXPECT_FALSE(processmark::isRunning(parts[0] + '-' + parts[1] + "-another-start-of-the-machine"));
    for (const char* text : {"", "-", "x", "0-1-2", "-1-2-3", "99999999999-1-2", "../self-1-2"})
        EXPECT_FALSE(processmark::isRunning(text)) << text;
}
