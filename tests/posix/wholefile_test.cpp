#include "posix/wholefile.h"

#include "tests/support/childprocess.h"
#include "tests/support/errorof.h"
#include "tests/support/failingcalls.h"
#include "tests/support/rights.h"
#include "tests/support/temporary.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <random>
#include <thread>

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

struct WholeFile : testing::Test {
    Temporary tree;
    const QByteArray file = tree.at("d/list");
    const QByteArray fresh = ".songbin-new-" + QByteArray::number(geteuid());

    WholeFile() { tree.makeDirectory("d"); }

    // Returns "" or the number of the error.
    static QByteArray replaced(const QByteArray& path, const QByteArray& content)
    {
        const int error = errorOf([&] { replaceWhole(path, content); });
        return error == 0 ? QByteArray() : QByteArray::number(error);
    }
    // Does the same piece by piece.
    static QByteArray written(const QByteArray& path, const QByteArrayList& pieces)
    {
        const int error = errorOf([&] {
            FileInPieces file(path);
            for (const QByteArray& piece : pieces)
                file.write(piece);
            file.commit();
        });
        return error == 0 ? QByteArray() : QByteArray::number(error);
    }
    // Returns what lies in the directory, in the order of names.
    QByteArrayList names(const QByteArray& directory = "d") const
    {
        QByteArrayList names;
        DIR* const entries = opendir(tree.at(directory).constData());
        while (const dirent* entry = readdir(entries))
            if (QByteArray(entry->d_name) != "." && QByteArray(entry->d_name) != "..")
                names += entry->d_name;
        closedir(entries);
        std::sort(names.begin(), names.end());
        return names;
    }
    // Runs it in a process whose calls fail; it returns "skip" where that cannot be arranged.
    QByteArray replacedWhile(const std::function<bool()>& prepare, const QByteArray& content)
    {
        return saidByChild(
            [&]() -> QByteArray { return prepare() ? replaced(file, content) : QByteArray("skip"); });
    }
};

bool littleRoom()
{
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{1000, 1000};
    return setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

} // namespace

TEST_F(WholeFile, takesThePlaceOfTheOldOneAndLeavesNothingBeside)
{
    EXPECT_EQ(replaced(file, "first"), "");
    EXPECT_EQ(tree.read("d/list"), "first");
    const QByteArray large(3'000'000, 'x');
    EXPECT_EQ(replaced(file, large), "");
    EXPECT_EQ(tree.read("d/list"), large);
    EXPECT_EQ(replaced(file, {}), "");
    EXPECT_EQ(tree.read("d/list"), "");
    EXPECT_EQ(names(), QByteArrayList{"list"});
}

TEST_F(WholeFile, keepsRightsAndOwner)
{
    tree.write("d/list", "old");
    chmod(file.constData(), 0640);
    const uid_t owner = geteuid() == 0 ? 65534 : geteuid();
    ASSERT_EQ(chown(file.constData(), owner, gid_t(-1)), 0);
    EXPECT_EQ(replaced(file, "new"), "");
    struct stat state {};
    ASSERT_EQ(stat(file.constData(), &state), 0);
    EXPECT_EQ(state.st_mode & 07777, 0640U);
    EXPECT_EQ(state.st_uid, owner);
}

TEST_F(WholeFile, followsALinkButNotOneToNothing)
{
    tree.write("elsewhere/real", "old");
    ASSERT_EQ(symlink("../elsewhere/real", file.constData()), 0);
    EXPECT_EQ(replaced(file, "new"), "");
    EXPECT_EQ(tree.read("elsewhere/real"), "new");
    ASSERT_EQ(unlink(tree.at("elsewhere/real").constData()), 0);
    EXPECT_EQ(replaced(file, "newer"), told(ErrorNumber::PathNotFound));
    struct stat state {};
    ASSERT_EQ(lstat(file.constData(), &state), 0);
    EXPECT_TRUE(S_ISLNK(state.st_mode));
}

TEST_F(WholeFile, doesNotTouchWhatIsNoFile)
{
    tree.makeDirectory("d/list");
    EXPECT_EQ(replaced(file, "x"), told(ErrorNumber::PathFileAccess));
    ASSERT_EQ(mkfifo(tree.at("d/pipe").constData(), 0666), 0);
    EXPECT_EQ(replaced(tree.at("d/pipe"), "x"), told(ErrorNumber::PathFileAccess));
    EXPECT_EQ(replaced(tree.at("no/list"), "x"), told(ErrorNumber::PathNotFound));
    EXPECT_EQ(replaced("/dev/full", "x"), told(ErrorNumber::PathFileAccess));
    EXPECT_EQ(names(), (QByteArrayList{"list", "pipe"}));
}

TEST_F(WholeFile, aReadOnlyOneStaysThoughItsDirectoryWouldTakeAnother)
{
    tree.write("d/list", "old");
    chmod(tree.path().constData(), 0755);
    chmod(tree.at("d").constData(), 0777);
    {
        const Unprivileged ordinary;
        EXPECT_EQ(replaced(file, "new"), told(ErrorNumber::PermissionDenied));
    }
    EXPECT_EQ(tree.read("d/list"), "old");
    EXPECT_EQ(names(), QByteArrayList{"list"});
}

TEST_F(WholeFile, staysInADirectoryThatTakesNoOther)
{
    tree.write("d/list", "old");
    chmod(tree.path().constData(), 0755);
    chmod(file.constData(), 0666);
    chmod(tree.at("d").constData(), 0755);
    {
        const Unprivileged ordinary;
        EXPECT_EQ(replaced(file, "new"), told(ErrorNumber::PermissionDenied));
    }
    EXPECT_EQ(tree.read("d/list"), "old");
    tree.makeDirectory("d/" + fresh + "/full");
    EXPECT_EQ(replaced(file, "new"), told(ErrorNumber::PathFileAccess));
    EXPECT_EQ(tree.read("d/list"), "old");
}

TEST_F(WholeFile, whatFitsOnAFullDiskLiesBeside)
{
    tree.write("d/list", "old");
    const QByteArray said = replacedWhile(littleRoom, QByteArray(3000, 'x'));
    EXPECT_EQ(said, told(ErrorNumber::DiskFull));
    EXPECT_EQ(tree.read("d/list"), "old");
    EXPECT_EQ(tree.read("d/list.partial"), QByteArray(1000, 'x'));
    EXPECT_EQ(names(), (QByteArrayList{"list", "list.partial"}));
    EXPECT_EQ(replaced(file, "new"), "");
    EXPECT_EQ(tree.read("d/list.partial").size(), 1000) << "it may be all that there is of something";
}

TEST_F(WholeFile, whatLiesBesideReplacesNothingOfAnother)
{
    tree.write("d/list", "old");
    tree.write("d/list.partial", "a person's");
    const QByteArray said = saidByChild([&]() -> QByteArray {
        if (!littleRoom())
            return "skip";
        const QByteArray first = replaced(file, QByteArray(3000, 'x'));
        return first + ' ' + replaced(file, QByteArray(3000, 'y'));
    });
    EXPECT_EQ(said, told(ErrorNumber::DiskFull) + ' ' + told(ErrorNumber::DiskFull));
    EXPECT_EQ(tree.read("d/list.partial"), "a person's");
    EXPECT_EQ(tree.read("d/list.partial-2"), QByteArray(1000, 'y')) << "of its own the last one stays";
    EXPECT_EQ(names(), (QByteArrayList{"list", "list.partial", "list.partial-2"}));
    EXPECT_EQ(replacedWhile(littleRoom, QByteArray(3000, 'z')), told(ErrorNumber::DiskFull));
    EXPECT_EQ(tree.read("d/list.partial-2"), QByteArray(1000, 'y')) << "another program's";
    EXPECT_EQ(tree.read("d/list.partial-3"), QByteArray(1000, 'z'));
}

TEST_F(WholeFile, staysOnADiskWithoutRoom)
{
    tree.makeDirectory("small");
    if (mount("none", tree.at("small").constData(), "tmpfs", 0, "size=64k") != 0)
        GTEST_SKIP() << "no small file system can be mounted here";
    EXPECT_EQ(replaced(tree.at("small/list"), "old"), "");
    EXPECT_EQ(replaced(tree.at("small/list"), QByteArray(100'000, 'x')), told(ErrorNumber::DiskFull));
    EXPECT_EQ(tree.read("small/list"), "old");
    EXPECT_GT(tree.read("small/list.partial").size(), 10'000);
    EXPECT_EQ(names("small"), (QByteArrayList{"list", "list.partial"}));
    umount(tree.at("small").constData());
}

TEST_F(WholeFile, staysWhenTheDiskDoesNotSync)
{
    tree.write("d/list", "old");
    const QByteArray said = replacedWhile([] { return failSyncs(EIO); }, "new");
    if (said == "skip")
        GTEST_SKIP() << "no call can be made to fail here";
    EXPECT_EQ(said, told(ErrorNumber::PathFileAccess));
    EXPECT_EQ(tree.read("d/list"), "old");
    EXPECT_EQ(tree.read("d/list.partial"), "new");
}

TEST_F(WholeFile, staysWhenNothingCanTakeItsPlace)
{
    tree.write("d/list", "old");
    const QByteArray said = replacedWhile([] { return failRenames(EIO); }, "new");
    if (said == "skip")
        GTEST_SKIP() << "no call can be made to fail here";
    EXPECT_EQ(said, told(ErrorNumber::PathFileAccess));
    EXPECT_EQ(tree.read("d/list"), "old");
    EXPECT_EQ(names(), QByteArrayList{"list"});
}

TEST_F(WholeFile, isSyncedBeforeItTakesThePlace)
{
    tree.write("d/list", "old");
    // A file system that cannot sync says so, and is written to all the same.
    const QByteArray said = replacedWhile([] { return failSyncs(EINVAL); }, "new");
    if (said == "skip")
        GTEST_SKIP() << "no call can be made to fail here";
    EXPECT_EQ(said, "");
    EXPECT_EQ(tree.read("d/list"), "new");
}

TEST_F(WholeFile, aLongNameHasItsPartialOneToo)
{
    const QByteArray name(255, 'n');
    const QByteArray path = tree.at("d/") + name;
    EXPECT_EQ(replaced(path, "old"), "");
    EXPECT_EQ(
        saidByChild([&] { return littleRoom() ? replaced(path, QByteArray(3000, 'x')) : QByteArray(); }),
        told(ErrorNumber::DiskFull));
    EXPECT_EQ(names(), (QByteArrayList{name.left(247) + ".partial", name}));
}

TEST_F(WholeFile, whatAKilledProgramLeftIsInNobodysWay)
{
    tree.write("d/" + fresh, "half of some");
    EXPECT_EQ(replaced(file, "new"), "");
    EXPECT_EQ(names(), QByteArrayList{"list"});
    EXPECT_EQ(tree.read("d/list"), "new");
}

TEST_F(WholeFile, isTheOldOneOrTheNewOneWheneverTheProgramIsKilled)
{
    const QByteArray contents[] = {QByteArray(700'000, 'a'), QByteArray(900'000, 'b')};
    ASSERT_EQ(replaced(file, contents[0]), "");
    std::mt19937 random(1);
    int inTheMidst = 0;
    for (int round = 0; round < 60; ++round) {
        ChildProcess writer([&](int to) {
            say(to, "begins");
            for (int turn = 0;; ++turn)
                replaced(file, contents[turn % 2]);
        });
        ASSERT_EQ(writer.read(), "begins");
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 8000));
        kill(writer.id(), SIGKILL);
        writer.wait();
        inTheMidst += names().size() == 2;
        const QByteArray now = tree.read("d/list");
        ASSERT_TRUE(now == contents[0] || now == contents[1]) << "round " << round << ": " << now.size();
    }
    EXPECT_GT(inTheMidst, 0) << "none of the kills came in the midst of a save";
    EXPECT_EQ(replaced(file, "after"), "");
    EXPECT_EQ(names(), QByteArrayList{"list"});
}

TEST_F(WholeFile, manyProgramsAtOnceMixNothing)
{
    std::vector<std::unique_ptr<ChildProcess>> writers;
    for (const char letter : {'a', 'b', 'c'})
        writers.push_back(std::make_unique<ChildProcess>([&, letter](int to) {
            // A slow disk may make one wait too long for the others: then it is refused and tries again.
            int refused = 0;
            for (int turn = 0; turn < 40 && refused < 40;)
                replaced(file, QByteArray(200'000, letter)).isEmpty() ? ++turn : ++refused;
            say(to, refused < 40 ? "done" : "refused");
        }));
    for (const auto& writer : writers)
        EXPECT_EQ(writer->readAll(), "done");
    const QByteArray now = tree.read("d/list");
    EXPECT_EQ(now.size(), 200'000);
    EXPECT_EQ(now.count(now.at(0)), now.size());
    EXPECT_EQ(names(), QByteArrayList{"list"});
}

TEST_F(WholeFile, isNotWaitedForLongBehindOneThatHangs)
{
    tree.write("d/list", "old");
    const int held = open(tree.at("d/" + fresh).constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    ASSERT_EQ(flock(held, LOCK_EX), 0);
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(replaced(file, "new"), told(ErrorNumber::PermissionDenied));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
    EXPECT_EQ(tree.read("d/list"), "old");
    close(held);
    EXPECT_EQ(replaced(file, "new"), "");
}

TEST_F(WholeFile, comesInPiecesAndTakesThePlaceAtTheEnd)
{
    tree.write("d/list", "old");
    chmod(file.constData(), 0640);
    {
        FileInPieces pieces(file);
        pieces.write("first ");
        pieces.write({});
        pieces.write("second");
        EXPECT_EQ(tree.read("d/list"), "old");
        EXPECT_EQ(names().size(), 2);
        pieces.commit();
        EXPECT_EQ(tree.read("d/list"), "first second");
        EXPECT_EQ(names(), QByteArrayList{"list"});
        EXPECT_THROW(pieces.write("third"), RunTimeError);
        EXPECT_THROW(pieces.commit(), RunTimeError);
    }
    EXPECT_EQ(tree.read("d/list"), "first second");
    struct stat state {};
    ASSERT_EQ(stat(file.constData(), &state), 0);
    EXPECT_EQ(state.st_mode & 07777, 0640U);
}

TEST_F(WholeFile, inPiecesItFollowsALink)
{
    tree.write("elsewhere/real", "old");
    ASSERT_EQ(symlink("../elsewhere/real", file.constData()), 0);
    EXPECT_EQ(written(file, {"n", "ew"}), "");
    EXPECT_EQ(tree.read("elsewhere/real"), "new");
    EXPECT_EQ(names("elsewhere"), QByteArrayList{"real"});
}

TEST_F(WholeFile, givenUpNothingLiesBeside)
{
    {
        FileInPieces(file).write("half");
    }
    EXPECT_EQ(names(), QByteArrayList());
    tree.write("d/list", "old");
    {
        FileInPieces(file).write("half");
    }
    EXPECT_EQ(tree.read("d/list"), "old");
    EXPECT_EQ(names(), QByteArrayList{"list"});
}

TEST_F(WholeFile, inPiecesNothingLiesBesideWhenADiskIsFull)
{
    const QByteArrayList pieces{QByteArray(700, 'x'), QByteArray(700, 'y')};
    for (const bool isThere : {false, true}) {
        if (isThere)
            tree.write("d/list", "old");
        EXPECT_EQ(saidByChild([&] { return littleRoom() ? written(file, pieces) : QByteArray("skip"); }),
                  "61");
        EXPECT_EQ(names(), isThere ? QByteArrayList{"list"} : QByteArrayList());
    }
    EXPECT_EQ(tree.read("d/list"), "old");
    const QByteArray later = saidByChild([&]() -> QByteArray {
        littleRoom();
        FileInPieces half(file);
        half.write("begun ");
        try {
            half.write(QByteArray(3000, 'x'));
        } catch (const RunTimeError&) { // whoever does not hear of it
        }
        half.commit();
        return "committed";
    });
    EXPECT_NE(later, "committed");
    EXPECT_EQ(tree.read("d/list"), "old");
}

TEST_F(WholeFile, inPiecesItStaysOnADiskWithoutRoom)
{
    tree.makeDirectory("small");
    if (mount("none", tree.at("small").constData(), "tmpfs", 0, "size=64k") != 0)
        GTEST_SKIP() << "no small file system can be mounted here";
    EXPECT_EQ(written(tree.at("small/list"), {"old"}), "");
    EXPECT_EQ(written(tree.at("small/list"), QByteArrayList(100, QByteArray(1000, 'x'))), "61");
    EXPECT_EQ(tree.read("small/list"), "old");
    EXPECT_EQ(names("small"), QByteArrayList{"list"});
    umount(tree.at("small").constData());
}

TEST_F(WholeFile, inPiecesItStaysWhenTheDiskRefusesTheEnd)
{
    tree.write("d/list", "old");
    for (const auto& refuse : {failSyncs, failRenames}) {
        const QByteArray said =
            saidByChild([&] { return refuse(EIO) ? written(file, {"new"}) : QByteArray("skip"); });
        if (said == "skip")
            GTEST_SKIP() << "no call can be made to fail here";
        EXPECT_EQ(said, "75");
        EXPECT_EQ(tree.read("d/list"), "old");
        EXPECT_EQ(names(), QByteArrayList{"list"});
    }
}

TEST_F(WholeFile, inPiecesItIsRefusedBeforeTheFirstOne)
{
    tree.write("d/list", "old");
    tree.makeDirectory("d/list2");
    const auto begun = [](const QByteArray& path) {
        try {
            const FileInPieces whole(path);
            return 0;
        } catch (const RunTimeError& error) {
            return error.number();
        }
    };
    EXPECT_EQ(begun(tree.at("no/list")), 76);
    EXPECT_EQ(begun(tree.at("d/list2")), 75);
    EXPECT_EQ(begun("/dev/full"), 75);
    chmod(tree.path().constData(), 0755);
    chmod(file.constData(), 0666);
    chmod(tree.at("d").constData(), 0755);
    const Unprivileged ordinary;
    EXPECT_EQ(begun(file), 70);
    EXPECT_EQ(begun(tree.at("d/new")), 70);
}

TEST_F(WholeFile, inPiecesItFollowsALinkToAFileOfItsKindAlone)
{
    tree.write("d/songs.csv", "old");
    tree.write("d/archive.mdb", "records");
    ASSERT_EQ(symlink("songs.csv", tree.at("d/link.CSV").constData()), 0);
    ASSERT_EQ(symlink("archive.mdb", tree.at("d/list.csv").constData()), 0);
    EXPECT_EQ(written(tree.at("d/link.CSV"), {"new"}), "");
    EXPECT_EQ(tree.read("d/songs.csv"), "new");
    EXPECT_EQ(written(tree.at("d/list.csv"), {"new"}), "70");
    EXPECT_EQ(tree.read("d/archive.mdb"), "records");
}

TEST_F(WholeFile, oneThatTakesItsTimeKeepsNobodyWaiting)
{
    FileInPieces first(file);
    first.write("first");
    FileInPieces second(tree.at("d/other"));
    second.write("second");
    EXPECT_EQ(replaced(tree.at("d/small"), "small"), "");
    second.commit();
    first.commit();
    EXPECT_EQ(tree.read("d/list"), "first");
    EXPECT_EQ(tree.read("d/other"), "second");
    EXPECT_EQ(names(), (QByteArrayList{"list", "other", "small"}));
}

TEST_F(WholeFile, inPiecesItIsTheOldOneWhenTheProgramIsKilled)
{
    tree.write("d/list", "old");
    ChildProcess writer([&](int to) {
        FileInPieces half(file);
        half.write(QByteArray(100'000, 'x'));
        say(to, "begun");
        pause();
    });
    ASSERT_EQ(writer.read(), "begun");
    EXPECT_EQ(names().size(), 2);
    kill(writer.id(), SIGKILL);
    writer.wait();
    EXPECT_EQ(tree.read("d/list"), "old");
    EXPECT_EQ(written(file, {"new"}), "");
    EXPECT_EQ(names(), QByteArrayList{"list"}) << "what was left is in nobody's way";
}
