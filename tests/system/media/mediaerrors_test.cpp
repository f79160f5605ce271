#include "tests/support/bytes.h"
#include "tests/system/media/mediatest.h"

#include <filesystem>

using namespace mediatest;

namespace {

struct MediaErrorsTest : MediaTest {
    int errorOf(const char* name, const QString& type = u"ActiveMovie"_qs)
    {
        open(QString::fromLatin1(name), type);
        EXPECT_EQ(device.error() == 0, device.errorMessage().isEmpty());
        if (device.error() != 0) {
            EXPECT_EQ(device.length(), 0);
            const int error = device.error();
            play(0);
            EXPECT_EQ(device.position(), 0);
            return error;
        }
        return 0;
    }

    Recording recording;
};

QByteArray noise(int size)
{
    return arbitraryBytes(size, 12345);
}

} // namespace

TEST_F(MediaErrorsTest, aFileThatIsNotThere)
{
    EXPECT_EQ(errorOf("away.mp3"), MediaError::kNoFile);
    device.setFileName(u"Q:\\a.mp3"_qs);
    device.send(u"open"_qs);
    EXPECT_EQ(device.error(), MediaError::kNoFile);
    EXPECT_TRUE(device.errorMessage().startsWith(u"a.mp3: "_qs)) << device.errorMessage().toStdString();
}

TEST_F(MediaErrorsTest, damagedFiles)
{
    write("empty.mp3", {});
    write("noise.mp3", noise(20000));
    write("text.mp3", QByteArray("This is a letter and no music.\n").repeated(100));
    write("zeros.wav", QByteArray(10000, '\0'));
    write("head.wav", wav(counterFrames(0, kRate)).left(20));
    EXPECT_EQ(errorOf("empty.mp3"), MediaError::kDamaged);
    EXPECT_EQ(errorOf("noise.mp3"), MediaError::kDamaged);
    EXPECT_EQ(errorOf("text.mp3"), MediaError::kDamaged);
    EXPECT_EQ(errorOf("zeros.wav"), MediaError::kDamaged);
    EXPECT_EQ(errorOf("head.wav"), MediaError::kDamaged);
    EXPECT_EQ(errorOf("noise.mp3", u"M4W_MCI"_qs), MediaError::kDamaged);
    EXPECT_EQ(errorOf("noise.mp3", u"Animation"_qs), MediaError::kDamaged);
}

TEST_F(MediaErrorsTest, aDirectoryIsNoMedium)
{
    world.directory.makeDirectory("disk/dir.mp3");
    EXPECT_NE(errorOf("dir.mp3"), 0);
}

TEST_F(MediaErrorsTest, typesWithoutADevice)
{
    write("a.mmm", noise(2000));
    EXPECT_EQ(errorOf("a.mmm", u"MMMovie"_qs), MediaError::kNoDriver);
    EXPECT_EQ(errorOf("a.mmm", u"Animation1"_qs), MediaError::kNoDriver);
    EXPECT_EQ(errorOf("a.mmm", u"Sequencer"_qs), MediaError::kNoDriver);
    EXPECT_EQ(errorOf("a.mmm", QString()), MediaError::kNoDriver);
}

TEST_F(MediaErrorsTest, noDisc)
{
    EXPECT_EQ(errorOf("", u"cdaudio"_qs), MediaError::kOther);
}

TEST_F(MediaErrorsTest, goodFilesOpenAfterABadOne)
{
    write("bad.wav", noise(500));
    write("good.wav", wav(counterFrames(0, 4410)));
    EXPECT_EQ(errorOf("bad.wav"), MediaError::kDamaged);
    EXPECT_EQ(errorOf("good.wav"), 0);
    EXPECT_EQ(device.length(), 100);
}

// The rest of a file that was cut off ends where it ends, and the list goes on.
TEST_F(MediaErrorsTest, aFileThatWasCutOffPlaysToItsEnd)
{
    write("cut.wav", wav(counterFrames(0, 2 * kRate)).left(44 + 2 * kRate));
    ASSERT_EQ(errorOf("cut.wav"), 0);
    play(0);
    EXPECT_TRUE(reaches(device.length(), 3000));
    device.send(u"close"_qs);
    EXPECT_TRUE(isRun(recording.frames(), 0, kRate / 2));
}

TEST_F(MediaErrorsTest, aFileWithoutASampleEndsAtOnce)
{
    write("none.wav", wav({}));
    open(u"none.wav"_qs);
    EXPECT_EQ(device.length(), 0);
    play(0);
    EXPECT_EQ(device.position(), 0);
}

// A pipe that nobody writes to would be waited for without end.
TEST_F(MediaErrorsTest, aPipeIsNoMedium)
{
    ASSERT_EQ(mkfifo(world.directory.at("disk/pipe.mp3").constData(), 0600), 0);
    const auto begin = Clock::now();
    EXPECT_NE(errorOf("pipe.mp3"), 0);
    EXPECT_LT(millisecondsSince(begin), 2000);
}

TEST_F(MediaErrorsTest, thousandTimesOpenedAndClosedNothingGrows)
{
    const auto kilobytes = [] {
        QFile status(u"/proc/self/statm"_qs);
        status.open(QFile::ReadOnly);
        return status.readAll().split(' ').value(1).toInt() * 4;
    };
    write("a.wav", wav(counterFrames(0, kRate)));
    write("bad.wav", noise(500));
    int after200 = 0;
    for (int i = 0; i < 1000; ++i) {
        if (i == 200)
            after200 = kilobytes();
        open(i % 10 == 9 ? u"bad.wav"_qs : u"a.wav"_qs);
        if (i % 3 == 0)
            play(500);
        device.send(u"close"_qs);
    }
    EXPECT_LT(kilobytes(), after200 * 1.2);
}
