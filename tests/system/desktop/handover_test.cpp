#include "tests/system/desktop/handovertest.h"

#include <vector>

using namespace std::chrono_literals;

TEST_F(HandOverTest, aProcessHandsItsFileToTheOneThatListens)
{
    HandOverSocket socket(place);
    ASSERT_TRUE(socket.listens());
    HandOverListener listener(socket, receiver());
    const QByteArray file = "/music/\xff not UTF-8\n.mp3";
    ChildProcess other([&](int to) { say(to, offered(place, file)); });
    ASSERT_TRUE(turnUntil([&] { return !opened.isEmpty(); }));
    EXPECT_EQ(other.readAll(), "1");
    EXPECT_EQ(opened, QByteArrayList{file});
}

TEST_F(HandOverTest, nobodyListens)
{
    QElapsedTimer clock;
    clock.start();
    EXPECT_FALSE(HandOver(place).offer("/a"));
    EXPECT_FALSE(HandOver({}).offer("/a"));
    EXPECT_LT(clock.elapsed(), kAtOnce);
}

TEST_F(HandOverTest, aLongPathArrivesWholeAndOneThatIsTooLongDoesNot)
{
    HandOverSocket socket(place);
    HandOverListener listener(socket, receiver());
    const QByteArray longest = '/' + QByteArray(handover::kMostBytes - 1, 'x');
    EXPECT_EQ(answer(longest), "1");
    EXPECT_EQ(opened, QByteArrayList{longest});
    EXPECT_EQ(answer(longest + 'x'), "0");
    EXPECT_EQ(opened.size(), 1);
}

TEST_F(HandOverTest, aProgramThatIsNotReadyLeavesTheFile)
{
    HandOverSocket socket(place);
    HandOverListener listener(socket, receiver());
    ready = false;
    EXPECT_EQ(answer("/a"), "0");
    EXPECT_TRUE(opened.isEmpty());
}

TEST_F(HandOverTest, whoOffersBeforeTheEventsAreHandledIsAnsweredThen)
{
    HandOverSocket socket(place);
    ChildProcess other([&](int to) { say(to, offered(place, "/a")); });
    std::this_thread::sleep_for(200ms);
    HandOverListener listener(socket, receiver());
    ASSERT_TRUE(turnUntil([&] { return !opened.isEmpty(); }));
    EXPECT_EQ(other.readAll(), "1");
}

TEST_F(HandOverTest, aProgramThatHangsIsNotWaitedForLongAndDoesNotOpenTheFileLater)
{
    HandOverSocket socket(place);
    QElapsedTimer clock;
    clock.start();
    EXPECT_FALSE(HandOver(place).offer("/a", 300ms));
    EXPECT_GE(clock.elapsed(), 290);
    EXPECT_LT(clock.elapsed(), 1500);
    HandOverListener listener(socket, receiver());
    turnFor(300);
    EXPECT_TRUE(opened.isEmpty());
    EXPECT_EQ(answer("/b"), "1");
    EXPECT_EQ(opened, QByteArrayList{"/b"});
}

TEST_F(HandOverTest, aFullQueueIsNotWaitedForLongEither)
{
    HandOverSocket socket(place);
    ChildProcess other([&](int to) { // before there are connections that it would keep open
        std::this_thread::sleep_for(500ms);
        say(to, offered(place, "/b"));
    });
    std::vector<Descriptor> waiting;
    for (int i = 0; i < 64; ++i) {
        Descriptor one(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
        const sockaddr_un address = handover::addressOf(place);
        if (connect(one.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
            break;
        waiting.push_back(std::move(one));
    }
    ASSERT_LT(waiting.size(), 64U);
    QElapsedTimer clock;
    clock.start();
    EXPECT_FALSE(HandOver(place).offer("/a", 300ms));
    EXPECT_LT(clock.elapsed(), 1500);
    std::this_thread::sleep_for(900ms);
    waiting.clear();
    HandOverListener listener(socket, receiver());
    ASSERT_TRUE(turnUntil([&] { return !opened.isEmpty(); })) << "there is room again";
    EXPECT_EQ(other.readAll(), "1");
}

TEST_F(HandOverTest, theOneWithTheLockAndNoSocketYetIsWaitedFor)
{
    auto socket = std::make_unique<HandOverSocket>(place);
    ASSERT_EQ(rename(place.constData(), directory.at("aside").constData()), 0);
    ChildProcess other([&](int to) { say(to, offered(place, "/a")); });
    std::this_thread::sleep_for(200ms);
    HandOverListener listener(*socket, receiver());
    turnFor(50);
    ASSERT_EQ(rename(directory.at("aside").constData(), place.constData()), 0);
    ASSERT_TRUE(turnUntil([&] { return !opened.isEmpty(); }));
    EXPECT_EQ(other.readAll(), "1");
}

TEST_F(HandOverTest, answersInsideOfAnEventLoopThatAFileOpened)
{
    HandOverSocket socket(place);
    HandOverListener listener(socket, {[] { return true; },
                                       [this](const QByteArray& file) {
                                           opened += file;
                                           if (opened.size() == 1) // a modal dialog
                                               turnUntil([this] { return opened.size() == 2; });
                                       }});
    ChildProcess first([&](int to) { say(to, offered(place, "/a")); });
    ChildProcess second([&](int to) {
        std::this_thread::sleep_for(200ms);
        say(to, offered(place, "/b"));
    });
    ASSERT_TRUE(turnUntil([&] { return opened.size() == 2; }));
    EXPECT_EQ(first.readAll() + second.readAll(), "11");
    EXPECT_EQ(opened, (QByteArrayList{"/a", "/b"}));
}

TEST_F(HandOverTest, ofManyThatStartAtOnceWithAFileOneOpensThemAll)
{
    constexpr int kPrograms = 6;
    for (int round = 0; round < 20; ++round) {
        std::vector<std::unique_ptr<ChildProcess>> programs;
        for (int i = 0; i < kPrograms; ++i)
            programs.push_back(std::make_unique<ChildProcess>([&](int to) {
                const auto socket = handover::offerOrListen({place}, "/other");
                if (!socket)
                    return say(to, "handed over ");
                const HandOverListener listener(*socket, receiver());
                turnUntil([&] { return opened.size() == kPrograms - 1; });
                say(to, "opened " + QByteArray::number(opened.size()) + ' ');
            }));
        QByteArray said;
        for (const auto& program : programs)
            said += program->readAll();
        EXPECT_EQ(said.count("handed over"), kPrograms - 1) << said.constData();
        EXPECT_EQ(said.count("opened 5"), 1) << said.constData();
    }
}

TEST_F(HandOverTest, whoOffersDoesNotWaitForTheFilesOfOthers)
{
    HandOverSocket socket(place);
    HandOverListener listener(socket, {[] { return true; },
                                       [this](const QByteArray& file) {
                                           std::this_thread::sleep_for(200ms);
                                           opened += file;
                                       }});
    constexpr int kMany = 12;
    std::atomic<int> taken = 0;
    std::vector<std::thread> others;
    for (int other = 0; other < kMany; ++other)
        others.emplace_back(
            [&, other] { taken += HandOver(place).offer("/" + QByteArray::number(other), 1s); });
    EXPECT_TRUE(turnUntil([&] { return opened.size() == kMany; }));
    for (std::thread& other : others)
        other.join();
    EXPECT_EQ(taken, kMany);
}

TEST_F(HandOverTest, oneThatStartsBesideAProgramThatHangsIsSoonOnItsOwn)
{
    const HandOverSocket hanging(place);
    QElapsedTimer clock;
    clock.start();
    const auto socket = handover::offerOrListen({place}, "/a");
    ASSERT_TRUE(socket);
    EXPECT_FALSE(socket->listens());
    EXPECT_LT(clock.elapsed(), kHung);
    clock.start();
    EXPECT_TRUE(handover::offerOrListen({place}, ""));
    EXPECT_LT(clock.elapsed(), kAtOnce);
}

TEST_F(HandOverTest, aRuntimeDirectoryThatAppearsLaterStillLeadsToTheFirstProgram)
{
    const auto first = handover::offerOrListen(handover::places({}, user, ":0"), {});
    ASSERT_TRUE(first && first->listens());
    HandOverListener listener(*first, receiver());
    directory.makeDirectory("run");
    chmod(directory.at("run").constData(), 0700);
    const QByteArrayList later = handover::places(directory.at("run"), user, ":0");
    EXPECT_EQ(later, (QByteArrayList{directory.at("run") + "/songbin-:0", user.state + "/display-:0"}));
    ChildProcess other(
        [&](int to) { say(to, handover::offerOrListen(later, "/a") ? "a program" : "taken"); });
    ASSERT_TRUE(turnUntil([&] { return !opened.isEmpty(); }));
    EXPECT_EQ(other.readAll(), "taken");
    EXPECT_EQ(opened, QByteArrayList{"/a"});
    const auto own = handover::offerOrListen(later, {});
    EXPECT_TRUE(own && own->listens()) << "without a file it is a program of its own, at its own place";
    EXPECT_TRUE(exists(later[0]));
}

TEST_F(HandOverTest, placesAreAskedInOneTime)
{
    const QByteArrayList places{directory.at("one"), directory.at("two")};
    const HandOverSocket hung(places[0]);
    const HandOverSocket hungToo(places[1]);
    QElapsedTimer clock;
    clock.start();
    EXPECT_TRUE(handover::offerOrListen(places, "/a"));
    EXPECT_LT(clock.elapsed(), HandOver::kPatience.count() * 3 / 2) << "not in one for each";
}
