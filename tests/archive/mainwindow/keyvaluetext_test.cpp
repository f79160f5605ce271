#include "archive/mainwindow/keyvaluetext.h"

#include "platform/files.h"
#include "system/settings/fileregistry.h"
#include "tests/support/temporary.h"

#include <gtest/gtest.h>

namespace {

constexpr RootKey kMachine = RootKey::LocalMachine;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// Has files of which only the existence matters.
class NamedFiles : public Files {
public:
    QStringList present;

    bool exists(const QString& path) override { return present.contains(path); }
    bool isTaken(const QString& path) override { return exists(path); }
    std::vector<DirEntry> list(const QString&) override { return {}; }
    QStringList dir(const QString&, int) override { return {}; }
    void copy(const QString&, const QString&) override {}
    void replace(const QString&, const QByteArray&) override {}
    std::unique_ptr<FileReplacement> beginReplacement(const QString&) override { return nullptr; }
    QByteArray read(const QString&, qint64) override { return {}; }
    void expectTails(const QString&, const QStringList&, int) override {}
};

class KeyValueText : public testing::Test {
protected:
    std::string textOf(int type, const QByteArray& bytes)
    {
        m_registry.set(kMachine, text("K"), text("x"), {type, {}, bytes});
        const KeyValueResult result = GetKeyValue(m_registry, kMachine, text("K"), text("x"));
        return result.found ? result.text.toStdString() : "(none)";
    }
    void store(const char* key, const char* name, const char* value)
    {
        m_registry.set(kMachine, text(key), text(name), {kRegSz, text(value), {}});
    }
    std::string program()
    {
        return findSystemInformation(m_registry, m_files).value_or(text("(none)")).toStdString();
    }

    Temporary m_temporary;
    FileRegistry m_registry{m_temporary.at("registry.conf")};
    NamedFiles m_files;
};

constexpr const char* kProgramKey = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
constexpr const char* kPlaceKey = "SOFTWARE\\Microsoft\\Shared Tools Location";

} // namespace

TEST_F(KeyValueText, failsForAMissingValue)
{
    const KeyValueResult result = GetKeyValue(m_registry, kMachine, text("K"), text("x"));
    EXPECT_FALSE(result.found);
    EXPECT_EQ(result.text, QString());
}

TEST_F(KeyValueText, cutsAStringAtItsFirstZero)
{
    m_registry.set(kMachine, text("K"), text("x"), {kRegSz, text("a b") + QChar(0) + text("c"), {}});
    EXPECT_EQ(GetKeyValue(m_registry, kMachine, text("K"), text("x")).text, text("a b"));
    store("K", "x", "C:\\Tools");
    EXPECT_EQ(GetKeyValue(m_registry, kMachine, text("k"), text("X")).text, text("C:\\Tools"));
    store("K", "x", "");
    EXPECT_TRUE(GetKeyValue(m_registry, kMachine, text("K"), text("x")).found);
}

TEST_F(KeyValueText, readsBytesAsANumberLowestFirst)
{
    EXPECT_EQ(textOf(kRegDword, QByteArray("\x39\x30\0\0", 4)), "12345");
    EXPECT_EQ(textOf(kRegBinary, "\x0A"), "10");
    EXPECT_EQ(textOf(kRegBinary, "\xFF\xFF"), "65535");
    EXPECT_EQ(textOf(kRegBinary, QByteArray("\x00\x01", 2)), "256");
}

TEST_F(KeyValueText, readsFourBytesWithASign)
{
    EXPECT_EQ(textOf(kRegDword, "\xFF\xFF\xFF\xFF"), "-1");
    EXPECT_EQ(textOf(kRegDword, QByteArray("\0\0\0\x80", 4)), "-2147483648");
}

TEST_F(KeyValueText, readsMoreBytesWithoutASign)
{
    EXPECT_EQ(textOf(kRegBinary, QByteArray("\xFF\xFF\xFF\xFF\0", 5)), "4294967295");
    EXPECT_EQ(textOf(kRegBinary, QByteArray(8, '\xFF')), "18446744073709551615");
    EXPECT_EQ(textOf(kRegBinary, QByteArray("\x01\0\0\0\0\0\0\0\0\0", 10)), "1");
}

TEST_F(KeyValueText, givesTheDigitsOfWhatIsNoNumber)
{
    EXPECT_EQ(textOf(kRegBinary, QByteArray("\x0A\0\0\0\0\0\0\0\x01", 9)), "&h01000000000000000A");
    EXPECT_EQ(textOf(kRegBinary, {}), "&h");
}

TEST_F(KeyValueText, takesTheProgramItIsTold)
{
    store(kProgramKey, "PATH", "Z:\\usr\\bin\\hardinfo");
    store(kPlaceKey, "MSINFO", "C:\\Tools");
    m_files.present = {text("C:\\Tools\\MSINFO32.EXE")};
    EXPECT_EQ(program(), "Z:\\usr\\bin\\hardinfo");
}

TEST_F(KeyValueText, takesTheProgramAtTheToolsPlaceWhenItIsThere)
{
    store(kPlaceKey, "MSINFO", "C:\\Tools");
    EXPECT_EQ(program(), "(none)");
    m_files.present = {text("C:\\Tools\\MSINFO32.EXE")};
    EXPECT_EQ(program(), "C:\\Tools\\MSINFO32.EXE");
}

TEST_F(KeyValueText, findsNoProgramWithoutAPlace)
{
    m_files.present = {text("\\MSINFO32.EXE")};
    EXPECT_EQ(program(), "(none)");
}
