// Holds what a program that was killed in the middle of a backup or a restore leaves, and who removes it.
#include "posix/copynotes.h"

#include "database/connection/archivecopy.h"
#include "database/connection/opengroups.h"
#include "tests/support/childprocess.h"
#include "tests/support/lockhook.h"
#include "tests/support/testarchive.h"

#include <QDir>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <random>
#include <utility>

#include <fcntl.h>
#include <sched.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/syscall.h>

namespace fs = std::filesystem;

namespace {

bool locksAreMissing = false;

} // namespace

// Stands in place of the system's own, for this program and all its libraries.
extern "C" int flock(int descriptor, int operation)
{
    if (const auto hook = std::exchange(beforeLock, {}))
        hook();
    if (!locksAreMissing)
        return static_cast<int>(syscall(SYS_flock, descriptor, operation));
    errno = ENOLCK;
    return -1;
}

namespace {

class CopyNotesTest : public testing::Test {
protected:
    QByteArray at(const char* name) { return archive.directory().at(name); }
    QStringList files() { return archive.filesInDirectory(); }
    QStringList noted() const
    {
        return QDir(QString::fromUtf8(notes.directory())).entryList(QDir::Files | QDir::Hidden);
    }

    // Starts a program that makes such a file of a megabyte and then stands still.
    std::unique_ptr<ChildProcess> maker(const QByteArray& directory)
    {
        auto program = std::make_unique<ChildProcess>([this, directory](int descriptor) {
            const QByteArray name = CopyNotes::freshName(directory + '/');
            const CopyNotes::Note note(notes, name);
            const Descriptor file(open(name.constData(), O_WRONLY | O_CREAT | O_EXCL, 0644));
            say(file.get(), QByteArray(1'000'000, 'x'));
            say(descriptor, "made");
            pause();
        });
        EXPECT_EQ(program->read(), "made");
        return program;
    }
    static void end(ChildProcess& program)
    {
        kill(program.id(), SIGKILL);
        program.wait();
    }

    static QString nameOf(char digit) { return QString(16, QLatin1Char(digit)); }
    void note(char digit, const QByteArray& content)
    {
        state.write(("Songbin/copies/" + QByteArray(16, digit)).constData(), content);
    }
    std::string notePath(char digit)
    {
        return (notes.directory() + '/' + QByteArray(16, digit)).toStdString();
    }

    TestArchive archive;
    Temporary state;
    CopyNotes notes{state.at("Songbin/copies")};
    OpenGroups groups;
};

const QStringList kArchive{QStringLiteral("Songbin.mdb")};

} // namespace

TEST_F(CopyNotesTest, aCopyThatCameToItsEndLeavesNeitherFileNorNote)
{
    backUpArchive(archive.file(), at("Songbin.Bck"), groups, &notes);
    restoreArchive(at("Songbin.Bck"), archive.file(), groups, &notes);
    EXPECT_EQ(files(), QStringList({u"Songbin.Bck"_qs, u"Songbin.mdb"_qs}));
    EXPECT_TRUE(fs::exists(notes.directory().toStdString()));
    EXPECT_TRUE(noted().isEmpty());
}

TEST_F(CopyNotesTest, theFileOfALiveProgramStaysAndThatOfADeadOneGoes)
{
    const auto program = maker(archive.directory().path());
    ASSERT_EQ(files().size(), 2);
    notes.removeLeftOvers();
    EXPECT_EQ(files().size(), 2);
    EXPECT_EQ(noted().size(), 1);
    end(*program);
    notes.removeLeftOvers();
    EXPECT_EQ(files(), kArchive);
    EXPECT_TRUE(noted().isEmpty());
}

TEST_F(CopyNotesTest, nobodysOwnFilesAreTouched)
{
    for (const char* name : {".songbin-0123456789abcdef", ".songbin-0123456789ABCDEF", ".songbin-1-0",
                             ".songbin-", ".songbinrc", ".songbin-0123456789abcdeg", "notes"})
        archive.directory().write(name, "mine");
    const QStringList before = files();
    end(*maker(archive.directory().path()));
    EXPECT_EQ(files().size(), before.size() + 1);
    archive.directory().makeDirectory("d");
    note('1', at("notes")); // no name of such a file
    note('2', at(".songbin-1-0") + 'x');
    note('3', at("d/.songbin-0123456789abcdef"));
    archive.directory().makeDirectory("d/.songbin-0123456789abcdef");
    note('4', QByteArray(100'000, '\0'));
    state.makeDirectory("Songbin/copies/5555555555555555");
    note('6', at("notes") + QByteArrayLiteral("\0/.songbin-0123456789abcdef"));
    note('7', at(".songbin-0123456789ABCDEF"));
    note('8', at(".songbin-0123456789abcdeg"));
    notes.removeLeftOvers();
    EXPECT_EQ(files(), before);
    EXPECT_TRUE(archive.directory().exists("d/.songbin-0123456789abcdef"));
}

TEST_F(CopyNotesTest, whatAPersonPutAmongTheNotesStays)
{
    end(*maker(archive.directory().path()));
    state.write("Songbin/copies/list.txt", "/music/a.mp3");
    state.write("Songbin/copies/empty", {});
    note('1', "my own words");
    note('2', QByteArray(8192, '/'));
    note('3', "/music/a.mp3");
    fs::create_hard_link(notePath('3'), state.at("Songbin/copies/second").toStdString());
    const QStringList mine{u"list.txt"_qs, u"empty"_qs, u"second"_qs, nameOf('1'), nameOf('2'), nameOf('3')};
    notes.removeLeftOvers();
    EXPECT_EQ(files(), kArchive); // what was a note was settled
    QStringList sorted = mine;
    std::sort(sorted.begin(), sorted.end());
    EXPECT_EQ(noted(), sorted);
    EXPECT_EQ(state.read("Songbin/copies/1111111111111111"), "my own words");
}

TEST_F(CopyNotesTest, aLinkInTheNotesPlaceLeadsNowhere)
{
    state.makeDirectory("mine");
    state.write("mine/1111111111111111", "/music/a.mp3");
    state.makeDirectory("Songbin");
    fs::create_directory_symlink(state.at("mine").toStdString(), notes.directory().toStdString());
    notes.removeLeftOvers();
    backUpArchive(archive.file(), at("Songbin.Bck"), groups, &notes);
    EXPECT_TRUE(state.exists("mine/1111111111111111"));
    EXPECT_EQ(noted().size(), 1);
    EXPECT_EQ(files(), QStringList({u"Songbin.Bck"_qs, u"Songbin.mdb"_qs}));
}

TEST_F(CopyNotesTest, whereNothingCanBeLockedNoNotesPileUp)
{
    locksAreMissing = true;
    backUpArchive(archive.file(), at("Songbin.Bck"), groups, &notes);
    locksAreMissing = false;
    EXPECT_EQ(files(), QStringList({u"Songbin.Bck"_qs, u"Songbin.mdb"_qs}));
    EXPECT_TRUE(noted().isEmpty());
}

TEST_F(CopyNotesTest, whatLiesOnADiskThatIsNotThereIsRemovedWhenItIsBack)
{
    archive.directory().makeDirectory("stick");
    end(*maker(at("stick")));
    fs::rename(at("stick").toStdString(), at("away").toStdString());
    notes.removeLeftOvers();
    EXPECT_EQ(noted().size(), 1);
    fs::rename(at("away").toStdString(), at("stick").toStdString());
    notes.removeLeftOvers();
    EXPECT_TRUE(fs::is_empty(at("stick").toStdString()));
    EXPECT_TRUE(noted().isEmpty());
}

// Its place is an empty directory then, or that of another disk, which says nothing about the file.
TEST_F(CopyNotesTest, whatLiesOnADiskThatIsNotMountedIsRememberedUntilItIs)
{
    archive.directory().makeDirectory("stick");
    archive.directory().makeDirectory("away");
    const auto mounts = [](const QByteArray& what, const QByteArray& place, const char* type,
                           unsigned long flags) {
        return mount(what.constData(), place.constData(), type, flags, nullptr) == 0;
    };
    const QByteArray said = saidByChild([&]() -> QByteArray {
        if (unshare(CLONE_NEWNS) != 0 || !mounts("none", "/", nullptr, MS_REC | MS_PRIVATE) ||
            !mounts("ROCK_01", at("stick"), "tmpfs", 0))
            return "not permitted";
        end(*maker(at("stick")));
        QByteArray counts;
        const auto look = [&] {
            notes.removeLeftOvers();
            counts += QByteArray::number(noted().size());
        };
        counts += mounts(at("stick"), at("away"), nullptr, MS_MOVE) ? "" : "?";
        look();
        counts += mounts("ROCK_02", at("stick"), "tmpfs", 0) ? "" : "?";
        look();
        umount(at("stick").constData());
        counts += mounts(at("away"), at("stick"), nullptr, MS_MOVE) ? "" : "?";
        look();
        return counts + (fs::is_empty(at("stick").toStdString()) ? " empty" : " full");
    });
    if (said == "not permitted")
        GTEST_SKIP() << "no right to mount a disk";
    EXPECT_EQ(said, "110 empty");
}

TEST_F(CopyNotesTest, withoutAPlaceForNotesACopyIsMadeAllTheSame)
{
    state.write("Songbin", "a file where a directory should be");
    backUpArchive(archive.file(), at("Songbin.Bck"), groups, &notes);
    EXPECT_EQ(archive.directory().read("Songbin.Bck"), archive.directory().read("Songbin.mdb"));
    notes.removeLeftOvers();
}

// Killed anywhere: the backup is the old one or the new one, the archive is sound, and nothing else is left.
TEST_F(CopyNotesTest, aKilledCopyLeavesNothingBehindTheNextStart)
{
    archive.run("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 60000)"
                " INSERT INTO MP3 (fldSong, fldPath) SELECT i, hex(randomblob(60)) FROM n");
    archive.directory().write("Songbin.Bck", archive.directory().read("Songbin.mdb"));
    const QByteArray whole = archive.directory().read("Songbin.mdb");
    std::mt19937 random(std::random_device{}());
    int left = 0;
    for (int round = 0; round < 60; ++round) {
        ChildProcess program([&](int descriptor) {
            say(descriptor, "y");
            for (bool back = round % 2;; back = !back)
                back ? restoreArchive(at("Songbin.Bck"), archive.file(), groups, &notes)
                     : backUpArchive(archive.file(), at("Songbin.Bck"), groups, &notes);
        });
        EXPECT_EQ(program.read(), "y");
        usleep(static_cast<useconds_t>(random() % 30'000));
        end(program);
        left += files().size() > 2 ? 1 : 0;
        notes.removeLeftOvers();
        const QStringList now = files().filter(QRegularExpression(u"^(?!Songbin\\.mdb-journal$)"_qs));
        EXPECT_EQ(now, QStringList({u"Songbin.Bck"_qs, u"Songbin.mdb"_qs}));
        EXPECT_TRUE(noted().isEmpty());
        EXPECT_EQ(archive.directory().read("Songbin.Bck"), whole);
        EXPECT_EQ(archive.directory().read("Songbin.mdb"), whole);
    }
    EXPECT_GT(left, 0) << "no kill came in the middle";
}
