#include "archive/scan/scanner.h"

#include "base/runtimeerror.h"
#include "tests/support/rights.h"
#include "tests/support/world.h"

#include <gtest/gtest.h>

#include <filesystem>

#include <sys/stat.h>

namespace {

class FakeSetup : public ScanSetup {
public:
    QString searchString() const override { return search; }
    QString directory() const override { return dir; }
    bool includesSubdirectories() const override { return true; }
    QString customExt() const override { return ext; }

    QString search = QStringLiteral("D:\\*.MP3");
    QString dir = QStringLiteral("D:\\");
    QString ext = QStringLiteral("MP3");
};

class View : public ScanView {
public:
    void clearFiles() override { matched.clear(); }
    void addFile(const QString& path) override { matched += path; }
    int fileCount() const override { return static_cast<int>(matched.size()); }
    void addRow(const QStringList& values) override { rows.push_back(values); }
    void setLabel1(const QString& text) override { label1 += text; }
    void setLabel5(const QString& text) override { label5 = text; }
    void showProgress() override {}
    bool closing() const override { return closed; }
    bool stopWished() override
    {
        ++asked;
        closed = closed || asked == stopAt;
        return closed;
    }
    void setNote(const QString& text) override { note = text; }
    void setEmptyReason(const QString& text) override { emptyReason = text; }

    int asked = 0;
    int stopAt = -1;
    QString note;
    QString emptyReason;
    QStringList matched;
    std::vector<QStringList> rows;
    QStringList label1;
    QString label5;
    bool closed = false;
};

QByteArray padded(const QByteArray& text, int length, char with = ' ')
{
    return text.leftJustified(length, with, true);
}

// Makes a tag as players write it, behind some music.
QByteArray tagged(const QByteArray& title, const QByteArray& artist, char with = ' ')
{
    return QByteArray(400, '\x55') + "TAG" + padded(title, 30, with) + padded(artist, 30, with) +
           padded("Album", 30, with) + "1999" + padded("Comment", 29, with) + '\x09' + '\x11';
}

struct ScannerTest : testing::Test {
    World world;
    FakeSetup setup;
    View view;
    Scanner scanner{world.context, [this]() -> ScanSetup& { return setup; }, view};

    void write(const QByteArray& name, const QByteArray& content = {})
    {
        world.directory.write("disk/" + name, content);
    }
    void scan()
    {
        world.shared.SearchRoot = QStringLiteral("D:\\");
        scanner.scanTree();
    }
    QStringList row(std::size_t index) { return index < view.rows.size() ? view.rows[index] : QStringList(); }
    QString cell(std::size_t index, int column) { return row(index).value(column); }
    QStringList paths()
    {
        QStringList all;
        for (const QStringList& values : view.rows)
            all += values.value(1);
        return all;
    }
};

enum Column { DiskName, Path, Artist, Song, Album, Year, Comment };

} // namespace

TEST_F(ScannerTest, aFileWithoutTagIsNamedByItsName)
{
    write("Artist_Name - Song_Title.mp3");
    scan();
    EXPECT_EQ(row(0), QStringList({u"ROCK_01"_qs, u"D:\\Artist_Name - Song_Title.mp3"_qs, u"Artist Name "_qs,
                                   u"Song Title.mp3"_qs, QString(), QString(), QString()}));
}

TEST_F(ScannerTest, aNameWithoutDashIsBothArtistAndSong)
{
    write("Song.mp3");
    scan();
    EXPECT_EQ(cell(0, Artist), u"Song.mp3"_qs);
    EXPECT_EQ(cell(0, Song), u"Song.mp3"_qs);
}

TEST_F(ScannerTest, apostrophesBecomeDashesEverywhere)
{
    write("Don't Stop.mp3");
    write("x.mp3", tagged("It's", "O'Brien"));
    scan();
    EXPECT_EQ(cell(0, Path), u"D:\\Don-t Stop.mp3"_qs);
    EXPECT_EQ(cell(0, Artist), u"Don-t Stop.mp3"_qs);
    EXPECT_EQ(cell(0, Song), u"Don-t Stop.mp3"_qs);
    EXPECT_EQ(cell(1, Song), QStringLiteral("It-s").leftJustified(30));
    EXPECT_EQ(cell(1, Artist), QStringLiteral("O-Brien").leftJustified(30));
}

TEST_F(ScannerTest, aTagOverridesTheNameAndItsCommentTakesInTheTrack)
{
    write("Name - Other.mp3", tagged("Title", "Artist"));
    scan();
    EXPECT_EQ(cell(0, Artist), QStringLiteral("Artist").leftJustified(30));
    EXPECT_EQ(cell(0, Song), QStringLiteral("Title").leftJustified(30));
    EXPECT_EQ(cell(0, Album), QStringLiteral("Album").leftJustified(30));
    EXPECT_EQ(cell(0, Year), u"1999"_qs);
    // Only the genre, the very last byte of the file, lies outside the window.
    EXPECT_EQ(cell(0, Comment), QStringLiteral("Comment").leftJustified(29) + QChar(9));
}

TEST_F(ScannerTest, nulsBecomeTwoBlanksEach)
{
    write("a.mp3", tagged("Title", "Artist", '\0'));
    scan();
    EXPECT_EQ(cell(0, Song), QString(u"Title"_qs).leftJustified(5 + 2 * 25));
    EXPECT_EQ(cell(0, Artist), QString(u"Artist"_qs).leftJustified(6 + 2 * 24));
}

TEST_F(ScannerTest, oneLeadingBlankOfTheSongIsDropped)
{
    write("a.mp3", tagged("  Two", " Artist"));
    scan();
    EXPECT_TRUE(cell(0, Song).startsWith(u" Two"));
    EXPECT_TRUE(cell(0, Artist).startsWith(u" Artist"));
}

TEST_F(ScannerTest, filesUpTo256BytesAreNeverSearchedForATag)
{
    const QByteArray tag = tagged("Title", "Artist").last(128);
    write("0.mp3");
    write("255.mp3", QByteArray(127, '.') + tag);
    write("256.mp3", QByteArray(128, '.') + tag);
    write("257.mp3", QByteArray(129, '.') + tag);
    scan();
    ASSERT_EQ(view.rows.size(), 4U);
    EXPECT_EQ(cell(0, Artist), u"0.mp3"_qs);
    EXPECT_EQ(cell(1, Artist), u"255.mp3"_qs);
    EXPECT_EQ(cell(2, Artist), u"256.mp3"_qs);
    EXPECT_TRUE(cell(3, Artist).startsWith(u"Artist"));
}

TEST_F(ScannerTest, theWindowBeginsOneByteBeforeTheLast256)
{
    // A marker whose first byte is the 257th from the end is found, one byte earlier it is not.
    const QByteArray seen = "TAG" + padded("Seen", 254, '.');
    write("seen.mp3", QByteArray(100, '.') + seen);
    write("unseen.mp3", QByteArray(100, '.') + seen + '.');
    scan();
    EXPECT_TRUE(cell(0, Song).startsWith(u"Seen"));
    EXPECT_EQ(cell(1, Song), u"unseen.mp3"_qs);
}

TEST_F(ScannerTest, theFirstMarkerInTheWindowCounts)
{
    write("a.mp3", QByteArray(300, '.') + "Tag" + padded("Loose", 60) + tagged("Title", "Artist").last(128));
    scan();
    EXPECT_EQ(cell(0, Song), QStringLiteral("Loose").leftJustified(30));
}

TEST_F(ScannerTest, tagBytesAreReadInTheCodePage)
{
    write("a.mp3", tagged("Bl\xE5 \x80", "S\xF8r"));
    scan();
    EXPECT_EQ(cell(0, Song), QStringLiteral("Blå €").leftJustified(30));
    EXPECT_EQ(cell(0, Artist), QStringLiteral("Sør").leftJustified(30));
}

TEST_F(ScannerTest, theExtensionIsComparedExactlyWithTheUpperCasedName)
{
    write("x.mp3");
    scan();
    EXPECT_EQ(view.rows.size(), 1U);
    setup.ext = u"mp3"_qs;
    scan();
    EXPECT_EQ(view.rows.size(), 1U);
    EXPECT_EQ(view.matched.size(), 1);
    setup.ext = u"P3"_qs;
    scan();
    EXPECT_EQ(view.rows.size(), 1U);
}

TEST_F(ScannerTest, theListCountsEveryMatchTheGridOnlyTheChosenType)
{
    write("a.mp3");
    write("b.wav");
    write("notes.txt");
    setup.search = u"D:\\*.*"_qs;
    scan();
    EXPECT_EQ(view.matched.size(), 3);
    EXPECT_EQ(view.rows.size(), 1U);
    EXPECT_EQ(view.label1.last(), u"3 Items was found in this search."_qs);
}

TEST_F(ScannerTest, subdirectoriesComeAfterTheFilesOfTheirParentInListingOrder)
{
    write("b/2.mp3");
    write("a/deep/1.mp3");
    write("a/z.mp3");
    write("z.mp3");
    scan();
    EXPECT_EQ(paths(), QStringList({u"D:\\z.mp3"_qs, u"D:\\a\\z.mp3"_qs, u"D:\\a\\deep\\1.mp3"_qs,
                                    u"D:\\b\\2.mp3"_qs}));
}

TEST_F(ScannerTest, yieldsOncePerDirectoryAndNamesIt)
{
    write("a/1.mp3");
    write("a/2.mp3");
    world.directory.makeDirectory("disk/b");
    scan();
    EXPECT_EQ(world.program.yields, 3);
    EXPECT_EQ(view.label1,
              QStringList({u"Searching... D:\\"_qs, u"Searching... D:\\a\\"_qs,
                           u"1 Items was found in this search."_qs, u"2 Items was found in this search."_qs,
                           u"Searching... D:\\b\\"_qs}));
}

TEST_F(ScannerTest, anEmptyDirectoryGivesNoRowAndLeavesItsName)
{
    world.directory.makeDirectory("disk/empty");
    setup.search = u"D:\\empty\\*.MP3"_qs;
    scan();
    EXPECT_TRUE(view.rows.empty());
    EXPECT_EQ(view.label1.last(), u"Searching... D:\\empty\\"_qs);
}

TEST_F(ScannerTest, theTimeTakenIsTheTimeOfDay)
{
    world.program.seconds = 43200;
    scan();
    EXPECT_EQ(view.label5, u"Time taken: 43.2 seconds"_qs);
    EXPECT_EQ(world.shared.ScanStartTime, 0.0F);
}

TEST_F(ScannerTest, aDriveThatIsNotThereGivesAnEmptyResult)
{
    setup.search = u"Q:\\*.MP3"_qs;
    world.shared.SearchRoot = u"Q:\\"_qs;
    scanner.scanTree();
    EXPECT_TRUE(view.rows.empty());
    EXPECT_EQ(world.shared.CurrentVolume, QString());
}

TEST_F(ScannerTest, aSearchStringWithoutDirectoryGivesAnEmptyResult)
{
    setup.search = u"*.MP3"_qs;
    scan();
    EXPECT_TRUE(view.rows.empty());
}

TEST_F(ScannerTest, aDirectoryThatVanishesInTheMiddleIsSkipped)
{
    write("a/1.mp3");
    write("b/2.mp3");
    world.program.onYield = [&] {
        if (world.program.yields == 2)
            std::filesystem::remove_all(world.directory.at("disk/a").toStdString());
    };
    scan();
    EXPECT_EQ(paths(), QStringList({u"D:\\b\\2.mp3"_qs}));
}

TEST_F(ScannerTest, endsAtTheNextYieldWhenTheViewIsClosed)
{
    write("1.mp3");
    write("a/2.mp3");
    write("b/3.mp3");
    world.program.onYield = [&] { view.closed = world.program.yields == 2; };
    scan();
    EXPECT_EQ(paths(), QStringList({u"D:\\1.mp3"_qs}));
    EXPECT_EQ(world.program.yields, 2);
}

TEST_F(ScannerTest, everyNameIsListedWhateverItHolds)
{
    write("tab\there.mp3");
    write("line\nend.mp3");
    write("quote\"s.mp3");
    write("back\\slash.mp3");
    write("bad\xFFutf.mp3");
    scan();
    EXPECT_EQ(view.rows.size(), 5U);
    for (const QStringList& values : view.rows)
        EXPECT_EQ(values.size(), 7);
}

TEST_F(ScannerTest, artistAndSongAreReadableWhateverThePathHolds)
{
    write("What? - Who*.mp3");
    write("a:b - c\\d.mp3");
    write("S\xF8r - Bl\xE5.mp3");
    scan();
    ASSERT_EQ(view.rows.size(), 3U);
    EXPECT_EQ(cell(0, Artist), u"a:b "_qs);
    EXPECT_EQ(cell(0, Song), u"c\\d.mp3"_qs);
    EXPECT_EQ(cell(1, Artist), u"Sør "_qs);
    EXPECT_EQ(cell(1, Song), u"Blå.mp3"_qs);
    EXPECT_EQ(cell(2, Artist), u"What? "_qs);
    EXPECT_EQ(cell(2, Song), u"Who*.mp3"_qs);
    for (const QString& path : paths())
        EXPECT_TRUE(world.drives.machinePath(path)) << qPrintable(path);
}

TEST_F(ScannerTest, anEmptyPatternMatchesEveryFile)
{
    write("a.mp3");
    write("b.wav");
    setup.search = u"D:\\"_qs;
    scan();
    EXPECT_EQ(view.matched.size(), 2);
    EXPECT_EQ(view.rows.size(), 1U);
}

TEST_F(ScannerTest, anUnreadableFileIsCountedAndMissingFromTheRows)
{
    for (const char* name : {"disk", "home", "program"})
        chmod(world.directory.at(name).constData(), 0755);
    chmod(world.directory.path().constData(), 0755);
    write("a.mp3");
    write("b.mp3");
    chmod(world.directory.at("disk/a.mp3").constData(), 0000);
    const Unprivileged user;
    scan();
    EXPECT_EQ(view.matched.size(), 2);
    EXPECT_EQ(paths(), QStringList({u"D:\\b.mp3"_qs}));
}

TEST_F(ScannerTest, aLinkToItsOwnParentDoesNotLoop)
{
    write("a/1.mp3");
    std::filesystem::create_directory_symlink(world.directory.at("disk").toStdString(),
                                              world.directory.at("disk/a/up").toStdString());
    scan();
    EXPECT_EQ(paths(), QStringList({u"D:\\a\\1.mp3"_qs}));
}

TEST_F(ScannerTest, aDirectoryIsEnteredOnceHoweverManyLinksLeadToIt)
{
    for (int i = 0; i < 9; ++i)
        write("d" + QByteArray::number(i) + "/a.mp3");
    for (int from = 0; from < 9; ++from)
        for (int to = 0; to < 9; ++to)
            std::filesystem::create_directory_symlink(
                "../d" + std::to_string(to),
                world.directory.at("disk/d" + QByteArray::number(from) + "/to" + QByteArray::number(to))
                    .toStdString());
    scan();
    EXPECT_EQ(view.rows.size(), 9U);
    EXPECT_EQ(paths().first(), u"D:\\d0\\a.mp3"_qs);
    scan();
    EXPECT_EQ(view.rows.size(), 18U) << "the next scan enters them again";
}

TEST_F(ScannerTest, theKernelsFileSystemsAreLeftOut)
{
    write("a.mp3");
    for (const char* place : {"/proc", "/sys"})
        std::filesystem::create_directory_symlink(place, world.directory.at("disk").toStdString() + place);
    setup.search = u"D:\\*.*"_qs;
    scan();
    EXPECT_EQ(view.matched, QStringList(u"D:\\a.mp3"_qs));
    EXPECT_EQ(world.program.yields, 3);
}

TEST_F(ScannerTest, betweenFilesTheViewIsAskedAndNothingYields)
{
    for (const char* name : {"1.mp3", "2.mp3", "3.mp3", "z/4.mp3"})
        write(name);
    view.stopAt = 3;
    scan();
    EXPECT_EQ(paths(), QStringList({u"D:\\1.mp3"_qs, u"D:\\2.mp3"_qs})) << "obeyed at the next file";
    EXPECT_EQ(world.program.yields, 1);
    EXPECT_TRUE(view.emptyReason.isEmpty());
}

TEST_F(ScannerTest, theDirectoryAloneEndsAtTheNextFileToo)
{
    write("1.mp3");
    write("2.mp3");
    view.stopAt = 2;
    world.shared.SearchRoot = u"D:\\"_qs;
    scanner.scanDirectory();
    EXPECT_EQ(view.rows.size(), 1U);
    EXPECT_EQ(world.program.yields, 0);
}

TEST_F(ScannerTest, anApostropheOfTheDisksNameBecomesADashInTheRowsAndTheViewSaysSo)
{
    write("a.mp3");
    world.directory.write("home/.config/Songbin/drives.conf",
                          "[Drives]\nE=" + world.directory.at("disk") + ",DJ's MIX\n");
    setup.search = u"E:\\*.MP3"_qs;
    world.shared.SearchRoot = u"E:\\"_qs;
    scanner.scanTree();
    EXPECT_EQ(cell(0, DiskName), u"DJ-s MIX"_qs);
    EXPECT_EQ(world.shared.CurrentVolume, u"DJ's MIX"_qs) << "the disk is still known by its own name";
    EXPECT_TRUE(view.note.contains(u"\"DJ's MIX\""_qs) && view.note.contains(u"\"DJ-s MIX\""_qs))
        << qPrintable(view.note);
    scan();
    EXPECT_EQ(view.note, QString());
}

namespace {

struct EmptyScan {
    const char* search;
    const char* extension;
    const char* reason;
};

} // namespace

TEST_F(ScannerTest, anEmptyResultSaysWhy)
{
    write("full/a.flac");
    write("full/b.flac");
    write("full/x/c.ogg");
    write("plain/a.mp3");
    world.directory.makeDirectory("disk/none/below");
    world.directory.write("home/.config/Songbin/drives.conf", "[Drives]\nE=" + world.directory.at("away"));
    const EmptyScan scans[] = {
        {"*.MP3", "MP3", "The line \"Files to scan\" must begin with a drive, such as D:\\*.MP3."},
        {"Q:\\*.MP3", "MP3", "There is no drive Q: on this machine."},
        {"E:\\*.MP3", "MP3", "Drive E: is not ready. Put its disk in and scan again."},
        {"D:\\Musik\\*.MP3", "MP3", "There is no directory D:\\Musik."},
        {"D:\\none\\*.MP3", "MP3", "There is no file in D:\\none and below it."},
        {"D:\\none\\below\\*.MP3", "MP3", "There is no file in D:\\none\\below."},
        {"D:\\full\\*.MP3", "MP3",
         "There are 3 files in D:\\full and below it, such as \"a.flac\", but none that matches *.MP3."},
        {"D:\\plain\\*.mp3", "mp3",
         "1 file matches *.mp3, but a type is typed in capital letters: MP3 instead of mp3."},
        {"D:\\full\\*.FLAC", "FLAC",
         "2 files match *.FLAC, but a type is the last three characters of a name, and \"FLAC\" has 4. Type "
         "LAC "
         "as the type, then let \"Files to scan\" end in *.FLAC."},
        {"D:\\plain\\*.*", "WMA",
         "1 file matches *.*, but the type that is chosen in the Search window is WMA."},
        {"Z:\\proc\\*.MP3", "MP3", "Z:\\proc is of the system's own making and holds no music."},
    };
    for (const EmptyScan& one : scans) {
        setup.search = QString::fromUtf8(one.search);
        setup.ext = QString::fromUtf8(one.extension);
        scan();
        EXPECT_TRUE(view.rows.empty()) << one.search;
        EXPECT_EQ(view.emptyReason.toStdString(), one.reason) << one.search;
    }
}

TEST_F(ScannerTest, whatTheReasonForAnotherTypeTellsToTypeFindsTheFiles)
{
    write("a.flac");
    setup.search = u"D:\\*.FLAC"_qs;
    setup.ext = u"LAC"_qs;
    scan();
    EXPECT_EQ(view.rows.size(), 1U);
    EXPECT_EQ(view.emptyReason, QString());
}

TEST_F(ScannerTest, anEmptyDirectoryAloneNamesWhatWasLeftOut)
{
    write("full/x/c.mp3");
    setup.search = u"D:\\full\\*.MP3"_qs;
    setup.dir = u"D:\\full"_qs;
    scanner.scanDirectory();
    EXPECT_EQ(view.emptyReason, u"There is no file in D:\\full. What is below was left out: tick \"Include "
                                "subdirectories\" to scan that too."_qs);
}

TEST_F(ScannerTest, aDirectoryWithoutRightsIsAReason)
{
    for (const char* name : {"disk", "home", "program"})
        chmod(world.directory.at(name).constData(), 0755);
    chmod(world.directory.path().constData(), 0755);
    write("secret/a.mp3");
    write("b.txt");
    chmod(world.directory.at("disk/secret").constData(), 0000);
    {
        const Unprivileged user;
        scan();
        EXPECT_EQ(view.emptyReason, u"There is 1 file in D:\\ and below it, such as \"b.txt\", but none that "
                                    "matches *.MP3. 1 directory could not be read."_qs);
        setup.search = u"D:\\secret\\*.MP3"_qs;
        scan();
    }
    EXPECT_EQ(view.emptyReason,
              u"D:\\secret cannot be read: it is not yours to read, or its disk is damaged."_qs);
    chmod(world.directory.at("disk/secret").constData(), 0755);
}

TEST_F(ScannerTest, theReadTailOfASparseFileOfTenGigabytesIsFast)
{
    write("big.mp3", "x");
    std::filesystem::resize_file(world.directory.at("disk/big.mp3").toStdString(), 10'000'000'000);
    scan();
    EXPECT_EQ(view.rows.size(), 1U);
}

TEST_F(ScannerTest, theDirectoryAloneDoublesTheBackslashAtTheRoot)
{
    write("song.mp3");
    write("a/2.mp3");
    world.shared.SearchRoot = u"D:\\"_qs;
    scanner.scanDirectory();
    EXPECT_EQ(paths(), QStringList({u"D:\\\\song.mp3"_qs}));
    EXPECT_TRUE(view.matched.isEmpty());
    EXPECT_TRUE(view.label1.isEmpty());
    EXPECT_EQ(cell(0, DiskName), u"ROCK_01"_qs);
}

TEST_F(ScannerTest, theDirectoryAloneBelowTheRootHasPlainPaths)
{
    write("a/2.mp3");
    setup.search = u"D:\\a\\*.MP3"_qs;
    setup.dir = u"D:\\a"_qs;
    world.shared.SearchRoot = u"D:\\"_qs;
    scanner.scanDirectory();
    EXPECT_EQ(paths(), QStringList({u"D:\\a\\2.mp3"_qs}));
}

TEST_F(ScannerTest, aFileThatCannotBeOpenedEndsItsRow)
{
    world.shared.CurrentFile = u"D:\\gone.mp3"_qs;
    EXPECT_THROW(scanner.AddFileToResult(), RunTimeError);
    EXPECT_TRUE(view.rows.empty());
}

TEST_F(ScannerTest, aDirPathWithoutBackslashGetsOneForTheCallerToo)
{
    QString path = u"D:"_qs;
    scanner.FilesSearch(path, u"*.MP3"_qs);
    EXPECT_EQ(path, u"D:\\"_qs);
}

TEST_F(ScannerTest, leavesNoFileOpen)
{
    write("a.mp3", tagged("Title", "Artist"));
    scan();
    EXPECT_EQ(world.fileNumbers.freeFile(), 1);
}
