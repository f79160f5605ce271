#include "tests/system/desktop/handovertest.h"

#include <QEventLoop>
#include <QTimer>

#include <gmock/gmock.h>

#include <sys/resource.h>

#include <ctime>
#include <utility>

using namespace std::chrono_literals;

TEST_F(HandOverTest, onlyFilesAreHandedOver)
{
    HandOverSocket socket(place);
    HandOverListener listener(socket, receiver());
    for (const QByteArray& file : {QByteArray(), QByteArray("a.mp3"), QByteArray("/a\0b", 4),
                                   QByteArray("http://x/a.mp3"), QByteArray("file://")})
        EXPECT_EQ(answer(file), "0") << file.constData();
    EXPECT_TRUE(opened.isEmpty());
    EXPECT_EQ(answer("FILE:///a%20b.mp3"), "1");
    EXPECT_EQ(opened, QByteArrayList{"FILE:///a%20b.mp3"});
}

TEST_F(HandOverTest, nonsenseIsNotOfferedAtAll)
{
    const HandOverSocket hanging(place);
    QElapsedTimer clock;
    clock.start();
    EXPECT_FALSE(HandOver(place).offer("a.mp3"));
    EXPECT_LT(clock.elapsed(), kAtOnce);
}

TEST_F(HandOverTest, anotherUserIsRefused)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can be another user";
    HandOverSocket socket(place);
    HandOverListener listener(socket, receiver());
    chmod(directory.path().constData(), 0755);
    chmod(place.constData(), 0666);
    ChildProcess other([&](int to) {
        if (setgid(65534) != 0 || setuid(65534) != 0)
            return say(to, "root still");
        const Descriptor call = caller();
        tell(call, "Songbin open 1\n/a");
        shutdown(call.get(), SHUT_WR);
        char answer = 0;
        say(to, QByteArray::number(static_cast<int>(recv(call.get(), &answer, 1, 0))));
    });
    turnFor(300);
    EXPECT_THAT(other.readAll(), testing::AnyOf("0", "-1"));
    EXPECT_TRUE(opened.isEmpty());

    ChildProcess impostor([&](int to) { // who listens there is another user
        if (setgid(65534) != 0 || setuid(65534) != 0)
            return say(to, "root still");
        const HandOverSocket mine("/tmp/songbin-test-" + QByteArray::number(getppid()));
        say(to, mine.listens() ? "listens" : "no");
        for (int i = 0; i < 1000 && !directory.exists("enough"); ++i) // longer than the offer would wait
            std::this_thread::sleep_for(10ms);
    });
    ASSERT_EQ(impostor.read(), "listens");
    QElapsedTimer clock;
    clock.start();
    EXPECT_FALSE(HandOver("/tmp/songbin-test-" + QByteArray::number(getpid())).offer("/a", 5s));
    EXPECT_LT(clock.elapsed(), 2500) << "it is refused, not waited for";
    directory.write("enough");
    impostor.wait();
}

TEST_F(HandOverTest, whoeverTalksNonsenseIsHungUpOn)
{
    HandOverSocket socket(place);
    HandOverListener listener(socket, receiver());
    for (const QByteArray& said :
         {QByteArray(), QByteArray("GET / HTTP/1.0\r\n\r\n"), QByteArray("Songbin open 1\n"),
          QByteArray("Songbin open 1\na.mp3"), QByteArray("Songbin open 1\n/a\0b", 19),
          QByteArray("Songbin open 2\n/a.mp3"), QByteArray(3000, '\xff')}) {
        const Descriptor call = caller();
        tell(call, said);
        shutdown(call.get(), SHUT_WR);
        EXPECT_TRUE(isRefused(call)) << said.constData();
    }
    EXPECT_TRUE(opened.isEmpty());
    EXPECT_EQ(answer("/a"), "1");
}

TEST_F(HandOverTest, whoeverSaysTooMuchIsHungUpOnBeforeTheEnd)
{
    HandOverSocket socket(place);
    HandOverListener listener(socket, receiver());
    ChildProcess other([&](int to) {
        const Descriptor call = caller();
        const QByteArray much = "Songbin open 1\n/" + QByteArray(1 << 20, 'x');
        qsizetype sent = 0;
        while (sent < (qsizetype{1} << 28)) {
            const ssize_t now =
                send(call.get(), much.constData(), static_cast<std::size_t>(much.size()), MSG_NOSIGNAL);
            if (now < 0)
                return say(to, "hung up");
            sent += now;
        }
        say(to, "everything was taken");
    });
    turnFor(500);
    EXPECT_EQ(other.readAll(), "hung up");
    EXPECT_TRUE(opened.isEmpty());
}

TEST_F(HandOverTest, whoeverSaysNothingIsHungUpOnAndOthersAreServedMeanwhile)
{
    HandOverSocket socket(place);
    HandOverListener listener(socket, receiver());
    const Descriptor silent = caller();
    const Descriptor slow = caller();
    tell(slow, "Songbin open 1\n/");
    turnFor(20);
    EXPECT_EQ(answer("/a"), "1");
    EXPECT_FALSE(isRefused(silent, 300));
    tell(slow, "x"); // which buys no time
    EXPECT_TRUE(isRefused(silent, 1500));
    EXPECT_TRUE(isRefused(slow, 200));
    EXPECT_EQ(opened, QByteArrayList{"/a"});
}

TEST_F(HandOverTest, manyAtOnceDoNotShutTheOthersOut)
{
    HandOverSocket socket(place);
    HandOverListener listener(socket, receiver());
    std::vector<Descriptor> silent;
    for (int i = 0; i < 100; ++i) {
        silent.push_back(caller());
        QCoreApplication::processEvents();
    }
    EXPECT_TRUE(isRefused(silent.back(), 300)) << "so many are not kept";
    turnFor(1300);
    EXPECT_EQ(answer("/a"), "1");
    for (const Descriptor& one : silent)
        EXPECT_TRUE(isRefused(one, 100));
}

TEST_F(HandOverTest, withoutDescriptorsItWaitsInsteadOfTurning)
{
    const QByteArray said = saidByChild([&] {
        HandOverSocket socket(place);
        HandOverListener listener(socket, receiver());
        QEventLoop loop;
        const auto turn = [&loop](int milliseconds) {
            QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
            loop.exec();
        };
        caller(); // the sanitizer needs descriptors to look at what it has not met yet
        turn(50);
        const Descriptor call = caller();
        std::vector<Descriptor> all;
        rlimit most{};
        getrlimit(RLIMIT_NOFILE, &most);
        const rlim_t before = std::exchange(most.rlim_cur, 64);
        setrlimit(RLIMIT_NOFILE, &most);
        do
            all.emplace_back(dup(call.get()));
        while (all.back());
        const std::clock_t begin = std::clock();
        turn(500);
        const bool turned = std::clock() - begin > CLOCKS_PER_SEC / 5;
        all.clear();
        most.rlim_cur = before;
        setrlimit(RLIMIT_NOFILE, &most);
        tell(call, "Songbin open 1\n/a");
        shutdown(call.get(), SHUT_WR);
        turnUntil([&] { return !opened.isEmpty(); }, 3000);
        return turned ? QByteArray("it was busy") : opened.join(' ');
    });
    EXPECT_EQ(said, "/a");
}
