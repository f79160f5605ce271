#include "tests/system/desktop/handovertest.h"

#include <fcntl.h>

#include "tests/system/desktop/handovertest.h"
#include <csignal>

#include <fcntl.h>

#include <csignal>

TEST_F(HandOverTest, theRuntimeDirectoryIsTakenWhenItIsTheUsersOwn)
{
    directory.makeDirectory("run");
    const QByteArray run = directory.at("run");
    chmod(run.constData(), 0700);
    EXPECT_EQ(handover::place(run, user, ":0"), run + "/songbin-:0");
    EXPECT_EQ(handover::place(run, user, ":0.1"), run + "/songbin-:0") << "another screen";
    EXPECT_EQ(handover::place(run, user, "10.0.0.7:10.0"), run + "/songbin-10.0.0.7:10");
    EXPECT_EQ(handover::place(run, user, "/tmp/x/y:0"), run + "/songbin-%2Ftmp%2Fx%2Fy:0");
    EXPECT_EQ(handover::place(run, user, ""), "");
    const QByteArray other = user.state + "/display-:0";
    chmod(run.constData(), 0777);
    EXPECT_EQ(handover::place(run, user, ":0"), other);
    EXPECT_EQ(handover::place("", user, ":0"), other);
    EXPECT_EQ(handover::place("run", user, ":0"), other);
    EXPECT_EQ(handover::place(run + "/nothing", user, ":0"), other);
    directory.write("file");
    EXPECT_EQ(handover::place(directory.at("file"), user, ":0"), other);
    if (geteuid() == 0) {
        chmod(run.constData(), 0700);
        ASSERT_EQ(chown(run.constData(), 65534, 65534), 0);
        EXPECT_EQ(handover::place(run, user, ":0"), other);
    }
}

TEST_F(HandOverTest, aPathThatIsTooLongForASocketIsNotTaken)
{
    const QByteArray deep = '/' + QByteArray(90, 'd');
    directory.makeDirectory("run" + deep);
    chmod(directory.at("run" + deep).constData(), 0700);
    EXPECT_EQ(handover::place(directory.at("run" + deep), user, ":0"), user.state + "/display-:0");
    user.state += deep;
    EXPECT_EQ(handover::place({}, user, ":0"), "");
    EXPECT_FALSE(HandOverSocket(user.state + "/display-:0").listens());
    EXPECT_FALSE(HandOver(user.state + "/display-:0").offer("/a"));
    const QByteArray longest =
        directory.at(QByteArray(handover::kLongestPlace, 'p')).first(handover::kLongestPlace);
    EXPECT_TRUE(HandOverSocket(longest).listens());
}

TEST_F(HandOverTest, theStateDirectoryIsMadeWhenItIsNeeded)
{
    const QByteArray inState = handover::place({}, user, ":0");
    EXPECT_FALSE(HandOver(inState).offer("/a"));
    EXPECT_FALSE(directory.exists("state"));
    EXPECT_TRUE(HandOverSocket(inState).listens());
    EXPECT_TRUE(directory.exists("state"));
}

TEST_F(HandOverTest, relativePathsBecomeAbsolute)
{
    directory.makeDirectory("here \xff");
    const auto inDirectory = [](const QByteArray& current, const QByteArray& file) {
        return saidByChild([&]() -> QByteArray {
            if (chdir(current.constData()) != 0)
                return "no directory";
            return handover::absoluteFile(file).value_or("nothing");
        });
    };
    const QByteArray here = directory.at("here \xff");
    EXPECT_EQ(inDirectory(here, "a.mp3"), here + "/a.mp3");
    EXPECT_EQ(inDirectory(here, "../a.mp3"), here + "/../a.mp3");
    EXPECT_EQ(inDirectory(here, "-a.mp3"), here + "/-a.mp3");
    EXPECT_EQ(inDirectory(here, "/a.mp3"), "/a.mp3");
    EXPECT_EQ(inDirectory(here, "file:///a%20b.mp3"), "file:///a%20b.mp3");
    EXPECT_EQ(inDirectory("/", "a.mp3"), "/a.mp3");
    const QByteArray gone = directory.at("gone");
    directory.makeDirectory("gone");
    EXPECT_EQ(saidByChild([&]() -> QByteArray {
                  if (chdir(gone.constData()) != 0 || rmdir(gone.constData()) != 0)
                      return "no directory";
                  return handover::absoluteFile("a.mp3").value_or("nothing");
              }),
              "nothing");
}

TEST_F(HandOverTest, aSecondProgramDoesNotListenWhileTheFirstOneLives)
{
    auto first = std::make_unique<HandOverSocket>(place);
    ASSERT_TRUE(first->listens());
    EXPECT_EQ(
        saidByChild([&] { return HandOverSocket(place).listens() ? QByteArray("1") : QByteArray("0"); }),
        "0");
    EXPECT_TRUE(exists(place)) << "the second one's end leaves it";
    first.reset();
    EXPECT_EQ(
        saidByChild([&] { return HandOverSocket(place).listens() ? QByteArray("1") : QByteArray("0"); }),
        "1");
}

TEST_F(HandOverTest, nothingIsLeftAtTheEnd)
{
    {
        const HandOverSocket socket(place);
        EXPECT_TRUE(exists(place));
        EXPECT_TRUE(exists(place + ".lock"));
    }
    EXPECT_FALSE(exists(place));
    EXPECT_FALSE(exists(place + ".lock"));
}

TEST_F(HandOverTest, whatAKilledProgramLeftIsTakenOver)
{
    {
        ChildProcess other([&](int to) {
            const HandOverSocket socket(place);
            say(to, "listens");
            pause();
        });
        ASSERT_EQ(other.read(), "listens");
        kill(other.id(), SIGKILL);
    }
    ASSERT_TRUE(exists(place));
    EXPECT_FALSE(HandOver(place).offer("/a"));
    HandOverSocket socket(place);
    ASSERT_TRUE(socket.listens());
    HandOverListener listener(socket, receiver());
    EXPECT_EQ(answer("/a"), "1");
}

TEST_F(HandOverTest, ofManyThatStartAtOnceOneListens)
{
    for (int round = 0; round < 10; ++round) {
        std::vector<std::unique_ptr<ChildProcess>> programs;
        for (int i = 0; i < 6; ++i)
            programs.push_back(std::make_unique<ChildProcess>([&](int to) {
                const HandOverSocket socket(place);
                say(to, socket.listens() ? "1" : "0");
                pause();
            }));
        QByteArray said;
        for (const auto& program : programs)
            said += program->read();
        EXPECT_EQ(said.count('1'), 1) << said.constData();
        for (const auto& program : programs)
            kill(program->id(), SIGKILL);
    }
}

TEST_F(HandOverTest, theEndOfOneIsTheBeginningOfAnother)
{
    // Lock files come and go under the others' hands; there is never more than one that listens.
    std::vector<std::unique_ptr<ChildProcess>> programs;
    for (int i = 0; i < 4; ++i)
        programs.push_back(std::make_unique<ChildProcess>([&](int to) {
            for (int round = 0; round < 20000; ++round) {
                const HandOverSocket socket(place);
                if (!socket.listens())
                    continue;
                const Descriptor mark(
                    open(directory.at("mark").constData(), O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR));
                if (!mark)
                    return say(to, "two listen; ");
                unlink(directory.at("mark").constData());
            }
            say(to, "done; ");
        }));
    for (const auto& program : programs)
        EXPECT_EQ(program->readAll(), "done; ");
    EXPECT_FALSE(exists(place + ".lock"));
}

TEST_F(HandOverTest, aFileInTheSocketsPlaceIsLeftAlone)
{
    directory.write("songbin-:0", "mine");
    {
        const HandOverSocket socket(place);
        EXPECT_FALSE(socket.listens());
    }
    EXPECT_EQ(directory.read("songbin-:0"), "mine");
    EXPECT_FALSE(HandOver(place).offer("/a"));
}

TEST_F(HandOverTest, onlyTheUserMayCall)
{
    const mode_t before = umask(0);
    const HandOverSocket socket(place);
    umask(before);
    for (const QByteArray& path : {place, place + ".lock"}) {
        struct stat status {};
        ASSERT_EQ(lstat(path.constData(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, 0600U) << path.constData();
    }
}
