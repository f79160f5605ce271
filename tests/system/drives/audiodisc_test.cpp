#include "system/drives/audiodisc.h"
#include "tests/support/discs.h"
#include "tests/support/rights.h"

#include <gtest/gtest.h>

#include <QDir>

#include <filesystem>

#include <sys/stat.h>

using namespace audiodisc;
namespace fs = std::filesystem;

namespace {

using Tracks = std::vector<Track>;

const Tracks kThree = {{1, 0, 75}, {2, 75, 150}, {3, 225, 75}};

class AudioDisc : public testing::Test {
protected:
    AudioDisc()
    {
        m_files.write("disc.bin", QByteArray(discs::kThreeTracksFrames * discs::kFrameBytes, '\0'));
        m_files.write("disc.cue", discs::threeTracks("disc.bin"));
    }
    Disc disc(const QByteArray& name = "disc.cue") const { return discIn(m_files.at(name)); }
    Place shown() const { return show(disc(), m_files.at("disc.cue"), m_files.at("state")); }
    static QStringList names(const QByteArray& directory)
    {
        return QDir(QFile::decodeName(directory)).entryList(QDir::Files | QDir::Hidden);
    }

    Temporary m_files;
};

} // namespace

TEST_F(AudioDisc, tracksEndWhereTheNextBeginsAndWithTheImage)
{
    EXPECT_EQ(disc().tracks, kThree);
    EXPECT_EQ(disc().image, m_files.at("disc.bin"));
    EXPECT_EQ(disc().imageFrames, 300);
}

TEST_F(AudioDisc, anImageThatIsShorterThanItsSheetCutsTracks)
{
    m_files.write("disc.bin", QByteArray(100 * discs::kFrameBytes + 2351, '\0'));
    EXPECT_EQ(disc().tracks, (Tracks{{1, 0, 75}, {2, 75, 25}}));
    m_files.write("disc.bin", QByteArray(2351, '\0'));
    EXPECT_EQ(disc().tracks, Tracks());
}

TEST_F(AudioDisc, anImageOfAnotherKindOrNoneGivesNoTracks)
{
    fs::remove(m_files.at("disc.bin").toStdString());
    EXPECT_EQ(disc().tracks, Tracks());
    m_files.makeDirectory("disc.bin");
    EXPECT_EQ(disc().tracks, Tracks());
    fs::remove(m_files.at("disc.bin").toStdString());
    ASSERT_EQ(mkfifo(m_files.at("disc.bin").constData(), 0600), 0);
    EXPECT_EQ(disc().tracks, Tracks());
}

TEST_F(AudioDisc, anImageLongerThanAnyDiscGivesNoTracks)
{
    fs::resize_file(m_files.at("disc.bin").toStdString(), std::uintmax_t{449850} * discs::kFrameBytes);
    EXPECT_EQ(disc().tracks, Tracks());
    fs::resize_file(m_files.at("disc.bin").toStdString(), std::uintmax_t{449849} * discs::kFrameBytes);
    EXPECT_EQ(disc().tracks.size(), 3U);
}

TEST_F(AudioDisc, imagesAreFoundByPathsOfOtherSystemsAndByNamesThatAreNoText)
{
    m_files.write("disc.cue", discs::threeTracks("C:\\Rips\\disc.bin"));
    EXPECT_EQ(disc().tracks, kThree);
    m_files.write("disc.cue", discs::threeTracks(m_files.at("disc.bin")));
    EXPECT_EQ(disc().tracks, kThree);
    fs::rename(m_files.at("disc.bin").toStdString(), m_files.at("sj\xF8.bin").toStdString());
    m_files.write("a/../sj\xF8.cue", discs::threeTracks("sj\xF8.bin"));
    EXPECT_EQ(disc("sj\xF8.cue").tracks, kThree);
}

TEST_F(AudioDisc, whatIsNoSheetHoldsNone)
{
    m_files.makeDirectory("directory.cue");
    ASSERT_EQ(mkfifo(m_files.at("pipe.cue").constData(), 0600), 0);
    m_files.write("empty.cue");
    m_files.write("large.cue", discs::threeTracks("disc.bin") + QByteArray(1 << 20, '\n'));
    for (const char* name : {"directory.cue", "pipe.cue", "empty.cue", "large.cue", "absent.cue", "disc.bin"})
        EXPECT_EQ(disc(name).tracks, Tracks()) << name;
    EXPECT_EQ(discIn("/dev/null").tracks, Tracks());
}

TEST_F(AudioDisc, aTrackFileTellsNumberPlaceAndLength)
{
    const QByteArray expected("RIFF\x24\0\0\0CDDAfmt \x18\0\0\0\x01\0\x05\0\0\0\0\0"
                              "\x34\x12\0\0\x78\x56\x01\0\x0A\x04\x01\0\x48\x1C\x13\0",
                              44);
    // 0x1234 + 150 frames are 1:04:10, 0x15678 frames 19:28:72.
    EXPECT_EQ(trackFile({5, 0x1234, 0x15678}).toHex(' '), QByteArray(expected).toHex(' '));
}

TEST_F(AudioDisc, trackFilesFollowTheSheet)
{
    const Place first = shown();
    EXPECT_EQ(names(first.tracks), (QStringList{QStringLiteral("Track01.cda"), QStringLiteral("Track02.cda"),
                                                QStringLiteral("Track03.cda")}));
    for (const Track& track : kThree) {
        const QByteArray file = first.tracks + "/Track0" + QByteArray::number(track.number) + ".cda";
        EXPECT_EQ(m_files.read(file.mid(m_files.path().size() + 1)), trackFile(track));
    }
    m_files.write("disc.cue", "FILE disc.bin BINARY\nTRACK 1 MODE1/2352\nINDEX 01 00:00:00\n"
                              "TRACK 2 AUDIO\nINDEX 01 00:00:10\nTRACK 3 AUDIO\nINDEX 01 00:00:20\n");
    const Place second = shown();
    EXPECT_EQ(second.tracks, first.tracks);
    EXPECT_EQ(names(second.tracks),
              (QStringList{QStringLiteral("Track02.cda"), QStringLiteral("Track03.cda")}));
    EXPECT_EQ(m_files.read(second.tracks.mid(m_files.path().size() + 1) + "/Track02.cda"),
              trackFile({2, 10, 10}));
}

TEST_F(AudioDisc, whatIsRightAlreadyIsNotWrittenAgain)
{
    const Place place = shown();
    const auto node = [&](const QByteArray& path) {
        struct stat status {};
        return lstat(path.constData(), &status) == 0 ? status.st_ino : 0;
    };
    const QByteArray bin = QByteArray(place.player).replace(".cue", ".bin");
    const auto before = std::tuple(node(place.tracks + "/Track01.cda"), node(place.player), node(bin));
    shown();
    EXPECT_EQ(before, std::tuple(node(place.tracks + "/Track01.cda"), node(place.player), node(bin)));
    m_files.write(place.tracks.mid(m_files.path().size() + 1) + "/Track01.cda", "damaged");
    shown();
    EXPECT_EQ(m_files.read(place.tracks.mid(m_files.path().size() + 1) + "/Track01.cda"),
              trackFile(kThree[0]));
}

TEST_F(AudioDisc, thePlayersSheetLeadsToTheImage)
{
    EXPECT_EQ(discIn(shown().player).tracks, kThree);
    m_files.write("other.bin", QByteArray(230 * discs::kFrameBytes, '\0'));
    m_files.write("disc.cue", discs::threeTracks("other.bin").toLower());
    EXPECT_EQ(discIn(shown().player).tracks, (Tracks{{1, 0, 75}, {2, 75, 150}, {3, 225, 5}}));
}

TEST_F(AudioDisc, twoSheetsDoNotMeet)
{
    m_files.write("other.cue", "FILE disc.bin BINARY\nTRACK 1 AUDIO\nINDEX 01 00:00:00\n");
    const Place other = show(disc("other.cue"), m_files.at("other.cue"), m_files.at("state"));
    const Place place = shown();
    EXPECT_NE(other.tracks, place.tracks);
    EXPECT_EQ(names(other.tracks).size(), 1);
    EXPECT_EQ(names(place.tracks).size(), 3);
}

TEST_F(AudioDisc, whatCannotBeWrittenShowsNothing)
{
    m_files.write("state", "a file where the directory should be");
    EXPECT_EQ(shown().tracks, QByteArray());
    EXPECT_EQ(shown().player, QByteArray());
    fs::remove(m_files.at("state").toStdString());
    chmod(m_files.path().constData(), 0755);
    const Unprivileged user;
    EXPECT_EQ(shown().tracks, QByteArray());
    EXPECT_EQ(shown().player, QByteArray());
}
