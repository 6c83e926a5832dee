#include "host/kvexrules/Settings.h"

#include "host/kvexrules/Commands.h"
#include "host/kvexrules/Failure.h"
#include "tests/host/EnvironmentVariables.h"
#include "tests/host/TemporaryFolder.h"
#include "tests/support/PrivilegedProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kvex::host {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

std::string refusal(std::string_view text) {
    try {
        static_cast<void>(parseConfiguration(text, "/etc/a.conf"));
        ADD_FAILURE() << "no Failure was raised for " << text;
        return {};
    } catch (const Failure &failure) {
        EXPECT_EQ(failure.status(), exit_status::unusable);
        return failure.what();
    }
}

TEST(Configuration, HoldsItsThreeKeys) {
    const Configuration read =
        parseConfiguration("database = /srv/a.db\nuser=7\n  log  =  /var/a b.log  \n", "a");
    EXPECT_EQ(read.database, "/srv/a.db");
    EXPECT_EQ(read.user, "7");
    EXPECT_EQ(read.log, "/var/a b.log");
}

TEST(Configuration, KeepsSignsAndHashesOfAValue) {
    EXPECT_EQ(parseConfiguration("database = DSN=sms;PWD=a#b", "a").database, "DSN=sms;PWD=a#b");
}

TEST(Configuration, RepeatsNothingThatMayBePartOfAPassword) {
    EXPECT_THAT(refusal("s3cret}\n"), Not(HasSubstr("s3cret")));
    EXPECT_THAT(refusal("databse = DSN=sms;PWD=s3cret"), Not(HasSubstr("s3cret")));
}

TEST(Configuration, SkipsCommentsAndBlankLines) {
    const Configuration read = parseConfiguration("# user = 1\n\n \t\r\n  # x\nuser = 2\r\n", "a");
    EXPECT_EQ(read.user, "2");
    EXPECT_FALSE(read.database.has_value());
}

TEST(Configuration, MayBeEmpty) {
    const Configuration read = parseConfiguration("", "a");
    EXPECT_FALSE(read.database.has_value());
    EXPECT_FALSE(read.user.has_value());
    EXPECT_FALSE(read.log.has_value());
}

TEST(Configuration, NamesTheLineThatItCannotRead) {
    EXPECT_THAT(refusal("user = 1\n\nnonsense\n"), StartsWith("/etc/a.conf:3: this is no"));
    EXPECT_THAT(refusal("usr = 1"), StartsWith("/etc/a.conf:1: unknown setting \"usr\""));
    EXPECT_THAT(refusal("= 1"), StartsWith("/etc/a.conf:1: unknown setting \"\""));
    EXPECT_THAT(refusal("user = 1\nuser = 1"), StartsWith("/etc/a.conf:2: user is set a second"));
    EXPECT_THAT(refusal("# c\ndatabase ="), StartsWith("/etc/a.conf:2: database has no value"));
}

TEST(Configuration, SaysWhatIsWrongAndWhatToDo) {
    EXPECT_EQ(refusal("nonsense"), "/etc/a.conf:1: this is not a setting. Write: key = value");
    EXPECT_EQ(refusal("user ="),
              "/etc/a.conf:1: user has no value. Give it one or remove the line.");
    EXPECT_EQ(refusal("log = a\nlog = b"),
              "/etc/a.conf:2: log is set a second time. Remove one of the two lines.");
}

class Settings : public testing::Test {
protected:
    void SetUp() override {
        environment.set("XDG_CONFIG_HOME", (folder / "config").string());
        environment.set("XDG_DATA_HOME", (folder / "data").string());
        environment.set("KVEX_DATABASE", std::nullopt);
    }

    using Given = std::map<std::string, std::string, std::less<>>;

    kvex::host::Settings chosen(Given given = {}) {
        return settingsFor({commands().front(), std::move(given), {}});
    }
    void configure(std::string_view text) {
        writeFile(folder / "config/kvex/kvexrules.conf", text);
    }
    std::string failure(Given given = {}) {
        try {
            const kvex::host::Settings settings = chosen(std::move(given));
            ADD_FAILURE() << "no Failure was raised; the database is " << settings.database;
            return {};
        } catch (const Failure &failed) {
            EXPECT_EQ(failed.status(), exit_status::unusable);
            return failed.what();
        }
    }

    TemporaryFolder folder;
    EnvironmentVariables environment;
};

TEST_F(Settings, NameTheUsersOwnDatabaseByDefault) {
    const kvex::host::Settings settings = chosen();
    EXPECT_EQ(settings.database, (folder / "data/kvex/rules.db").string());
    EXPECT_TRUE(settings.isOwnDatabase);
    EXPECT_EQ(settings.user, "1");
    EXPECT_EQ(settings.log, "");
}

TEST_F(Settings, PreferTheConfigurationFile) {
    configure("database = a.db\nuser = 4\nlog = b.log");
    const kvex::host::Settings settings = chosen();
    EXPECT_EQ(settings.database, "a.db");
    EXPECT_THAT(settings.databaseOrigin, HasSubstr("kvexrules.conf"));
    EXPECT_FALSE(settings.isOwnDatabase);
    EXPECT_EQ(settings.user, "4");
    EXPECT_EQ(settings.log, std::filesystem::current_path() / "b.log");
}

TEST_F(Settings, PreferTheEnvironmentToTheConfigurationFile) {
    configure("database = a.db");
    environment.set("KVEX_DATABASE", "e.db");
    EXPECT_EQ(chosen().database, "e.db");
    EXPECT_THAT(chosen().databaseOrigin, HasSubstr("$KVEX_DATABASE"));
}

TEST_F(Settings, OfAPrivilegedProgramAreNotInTheEnvironment) {
    configure("database = a.db");
    environment.set("KVEX_DATABASE", "e.db");
    const test::PrivilegedProgram privileged;
    EXPECT_EQ(failure(),
              "There is no home directory for a database of your own. Name one with --database.");
}

TEST_F(Settings, IgnoreAnEmptyVariable) {
    configure("database = a.db");
    environment.set("KVEX_DATABASE", "");
    EXPECT_EQ(chosen().database, "a.db");
}

TEST_F(Settings, PreferTheOptionsToEverything) {
    configure("database = a.db\nuser = 4\nlog = b.log");
    environment.set("KVEX_DATABASE", "e.db");
    const kvex::host::Settings settings =
        chosen({{"--database", "o.db"}, {"--user", "5"}, {"--log", "o.log"}});
    EXPECT_EQ(settings.database, "o.db");
    EXPECT_THAT(settings.databaseOrigin, HasSubstr("--database"));
    EXPECT_EQ(settings.user, "5");
    EXPECT_EQ(settings.log, std::filesystem::current_path() / "o.log");
}

TEST_F(Settings, TakeAServersConnectionStringAsItIs) {
    const std::string text = "Driver={PostgreSQL Unicode};Server=127.0.0.1;Port=5432;"
                             "Database=sms;UID=app;PWD={a;b}}c}";
    EXPECT_EQ(chosen({{"--database", text}}).database, text);
    environment.set("KVEX_DATABASE", text);
    EXPECT_EQ(chosen().database, text);
    environment.set("KVEX_DATABASE", std::nullopt);
    configure("database = " + text + "\n");
    EXPECT_EQ(chosen().database, text);
    EXPECT_FALSE(chosen().isOwnDatabase);
}

TEST_F(Settings, RefuseAUrlFromEverySource) {
    const std::string url = "mysql://app:s3cret@db/sms";
    const std::string advice = " \"mysql://…\" is a URL, which kvexrules does not take. Use this "
                               "connection string: Driver={MariaDB Unicode};Server=db;"
                               "Database=sms;UID=app;PWD=...";
    EXPECT_EQ(failure({{"--database", url}}), "The database was named by --database." + advice);
    environment.set("KVEX_DATABASE", url);
    EXPECT_EQ(failure(), "The database was named by $KVEX_DATABASE." + advice);
    environment.set("KVEX_DATABASE", std::nullopt);
    configure("database = " + url);
    EXPECT_EQ(failure(), "The database was named in " +
                             (folder / "config/kvex/kvexrules.conf").string() + "." + advice);
}

TEST_F(Settings, RefuseAUserIdThatIsNoNumber) {
    EXPECT_THAT(
        failure({{"--user", "asha"}}),
        testing::StrEq("\"asha\" is not the id of a user. An id is a number, as in: --user 1"));
    EXPECT_THAT(failure({{"--user", "99999999999"}}), HasSubstr("is not the id of a user"));
    configure("user = asha");
    EXPECT_THAT(failure(), HasSubstr("\"asha\" is not the id of a user"));
}

TEST_F(Settings, RefuseAConfigurationThatIsNoFile) {
    const std::filesystem::path file = folder / "config/kvex/kvexrules.conf";
    std::filesystem::create_directories(file);
    EXPECT_EQ(failure(), "The configuration file " + file.string() +
                             " cannot be read. Make it a readable file or remove it.");
}

TEST_F(Settings, RefuseAConfigurationThatCannotBeReached) {
    const std::filesystem::path file = folder / "config/kvex/kvexrules.conf";
    std::filesystem::create_directories(file.parent_path());
    std::filesystem::create_symlink(file, file);
    EXPECT_EQ(failure(), "The configuration file " + file.string() +
                             " cannot be reached (Too many levels of symbolic links). Make it "
                             "readable or remove it.");
}

TEST_F(Settings, NeedANamedDatabaseWithoutAHome) {
    for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"}) {
        environment.set(name, std::nullopt);
    }
    EXPECT_EQ(failure(), "There is no home directory for a database of your own. Name one with "
                         "--database.");
    EXPECT_EQ(chosen({{"--database", "a.db"}}).database, "a.db");
}

TEST_F(Settings, SayWhereTheDatabasesNameCameFrom) {
    EXPECT_EQ(chosen().databaseOrigin, "The database is your own, because no other was named.");
    configure("database = a.db");
    EXPECT_EQ(chosen().databaseOrigin, "The database was named in " +
                                           (folder / "config/kvex/kvexrules.conf").string() + ".");
    environment.set("KVEX_DATABASE", "e.db");
    EXPECT_EQ(chosen().databaseOrigin, "The database was named by $KVEX_DATABASE.");
    EXPECT_EQ(chosen({{"--database", "o.db"}}).databaseOrigin,
              "The database was named by --database.");
}

TEST_F(Settings, RefuseAChosenLogThatCannotBeWritten) {
    writeFile(folder / "file", "");
    const kvex::host::Settings settings = chosen({{"--log", (folder / "file/a.log").string()}});
    try {
        requireWritableLog(settings);
        ADD_FAILURE() << "no Failure was raised";
    } catch (const Failure &failed) {
        EXPECT_EQ(failed.what(), "The log " + (folder / "file/a.log").string() +
                                     " cannot be written (Not a directory). Choose another with "
                                     "--log.");
    }
    EXPECT_NO_THROW(requireWritableLog(chosen()));
    EXPECT_NO_THROW(requireWritableLog(chosen({{"--log", (folder / "a.log").string()}})));
}

} // namespace
} // namespace kvex::host
