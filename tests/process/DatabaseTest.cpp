// Databases that cannot be read, named in each way.
#include "tests/process/KvexrulesTest.h"

namespace kvex::process {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

class Database : public KvexrulesTest {
protected:
    /// The message of "list" for this database. "show" must give the same.
    std::string complaint(const std::string &name) const {
        std::string told = failed(2, {"list", "--database", name});
        EXPECT_EQ(failed(2, {"show", "--all", "--database", name}), told);
        EXPECT_THAT(told, HasSubstr("named by --database"));
        return told;
    }
};

TEST_F(Database, ThatIsMissingIsNotMade) {
    EXPECT_THAT(complaint(database), AllOf(HasSubstr(database.string() + " does not exist"),
                                           HasSubstr("kvexrules init")));
    EXPECT_FALSE(std::filesystem::exists(database));
}

TEST_F(Database, ThatIsEmptyHasNoTables) {
    writeFile(database, "");
    EXPECT_THAT(complaint(database),
                AllOf(HasSubstr(database.string() + " is empty"), HasSubstr("kvexrules init")));
}

TEST_F(Database, ThatIsAnotherKindOfFileIsRefused) {
    writeFile(database, std::string(5000, 'x'));
    EXPECT_THAT(complaint(database), HasSubstr(database.string() + " is no database"));
    EXPECT_EQ(readFile(database), std::string(5000, 'x'));
}

TEST_F(Database, ThatIsAFolderIsRefused) {
    EXPECT_THAT(complaint(folder.path()), HasSubstr("is a folder"));
}

TEST_F(Database, ThatIsDamagedCannotBeRead) {
    done({"init", "--sample"});
    std::string bytes = readFile(database);
    bytes.replace(4096, bytes.size() - 4096, bytes.size() - 4096, '\x55');
    writeFile(database, bytes);
    EXPECT_THAT(complaint(database), AllOf(HasSubstr("is damaged"), HasSubstr("backup")));
}

TEST_F(Database, OfAnotherProgramLacksTheTables) {
    sqlite3(database, "CREATE TABLE OTHER (A)");
    EXPECT_THAT(complaint(database),
                AllOf(HasSubstr("no such table: SMS_RULES"), HasSubstr("kvexrules init")));
}

TEST_F(Database, OfAnUnknownProviderCannotBeOpened) {
    EXPECT_THAT(complaint("Provider=Paper;Data Source=x"), HasSubstr("Provider=SQLite"));
}

TEST_F(Database, MayNotBeNamedByAnUnreadableText) {
    EXPECT_THAT(complaint("Provider=SQLite;rules.db"),
                HasSubstr("connection string cannot be read"));
}

TEST_F(Database, NeverHasItsPasswordShown) {
    EXPECT_THAT(complaint("Driver={None};UID=app;PWD=s3cret"), Not(HasSubstr("s3cret")));
    EXPECT_THAT(complaint("Driver={None};PWD={s3;cret"), Not(HasSubstr("cret")));
}

TEST_F(Database, NeverHasItsPasswordShownWhenItsOptionWasForgotten) {
    EXPECT_THAT(failed(2, {"DSN=sms;PWD=s3cret"}),
                AllOf(HasSubstr("no command \"DSN=…\". See"), Not(HasSubstr("cret"))));
    EXPECT_THAT(failed(2, {"list", "DSN=sms;PWD=s3cret"}),
                AllOf(HasSubstr("does not take \"DSN=…\". See"), Not(HasSubstr("cret"))));
}

TEST_F(Database, NeverHasItsPasswordListedWithTheProcess) {
    // The contacts come through a pipe. The program waits for it after it has read its arguments.
    const Outcome outcome = run(
        // The limit only ends a hang.
        "/usr/bin/timeout",
        {"60", "/bin/sh", "-c",
         R"(mkfifo contacts.csv; "$0" contacts import contacts.csv --database "$1" & exec 3>contacts.csv; tr '\0' ' ' < /proc/$!/cmdline; exec 3>&-; wait)",
         program.string(), "Provider=SQLite;Data Source=none.db;Password={s3;cret};UID=app"},
        environment, folder.path());
    EXPECT_THAT(outcome.output,
                AllOf(HasSubstr("--database Provider=SQLite;Data Source=none.db;Password=***;"
                                "UID=app"),
                      Not(HasSubstr("cret"))));
}

TEST_F(Database, MayNotBeNamedByAUrl) {
    const std::string told = complaint("postgresql://app:s3cret@db:5433/sms");
    EXPECT_EQ(told, "kvexrules: The database was named by --database. \"postgresql://…\" is a URL, "
                    "which kvexrules does not take. Use this connection string: Driver={PostgreSQL "
                    "Unicode};Server=db;Port=5433;Database=sms;UID=app;PWD=***\n");
    EXPECT_THAT(failed(2, {"postgresql://app:s3cret@db/sms"}), Not(HasSubstr("cret")));
}

TEST_F(Database, IsNamedByAConnectionStringToo) {
    done({"init"});
    EXPECT_EQ(done({"list", "--database", "Provider=SQLite;Data Source=" + database.string()}), "");
}

TEST_F(Database, OfTheUserIsMissingAtFirst) {
    environment.erase("KVEX_DATABASE");
    EXPECT_THAT(failed(2, {"list"}),
                AllOf(HasSubstr((folder / "home/.local/share/kvex/rules.db").string()),
                      HasSubstr("kvexrules init"), HasSubstr("your own")));
}

TEST_F(Database, OfTheUserIsMadeWithItsFolder) {
    environment.erase("KVEX_DATABASE");
    environment["XDG_DATA_HOME"] = (folder / "data").string();
    EXPECT_EQ(done({"init"}), "ready: " + (folder / "data/kvex/rules.db").string() + "\n");
    EXPECT_EQ(done({"list"}), "");
}

TEST_F(Database, MustBeNamedByAUserWithoutAHome) {
    environment.clear();
    EXPECT_THAT(failed(2, {"list"}), AllOf(HasSubstr("no home"), HasSubstr("--database")));
}

} // namespace
} // namespace kvex::process
