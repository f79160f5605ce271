#include "system/settings/fileusersettings.h"

#include "tests/support/childprocess.h"
#include "tests/support/temporary.h"

#include <gtest/gtest.h>

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

class FileUserSettingsTest : public testing::Test {
protected:
    std::string get(const char* application, const char* section, const char* key)
    {
        return m_settings.get(text(application), text(section), text(key), text("(default)")).toStdString();
    }
    void save(const char* application, const char* section, const char* key, const char* value)
    {
        FileUserSettings(m_file).save(text(application), text(section), text(key), text(value));
    }

    Temporary m_temporary;
    QByteArray m_file = m_temporary.at("config/settings.conf");
    FileUserSettings m_settings{m_file};
};

} // namespace

TEST_F(FileUserSettingsTest, givesTheDefaultForWhatIsMissing)
{
    EXPECT_EQ(get("Songbin", "Options", "Show Tips at Startup"), "(default)");
    EXPECT_FALSE(m_temporary.exists("config"));
}

TEST_F(FileUserSettingsTest, keepsAValueUnderItsThreeNames)
{
    save("Songbin", "Options", "Show Tips at Startup", "0");
    EXPECT_EQ(get("SONGBIN", "options", "show tips at startup"), "0");
    EXPECT_EQ(get("other", "Options", "Show Tips at Startup"), "(default)");
    EXPECT_EQ(get("Songbin", "Other", "Show Tips at Startup"), "(default)");
    EXPECT_EQ(get("Songbin", "Options", "Show Tips"), "(default)");
    EXPECT_EQ(m_temporary.read("config/settings.conf").toStdString(),
              "[Songbin/Options]\nShow Tips at Startup=0\n");
}

TEST_F(FileUserSettingsTest, tellsAnEmptyValueFromAMissingOne)
{
    save("Songbin", "Options", "x", "");
    EXPECT_EQ(get("Songbin", "Options", "x"), "");
}

TEST_F(FileUserSettingsTest, seesWhatAnotherProcessSaves)
{
    save("Songbin", "Options", "x", "1");
    EXPECT_EQ(get("Songbin", "Options", "x"), "1");
    saidByChild([&]() -> QByteArray {
        save("Songbin", "Options", "x", "2");
        return {};
    });
    EXPECT_EQ(get("Songbin", "Options", "x"), "2");
}

TEST_F(FileUserSettingsTest, whatWasNotReadIsNotSaved)
{
    m_temporary.makeDirectory("config/settings.conf");
    EXPECT_EQ(get("Songbin", "Options", "x"), "(default)");
    EXPECT_FALSE(m_settings.wasRead(text("songbin"), text("options"), text("X")));
    EXPECT_TRUE(m_settings.wasRead(text("Songbin"), text("Options"), text("y")));
    rmdir(m_temporary.at("config/settings.conf").constData());
    m_temporary.write("config/settings.conf", "[Songbin/Options]\nx=mine\n");
    EXPECT_FALSE(m_settings.save(text("Songbin"), text("Options"), text("x"), text("(default)")));
    EXPECT_TRUE(m_settings.save(text("Songbin"), text("Options"), text("y"), text("1")));
    EXPECT_EQ(get("Songbin", "Options", "x"), "mine");
    EXPECT_TRUE(m_settings.wasRead(text("Songbin"), text("Options"), text("x")));
}

TEST_F(FileUserSettingsTest, aFailureKeepsTheOldValue)
{
    save("Songbin", "Options", "x", "1");
    m_temporary.makeDirectory("config/settings.conf.new"); // where the new content would be written
    EXPECT_FALSE(m_settings.save(text("Songbin"), text("Options"), text("x"), text("2")));
    EXPECT_EQ(get("Songbin", "Options", "x"), "1");
}
