#include "archive/core/registryaccess.h"

#include "archive/core/settings.h"
#include "base/runtimeerror.h"
#include "system/settings/fileregistry.h"
#include "tests/support/temporary.h"

#include <gtest/gtest.h>

namespace {

constexpr RootKey kMachine = RootKey::LocalMachine;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

class RegistryAccess : public testing::Test {
protected:
    std::string get(const char* name)
    {
        return GetRegString(m_registry, kMachine, settings::kKeyForReading, text(name)).toStdString();
    }
    void save(const char* name, int type, const SettingValue& value)
    {
        SaveRegValue(m_registry, kMachine, settings::kKeyForWriting, text(name), type, value);
    }
    void store(const char* name, int type, const QByteArray& bytes)
    {
        m_registry.set(kMachine, settings::kKeyForReading, text(name), {type, {}, bytes});
    }
    std::optional<RegistryValue> stored(const char* name)
    {
        return m_registry.query(kMachine, settings::kKeyForReading, text(name));
    }

    Temporary m_temporary;
    FileRegistry m_registry{m_temporary.at("registry.conf")};
};

class RaisingRegistry : public Registry {
public:
    std::optional<RegistryValue> query(RootKey, const QString&, const QString&) override { return raise(); }
    bool set(RootKey, const QString&, const QString&, const RegistryValue&) override
    {
        return raise().has_value();
    }
    bool wasRead(RootKey, const QString&, const QString&) const override { return false; }
    QString file() const override { return {}; }
    bool remove(RootKey, const QString&, const QString&) override { return raise().has_value(); }

private:
    static std::optional<RegistryValue> raise() { throw RunTimeError(ErrorNumber::DeviceIoError); }
};

} // namespace

TEST_F(RegistryAccess, findsNothingAndMakesNothing)
{
    EXPECT_EQ(get("Vindu"), "Not Found");
    EXPECT_FALSE(m_temporary.exists("registry.conf"));
    save("Vindu", kRegSz, text("1"));
    EXPECT_EQ(get("Other"), "Not Found");
}

TEST_F(RegistryAccess, givesTextBackWhole)
{
    for (const QString& value :
         {text("1"), text(""), text("D:\\Music\\*.MP3"), text("D:\\Bl\xC3\xA5 b\xC3\xA6r\\*.MP3")}) {
        save("InitDrive", kRegSz, value);
        EXPECT_EQ(get("InitDrive"), value.toStdString());
    }
}

TEST_F(RegistryAccess, givesNumbersBackWhole)
{
    for (const int number : {0, 1, 2, 12345, -7}) {
        save("Vindu", kRegSz, number);
        EXPECT_EQ(get("Vindu"), std::to_string(number));
        EXPECT_EQ(stored("Vindu").value().type, kRegSz);
    }
}

TEST_F(RegistryAccess, storesAStringWhateverTypeIsGiven)
{
    save("x", kRegBinary, text("0AFF"));
    EXPECT_EQ(stored("x").value().type, kRegSz);
    EXPECT_EQ(get("x"), "0AFF");
    save("x", 99, 5);
    EXPECT_EQ(get("x"), "5");
}

TEST_F(RegistryAccess, cutsANumberToThreeDigits)
{
    save("x", kRegDword, 12345);
    EXPECT_EQ(stored("x").value().type, kRegDword);
    EXPECT_EQ(get("x"), "123");
    save("x", kRegDword, 7);
    EXPECT_EQ(get("x"), "007");
    save("x", kRegDword, 0);
    EXPECT_EQ(get("x"), "000");
    save("x", kRegDword, -1);
    EXPECT_EQ(get("x"), "429");
}

TEST_F(RegistryAccess, storesATextAsANumberWhenAskedTo)
{
    save("x", kRegDword, text("258"));
    EXPECT_EQ(stored("x").value().bytes, QByteArray("\x02\x01\0\0", 4));
    save("x", kRegDword, text("2.5"));
    EXPECT_EQ(stored("x").value().bytes, QByteArray("\x02\0\0\0", 4));
    save("x", kRegDword, text("-1"));
    EXPECT_EQ(stored("x").value().bytes, QByteArray("\xFF\xFF\xFF\xFF", 4));
}

TEST_F(RegistryAccess, keepsTheOldValueWhenATextIsNoNumber)
{
    save("x", kRegDword, 7);
    for (const char* noNumber : {"", "seven", "7x", "2147483648", "nan", "1e99"}) {
        save("x", kRegDword, text(noNumber));
        EXPECT_EQ(get("x"), "007") << noNumber;
    }
}

TEST_F(RegistryAccess, givesBinaryDataAsHexadecimal)
{
    store("b", kRegBinary, "\x0A\xFF");
    EXPECT_EQ(get("b"), "0AFF");
    store("b", kRegBinary, {});
    EXPECT_EQ(get("b"), "");
    store("b", kRegBinary, QByteArray(2048, '\x01'));
    EXPECT_EQ(get("b").size(), 4096u);
    store("b", kRegBinary, QByteArray(2049, '\x01'));
    EXPECT_EQ(get("b"), "Not Found");
}

TEST_F(RegistryAccess, findsNothingLongerThanItsBuffer)
{
    save("x", kRegSz, QString(2047, u'x'));
    EXPECT_EQ(get("x"), std::string(2047, 'x'));
    save("x", kRegSz, QString(2048, u'x'));
    EXPECT_EQ(get("x"), "Not Found");
}

TEST_F(RegistryAccess, dropsTheLastByteOfOtherTypes)
{
    store("e", 2, QByteArray("%windir%\0", 9));
    EXPECT_EQ(get("e"), "%windir%");
    store("e", 0, {});
    EXPECT_EQ(get("e"), "");
}

TEST_F(RegistryAccess, keepsTheOldValueWhenTheStoreCannotBeWritten)
{
    save("Vindu", kRegSz, 1);
    m_temporary.makeDirectory("registry.conf.new");
    save("Vindu", kRegSz, 2);
    EXPECT_EQ(get("Vindu"), "1");
}

TEST_F(RegistryAccess, letsNoErrorOut)
{
    RaisingRegistry registry;
    EXPECT_EQ(GetRegString(registry, kMachine, text("k"), text("x")), kNotFound);
    EXPECT_NO_THROW(SaveRegValue(registry, kMachine, text("k"), text("x"), kRegSz, 1));
    EXPECT_NO_THROW(SaveRegValue(registry, kMachine, text("k"), text("x"), kRegDword, 1));
}
