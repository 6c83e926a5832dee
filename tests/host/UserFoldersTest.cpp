#include "host/suite/UserFolders.h"

#include "tests/host/EnvironmentVariables.h"
#include "tests/host/TemporaryFolder.h"
#include "tests/support/PrivilegedProgram.h"

#include <gtest/gtest.h>

namespace kvex::host {
namespace {

TEST(UserFolders, AreThoseThatTheVariablesName) {
    EnvironmentVariables environment;
    environment.set("XDG_STATE_HOME", "/s");
    environment.set("XDG_DATA_HOME", "/d");
    environment.set("XDG_CONFIG_HOME", "/c");
    EXPECT_EQ(stateFolder(), "/s/kvex");
    EXPECT_EQ(dataFolder(), "/d/kvex");
    EXPECT_EQ(configurationFolder(), "/c/kvex");
}

TEST(UserFolders, AreBelowTheHomeDirectoryOtherwise) {
    EnvironmentVariables environment;
    environment.set("HOME", "/users/asha");
    for (const char *name : {"XDG_STATE_HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME"}) {
        environment.set(name, std::nullopt);
    }
    EXPECT_EQ(stateFolder(), "/users/asha/.local/state/kvex");
    EXPECT_EQ(dataFolder(), "/users/asha/.local/share/kvex");
    EXPECT_EQ(configurationFolder(), "/users/asha/.config/kvex");
}

TEST(UserFolders, AreNotChosenForAPrivilegedProgram) {
    EnvironmentVariables environment;
    environment.set("HOME", "/users/asha");
    environment.set("XDG_DATA_HOME", "/d");
    const test::PrivilegedProgram privileged;
    EXPECT_EQ(dataFolder(), "");
    EXPECT_EQ(configurationFolder(), "");
}

TEST(UserFolders, IgnoreRelativeVariables) {
    EnvironmentVariables environment;
    environment.set("HOME", "/users/asha");
    environment.set("XDG_STATE_HOME", "state");
    environment.set("XDG_DATA_HOME", "");
    EXPECT_EQ(stateFolder(), "/users/asha/.local/state/kvex");
    EXPECT_EQ(dataFolder(), "/users/asha/.local/share/kvex");
}

TEST(UserFolders, AreEmptyForAUserWithoutAHome) {
    EnvironmentVariables environment;
    environment.set("HOME", std::nullopt);
    environment.set("XDG_STATE_HOME", std::nullopt);
    EXPECT_EQ(stateFolder(), "");
}

TEST(OwnFolder, IsMadeForItsOwnerAlone) {
    const TemporaryFolder folder;
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
    EXPECT_FALSE(makeOwnFolder(folder / "a/b"));
    for (const char *name : {"a", "a/b"}) {
        EXPECT_EQ(std::filesystem::status(folder / name).permissions(),
                  std::filesystem::perms::owner_all)
            << name;
    }
    EXPECT_EQ(std::filesystem::status(folder.path()).permissions(), std::filesystem::perms::all);
}

TEST(OwnFolder, ThatIsThereStaysAsItIs) {
    const TemporaryFolder folder;
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
    EXPECT_FALSE(makeOwnFolder(folder.path()));
    EXPECT_EQ(std::filesystem::status(folder.path()).permissions(), std::filesystem::perms::all);
}

TEST(OwnFolder, MayEndInASeparator) {
    const TemporaryFolder folder;
    EXPECT_FALSE(makeOwnFolder(folder / "a/"));
    EXPECT_TRUE(std::filesystem::is_directory(folder / "a"));
}

TEST(OwnFolder, GivesTheReasonWhenItCannotBeMade) {
    const TemporaryFolder folder;
    writeFile(folder / "file", "");
    EXPECT_EQ(makeOwnFolder(folder / "file/a"), std::errc::file_exists);
    EXPECT_EQ(makeOwnFolder(folder / "file"), std::errc::file_exists);
    EXPECT_EQ(makeOwnFolder("/proc/none"), std::errc::no_such_file_or_directory);
}

} // namespace
} // namespace kvex::host
