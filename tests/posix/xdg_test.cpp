#include "posix/xdg.h"

#include <QtGlobal>

#include <gtest/gtest.h>

#include <map>

namespace {

// Sets the four variables for one test; they are unset where not given.
class UserDirectoriesTest : public testing::Test {
protected:
    UserDirectoriesTest()
    {
        for (const char* name : kNames)
            m_old[name] = {qEnvironmentVariableIsSet(name), qgetenv(name)};
    }
    ~UserDirectoriesTest() override
    {
        for (const auto& [name, old] : m_old)
            old.first ? qputenv(name, old.second) : qunsetenv(name);
    }

    static UserDirectories with(const std::map<const char*, const char*>& values)
    {
        for (const char* name : kNames)
            qunsetenv(name);
        for (const auto& [name, value] : values)
            qputenv(name, value);
        return UserDirectories::fromEnvironment();
    }

private:
    static constexpr const char* kNames[] = {"HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_DATA_HOME"};
    std::map<const char*, std::pair<bool, QByteArray>> m_old;
};

} // namespace

TEST_F(UserDirectoriesTest, unsetVariablesCountAsTheirDefaults)
{
    const UserDirectories user = with({{"HOME", "/home/me/"}});
    EXPECT_EQ(user.home, "/home/me");
    EXPECT_EQ(user.config, "/home/me/.config/Songbin");
    EXPECT_EQ(user.state, "/home/me/.local/state/Songbin");
    EXPECT_EQ(user.data, "/home/me/.local/share/Songbin");
}

TEST_F(UserDirectoriesTest, setVariablesCountWhenTheyAreAbsolute)
{
    const UserDirectories user = with({{"HOME", "/home/me"},
                                       {"XDG_CONFIG_HOME", "/etc/me//"},
                                       {"XDG_STATE_HOME", "relative"},
                                       {"XDG_DATA_HOME", ""}});
    EXPECT_EQ(user.config, "/etc/me/Songbin");
    EXPECT_EQ(user.state, "/home/me/.local/state/Songbin");
    EXPECT_EQ(user.data, "/home/me/.local/share/Songbin");
}

TEST_F(UserDirectoriesTest, withoutAHomeTheAccountsIsTaken)
{
    for (const UserDirectories& user : {with({}), with({{"HOME", "relative"}})}) {
        EXPECT_TRUE(user.home.startsWith('/'));
        EXPECT_FALSE(user.home.contains("relative"));
    }
}

TEST_F(UserDirectoriesTest, theRootAsHomeDoublesNoSlash)
{
    const UserDirectories user = with({{"HOME", "/"}, {"XDG_DATA_HOME", "/"}});
    EXPECT_EQ(user.home, "/");
    EXPECT_EQ(user.config, "/.config/Songbin");
    EXPECT_EQ(user.data, "/Songbin");
}
