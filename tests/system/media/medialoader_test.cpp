#include "system/media/medialoader.h"

#include "platform/mediaerror.h"
#include "tests/support/bytes.h"
#include "tests/support/drivestest.h"
#include "tests/support/rerun.h"

#include <QDir>
#include <QFile>

#include <chrono>
#include <thread>

namespace {

constexpr quint32 kRate = 8000;
constexpr int kSeconds = 2;

QByteArray silentWav()
{
    constexpr quint32 kBytes = kRate * kSeconds; // one channel of 8 bits
    QByteArray wav = "RIFF";
    addLittle<quint32>(wav, 36 + kBytes);
    wav += "WAVEfmt ";
    addLittle<quint32>(wav, 16);
    addLittle<quint16>(wav, 1);
    addLittle<quint16>(wav, 1);
    addLittle<quint32>(wav, kRate);
    addLittle<quint32>(wav, kRate);
    addLittle<quint16>(wav, 1);
    addLittle<quint16>(wav, 8);
    wav += "data";
    addLittle<quint32>(wav, kBytes);
    return wav + QByteArray(kBytes, '\x80');
}

bool isMapped(const QByteArray& library)
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QFile::ReadOnly) && maps.readAll().contains('/' + library);
}

class LoadedMedia : public SystemDrivesTest {
protected:
    static QByteArray built()
    {
        QFile file(QStringLiteral(SONGBIN_MEDIA_MODULE));
        EXPECT_TRUE(file.open(QFile::ReadOnly));
        return file.readAll();
    }
    QByteArray module(const QByteArray& content)
    {
        m_files.write("program/songbin-media.so", content);
        return at("program/songbin-media.so");
    }

    // The device has tried to open a file that is there.
    std::unique_ptr<MediaElement> opened(MediaMachine& machine)
    {
        m_files.write("d/a.wav", silentWav());
        auto device = machine.makeDevice();
        device->setDeviceType(QStringLiteral("ActiveMovie"));
        device->setFileName(QStringLiteral("D:\\a.wav"));
        device->send(QStringLiteral("open"));
        return device;
    }

    void isSilent(const QByteArray& path, const QString& reason)
    {
        LoadedMediaMachine machine(path, m_drives);
        const auto device = opened(machine);
        EXPECT_EQ(device->error(), MediaError::kNoDriver);
        EXPECT_TRUE(device->errorMessage().contains(reason)) << qPrintable(device->errorMessage());
        EXPECT_TRUE(device->errorMessage().contains(QString::fromUtf8(path)));
        device->send(QStringLiteral("play"));
        EXPECT_EQ(device->error(), 0) << "it is closed";
        EXPECT_EQ(device->length(), 0);
        device->setDeviceType(QStringLiteral("Delay"));
        device->send(QStringLiteral("open"));
        EXPECT_EQ(device->error(), 0);
        const auto volume = machine.makeVolume();
        EXPECT_EQ(volume->get(), 0xFFFFFFFFU);
        volume->set(0x12345678);
        EXPECT_EQ(volume->get(), 0x12345678U);
        EXPECT_EQ(opened(machine)->error(), MediaError::kNoDriver) << "it is so the next time";
    }
};

// Another test's load would show in this process's maps.
void passesAlone(const char* test)
{
    const Rerun run(test, QProcessEnvironment::systemEnvironment());
    EXPECT_TRUE(run.passed) << run.output.constData();
}

} // namespace

TEST_F(LoadedMedia, aModuleThatIsMissing)
{
    isSilent(at("program/songbin-media.so"), QStringLiteral("missing or damaged"));
}

TEST_F(LoadedMedia, aModuleThatIsNoModule)
{
    isSilent(module("this is no module\n"), QStringLiteral("missing or damaged"));
    isSilent(module({}), QStringLiteral("missing or damaged"));
    isSilent(module(QByteArray(10000, '\0')), QStringLiteral("invalid ELF header"));
    m_files.makeDirectory("program/directory.so");
    isSilent(at("program/directory.so"), QStringLiteral("missing or damaged"));
}

TEST_F(LoadedMedia, aModuleThatWasCutOff)
{
    const QByteArray whole = built();
    for (const qsizetype left : {qsizetype{64}, whole.size() / 4, whole.size() / 2, whole.size() - 1})
        isSilent(module(whole.first(left)), QStringLiteral("missing or damaged"));
}

TEST_F(LoadedMedia, aFileThatIsAnotherProgram)
{
    const QByteArray program = QFile::symLinkTarget(QStringLiteral("/proc/self/exe")).toLocal8Bit();
    isSilent(program, QStringLiteral("executable"));
}

TEST_F(LoadedMedia, aLibraryThatItNeedsIsMissing)
{
    QByteArray other = built();
    other.replace("libgstreamer-1.0.so.0", "libnostreamer-1.0.so."); // as long as the other
    isSilent(module(other), QStringLiteral("libnostreamer-1.0.so."));
}

TEST_F(LoadedMedia, aModuleOfAnotherBuild)
{
    passesAlone("LoadedMedia.DISABLED_aModuleOfAnotherBuild");
}

TEST_F(LoadedMedia, DISABLED_aModuleOfAnotherBuild)
{
    QByteArray other = built();
    const QByteArray build(" of " __VERSION__);
    ASSERT_EQ(other.count(build), 1) << "where the module tells its build";
    other.replace(build, QByteArray(build).replace(" of ", " in "));
    isSilent(module(other), QStringLiteral("another version"));
}

TEST_F(LoadedMedia, isFoundBesideTheProgramAlone)
{
    m_files.write("elsewhere/songbin-media.so", built());
    const QByteArray before = QFile::encodeName(QDir::currentPath());
    ASSERT_TRUE(QDir::setCurrent(QFile::decodeName(at("elsewhere"))));
    isSilent("songbin-media.so", QStringLiteral("missing or damaged"));
    isSilent("./songbin-media.so", QStringLiteral("missing or damaged"));
    QDir::setCurrent(QFile::decodeName(before));
}

TEST_F(LoadedMedia, isLoadedWhenADeviceIsMadeAndPlays)
{
    passesAlone("LoadedMedia.DISABLED_isLoadedWhenADeviceIsMadeAndPlays");
}

TEST_F(LoadedMedia, DISABLED_isLoadedWhenADeviceIsMadeAndPlays)
{
    qputenv("SONGBIN_AUDIO_SINK", "fakesink sync=true");
    std::unique_ptr<MediaElement> device;
    {
        LoadedMediaMachine machine(module(built()), m_drives);
        EXPECT_FALSE(isMapped("libgstreamer")) << "the program itself must not need it";
        EXPECT_FALSE(isMapped("libpulse"));
        device = opened(machine);
        EXPECT_TRUE(isMapped("songbin-media.so"));
        EXPECT_TRUE(isMapped("libgstreamer"));
    }
    ASSERT_EQ(device->error(), 0) << qPrintable(device->errorMessage());
    EXPECT_EQ(device->length(), kSeconds * 1000);
    device->send(QStringLiteral("play"));
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    EXPECT_GT(device->position(), 100) << "the machine that made it is gone, and it plays";
    EXPECT_LT(device->position(), 2000);
    device->send(QStringLiteral("close"));
    EXPECT_EQ(device->error(), 0);
    device->setFileName(QStringLiteral("D:\\nothing.wav"));
    device->send(QStringLiteral("open"));
    EXPECT_EQ(device->error(), MediaError::kNoFile);
}

TEST_F(LoadedMedia, keepsTheVolumeWithoutAServer)
{
    passesAlone("LoadedMedia.DISABLED_keepsTheVolumeWithoutAServer");
}

TEST_F(LoadedMedia, DISABLED_keepsTheVolumeWithoutAServer)
{
    qputenv("PULSE_SERVER", "unix:" + at("no server"));
    LoadedMediaMachine machine(module(built()), m_drives);
    const auto volume = machine.makeVolume();
    EXPECT_TRUE(isMapped("libpulse"));
    volume->set(0x40004000);
    EXPECT_EQ(volume->get(), 0x40004000U);
}
