#include "system/settings/fileregistry.h"

#include "tests/support/childprocess.h"
#include "tests/support/temporary.h"

#include <gtest/gtest.h>

namespace {

const QString kKey = QStringLiteral("SOFTWARE\\Songbin");
constexpr RootKey kMachine = RootKey::LocalMachine;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

RegistryValue string(const QString& value)
{
    return {kRegSz, value, {}};
}

class FileRegistryTest : public testing::Test {
protected:
    std::optional<RegistryValue> query(const char* name, const QString& key = kKey)
    {
        return m_registry.query(kMachine, key, text(name));
    }
    // What is read back of a value that another object wrote.
    RegistryValue rewritten(const RegistryValue& value)
    {
        EXPECT_TRUE(FileRegistry(m_file).set(kMachine, kKey, text("x"), value));
        return query("x").value_or(RegistryValue{-1, {}, {}});
    }

    Temporary m_temporary;
    QByteArray m_file = m_temporary.at("registry.conf");
    FileRegistry m_registry{m_file};
};

} // namespace

TEST_F(FileRegistryTest, hasNothingAtFirstAndMakesNothingByReading)
{
    EXPECT_FALSE(query("Vindu"));
    EXPECT_FALSE(m_temporary.exists("registry.conf"));
    EXPECT_FALSE(m_temporary.exists("registry.conf.lock"));
}

TEST_F(FileRegistryTest, keepsItsFileReadable)
{
    m_registry.set(kMachine, kKey + u'\\', text("Vindu"), string(text("2")));
    m_registry.set(RootKey::CurrentUser, kKey, text("x"), {kRegDword, {}, QByteArray("\x39\x30\0\0", 4)});
    m_registry.set(kMachine, kKey, text("b"), {kRegBinary, {}, "\x0A\xFF"});
    m_registry.set(kMachine, kKey, text("m"), {7, {}, "a"});
    EXPECT_EQ(m_temporary.read("registry.conf").toStdString(),
              "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Songbin]\nVindu=sz:2\nb=hex:0aff\nm=hex(7):61\n\n"
              "[HKEY_CURRENT_USER\\SOFTWARE\\Songbin]\nx=dword:12345\n");
}

TEST_F(FileRegistryTest, ignoresCaseAndABackslashAtTheEndOfAKey)
{
    m_registry.set(kMachine, kKey + u'\\', text("Vindu"), string(text("2")));
    EXPECT_EQ(query("VINDU", kKey.toLower()).value().text, text("2"));
    EXPECT_EQ(query("vindu", kKey + text("\\\\")).value().text, text("2"));
    EXPECT_FALSE(query("Vindu", text("SOFTWARE")));
    EXPECT_FALSE(m_registry.query(RootKey::CurrentUser, kKey, text("Vindu")));
}

TEST_F(FileRegistryTest, givesStringsBackAndCountsTheirEnd)
{
    for (const QString& value : {QString(), text("2"), text("D:\\M\xC3\xB8rk = \xE2\x99\xAB\\*.MP3"),
                                 text(" a\nb "), text("a") + QChar(0) + text("b"), QString(3000, u'x')}) {
        const RegistryValue back = rewritten(string(value));
        EXPECT_EQ(back.type, kRegSz);
        EXPECT_EQ(back.text, value);
        EXPECT_EQ(back.length(), value.size() + 1);
    }
}

TEST_F(FileRegistryTest, dropsTheZerosAtAStringsEnd)
{
    EXPECT_EQ(rewritten(string(text("1") + QString(2, QChar(0)))).text, text("1"));
    EXPECT_EQ(rewritten(string(QString(1, QChar(0)))).length(), 1);
}

TEST_F(FileRegistryTest, givesOtherTypesBack)
{
    for (const RegistryValue& value :
         {RegistryValue{kRegDword, {}, QByteArray("\x07\0\0\0", 4)},
          RegistryValue{kRegDword, {}, "\xFF\xFF\xFF\xFF"}, RegistryValue{kRegDword, {}, "\x01"},
          RegistryValue{kRegBinary, {}, {}}, RegistryValue{kRegBinary, {}, QByteArray("\0\xFF\n=", 4)},
          RegistryValue{0, {}, "x"}, RegistryValue{2, {}, "%PATH%"}}) {
        const RegistryValue back = rewritten(value);
        EXPECT_EQ(back.type, value.type);
        EXPECT_EQ(back.bytes, value.bytes);
        EXPECT_EQ(back.length(), value.bytes.size());
    }
}

TEST_F(FileRegistryTest, readsOtherFormsAsMissing)
{
    for (const char* form :
         {"", "2", "string:2", "dword:", "dword:x", "dword:-1", "dword:4294967296", "hex:0", "hex:0g",
          "hex:0a ff", "hex(:00", "hex(x):00", "hex(7)00", "hex(1):3200", "SZ"}) {
        m_temporary.write("registry.conf",
                          QByteArray("[HKEY_LOCAL_MACHINE\\SOFTWARE\\Songbin]\nv=") + form + "\nw=sz:ok\n");
        EXPECT_FALSE(query("v")) << form;
        EXPECT_TRUE(query("w")) << form;
    }
}

TEST_F(FileRegistryTest, removesAValue)
{
    m_registry.set(kMachine, kKey, text("Vindu"), string(text("2")));
    EXPECT_TRUE(m_registry.remove(kMachine, kKey + u'\\', text("VINDU")));
    EXPECT_FALSE(query("Vindu"));
    EXPECT_TRUE(m_registry.remove(kMachine, kKey, text("Vindu")));
}

TEST_F(FileRegistryTest, seesWhatAnotherProcessWrites)
{
    m_registry.set(kMachine, kKey, text("Vindu"), string(text("0")));
    EXPECT_EQ(query("Vindu").value().text, text("0"));
    EXPECT_EQ(saidByChild([&]() -> QByteArray {
                  return FileRegistry(m_file).set(kMachine, kKey, text("Vindu"), string(text("2")))
                             ? "done"
                             : "refused";
              }),
              "done");
    EXPECT_EQ(query("Vindu").value().text, text("2"));
}

TEST_F(FileRegistryTest, tellsWhenItCannotBeWritten)
{
    m_temporary.write("file");
    EXPECT_FALSE(
        FileRegistry(m_temporary.at("file/registry.conf")).set(kMachine, kKey, text("x"), string(text("1"))));
}

TEST_F(FileRegistryTest, whatWasNotReadIsNotWritten)
{
    const QByteArray file = m_temporary.at("other/registry.conf");
    FileRegistry registry(file);
    m_temporary.makeDirectory("other/registry.conf"); // in the way
    EXPECT_FALSE(registry.query(kMachine, kKey, text("InitDrive")));
    ASSERT_EQ(rmdir(file.constData()), 0);
    ASSERT_TRUE(FileRegistry(file).set(kMachine, kKey, text("InitDrive"), string(text("D:\\"))));
    EXPECT_FALSE(registry.set(kMachine, kKey + u'\\', text("initdrive"), string(text("C:\\"))));
    EXPECT_FALSE(registry.remove(kMachine, kKey, text("InitDrive")));
    EXPECT_EQ(registry.query(kMachine, kKey, text("InitDrive")).value().text, text("D:\\"));
    EXPECT_TRUE(registry.set(kMachine, kKey, text("InitDrive"), string(text("C:\\"))));
}
