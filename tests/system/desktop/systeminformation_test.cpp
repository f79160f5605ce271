#include "system/desktop/systeminformation.h"

#include "platform/drives.h"
#include "system/settings/fileregistry.h"
#include "tests/support/temporary.h"

#include <QDir>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString kKey = QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO");
const QString kName = QStringLiteral("PATH");

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// Z: is the root of the file system, and there is no other drive.
class RootDrive : public Drives {
public:
    std::vector<Drive> list() override { return {{u'Z', DriveKind::Fixed}}; }
    QString volumeName(const QString&) override { return {}; }
    std::optional<QByteArray> machinePath(const QString& path) override
    {
        if (!path.startsWith(text("Z:\\")))
            return {};
        return path.mid(2).replace(u'\\', u'/').toUtf8();
    }
    QString drivePath(const QByteArray& path) override
    {
        return text("Z:") + QString::fromUtf8(path).replace(u'/', u'\\');
    }
};

class SystemInformationTest : public testing::Test {
protected:
    void install(const char* program, mode_t rights = 0755)
    {
        m_temporary.write(program, "#!/bin/sh\n");
        ASSERT_EQ(chmod(m_temporary.at(program).constData(), rights), 0);
    }
    QString pathOf(const char* program) { return m_drives.drivePath(m_temporary.at(program)); }
    void seed(const char* directories = "bin")
    {
        QByteArrayList path;
        for (const QByteArray& directory : QByteArray(directories).split(':'))
            path += m_temporary.at(directory);
        seedSystemInformation(m_registry, m_drives, path.join(':'));
    }
    void store(const QString& value)
    {
        m_registry.set(RootKey::LocalMachine, kKey, kName, {kRegSz, value, {}});
    }
    QString stored()
    {
        const std::optional<RegistryValue> value = m_registry.query(RootKey::LocalMachine, kKey, kName);
        return value ? value->text : text("(none)");
    }

    Temporary m_temporary;
    RootDrive m_drives;
    FileRegistry m_registry{m_temporary.at("registry.conf")};
};

} // namespace

TEST_F(SystemInformationTest, makesAnInstalledProgramKnown)
{
    install("bin/hardinfo");
    seed();
    EXPECT_EQ(stored(), pathOf("bin/hardinfo"));
}

TEST_F(SystemInformationTest, prefersTheMostTellingProgramWhereverItIs)
{
    install("bin/kinfocenter");
    install("local/hardinfo2");
    seed("bin:missing:local");
    EXPECT_EQ(stored(), pathOf("local/hardinfo2"));
}

TEST_F(SystemInformationTest, takesTheFirstDirectoryForOneProgram)
{
    install("bin/hardinfo");
    install("local/hardinfo");
    seed("local:bin");
    EXPECT_EQ(stored(), pathOf("local/hardinfo"));
}

TEST_F(SystemInformationTest, leavesAProgramOfTheUsersChoice)
{
    install("bin/hardinfo");
    install("own/tool");
    store(pathOf("own/tool"));
    seed();
    EXPECT_EQ(stored(), pathOf("own/tool"));
}

TEST_F(SystemInformationTest, replacesAProgramThatIsGone)
{
    install("bin/kinfocenter");
    store(pathOf("bin/hardinfo"));
    seed();
    EXPECT_EQ(stored(), pathOf("bin/kinfocenter"));
}

TEST_F(SystemInformationTest, forgetsItsOwnProgramWhenThatIsGoneAndThereIsNoOther)
{
    store(pathOf("bin/hardinfo"));
    seed();
    EXPECT_EQ(stored(), text("(none)"));
}

TEST_F(SystemInformationTest, keepsAForeignProgramThatIsGone)
{
    store(text("D:\\Tools\\INFO.EXE"));
    seed();
    EXPECT_EQ(stored(), text("D:\\Tools\\INFO.EXE"));
}

TEST_F(SystemInformationTest, takesNothingThatCannotBeStarted)
{
    install("bin/hardinfo", 0644);
    m_temporary.makeDirectory("bin/kinfocenter");
    seed();
    EXPECT_EQ(stored(), text("(none)"));
}

TEST_F(SystemInformationTest, looksInNoRelativeDirectory)
{
    install("bin/hardinfo");
    const QByteArray start = QDir::currentPath().toUtf8();
    ASSERT_EQ(chdir(m_temporary.path().constData()), 0);
    seedSystemInformation(m_registry, m_drives, "bin::.");
    ASSERT_EQ(chdir(start.constData()), 0);
    EXPECT_EQ(stored(), text("(none)"));
}
