// The program on servers' databases.
#include "tests/process/KvexrulesTest.h"
#include "tests/servers/MariaDbServer.h"
#include "tests/servers/PostgreSqlServer.h"

#include <cstdlib>

namespace kvex::process {
namespace {

using test::DatabaseServer;
using test::MariaDbServer;
using test::PostgreSqlServer;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

struct ServerKind {
    const char *name;
    DatabaseServer &(*server)();
    /// The statements that let the user "editor" open a database without tables.
    std::string entry;
};

DatabaseServer &postgreSql() {
    return PostgreSqlServer::shared();
}

DatabaseServer &mariaDb() {
    return MariaDbServer::shared();
}

/// Each test has a database without tables on the server.
class ServerDatabase : public KvexrulesTest, public testing::WithParamInterface<ServerKind> {
protected:
    ServerDatabase() {
        server().createDatabase(name);
        environment["KVEX_DATABASE"] = server().odbcConnectionString(name);
        // Passes on the sanitizer's options. Its leak check crashes when a driver manager has
        // unloaded a database's driver.
        if (const char *options = std::getenv("ASAN_OPTIONS")) {
            environment["ASAN_OPTIONS"] = std::string(options) + ":detect_leaks=0";
        }
    }
    ~ServerDatabase() override { server().dropDatabase(name); }

    [[nodiscard]] static DatabaseServer &server() { return GetParam().server(); }
    [[nodiscard]] static std::string valueOf(const std::string &query) {
        return server().valueOf(name, query);
    }
    /// The connection string up to the user. The program's messages show this part unchanged.
    [[nodiscard]] static std::string place() {
        const std::string whole = server().odbcConnectionString(name);
        return whole.substr(0, whole.find("UID="));
    }
    void become(const std::string &user, const std::string &password) {
        environment["KVEX_DATABASE"] = server().odbcConnectionString(name, user, password);
    }

    static constexpr const char *name = "rules";
};

TEST_P(ServerDatabase, GetsItsTablesOnce) {
    EXPECT_EQ(done({"init"}), "ready: " + place() + "UID=kvex;PWD=***\n");
    EXPECT_EQ(done({"list"}), "");
    EXPECT_THAT(failed(1, {"init"}), HasSubstr("has its tables already"));
}

TEST_P(ServerDatabase, ListsRulesOfWhichNoneStops) {
    done({"init", "--sample"});
    done({"remove", "1", "5", "--yes"});
    EXPECT_EQ(done({"list"}), "1  on   2  -      Help 🌙 at night\n"
                              "2  on   3  -      दिल्ली के संदेश\n"
                              "3  on   4  -      Strangers\n"
                              "4  on   6  -      No services\n"
                              "5  on   7  -      Everything to the system\n");
}

TEST_P(ServerDatabase, HoldsTheSampleThatAFileHolds) {
    const std::string file = database.string();
    done({"init", "--sample", "--database", file});
    done({"init", "--sample"});
    EXPECT_EQ(done({"list"}), done({"list", "--database", file}));
    EXPECT_EQ(done({"show", "--all"}), done({"show", "--all", "--database", file}));
    EXPECT_EQ(done({"contacts", "list"}), done({"contacts", "list", "--database", file}));
    const std::vector<std::string> tried{"try",    "--from", "1",          "--account", "4",
                                         "--text", "help",   "--database", file};
    EXPECT_THAT(done(tried), HasSubstr("rule 4 \"Strangers\": applies"));
    EXPECT_EQ(done({tried.begin(), tried.end() - 2}), done(tried));
}

TEST_P(ServerDatabase, IsCheckedAsAFileIs) {
    done({"init", "--sample"});
    const std::string file = database.string();
    done({"init", "--sample", "--database", file});
    for (const char *statement : {
             "UPDATE SMS_USERS SET DELETED = 1 WHERE ID = 5",
             "UPDATE SMS_ACCOUNT SET BIND_MODE = 'RECEIVER' WHERE ID = 4",
             "UPDATE SMS_RULES SET Name = NULL WHERE ID = 4",
             "UPDATE SMS_RULES SET QueryParam = '<WORD><CON><ANY>a' WHERE ID = 6",
             "UPDATE SMS_RULES SET Name = 'HELP 🌙 AT NIGHT' WHERE ID = 7",
         }) {
        server().run(name, statement);
        sqlite3(file, statement);
    }
    const Outcome onServer = kvexrules({"check"});
    EXPECT_EQ(onServer.status, 1);
    EXPECT_EQ(onServer.errors, "");
    EXPECT_THAT(onServer.output,
                AllOf(HasSubstr("[past-dates]"), HasSubstr("[unknown-user]"),
                      HasSubstr("[wrong-bind-mode]"), HasSubstr("[incomplete-row]"),
                      HasSubstr("[unclosed-tag]"), HasSubstr("[same-name]")));
    EXPECT_EQ(onServer.output, kvexrules({"check", "--database", file}).output);
    EXPECT_EQ(kvexrules({"check", "--format", "json"}).output,
              kvexrules({"check", "--format", "json", "--database", file}).output);
}

TEST_P(ServerDatabase, HoldsASampleWhoseRulesNameItsOwnRows) {
    done({"init"});
    // The ids of removed rows are not used again, so the sample gets other ids.
    server().run(name, "INSERT INTO SMS_USERS (NAME) VALUES ('gone')");
    server().run(name, "INSERT INTO SMS_ACCOUNT (NAME) VALUES ('gone')");
    server().run(name, "DELETE FROM SMS_USERS");
    server().run(name, "DELETE FROM SMS_ACCOUNT");
    done({"init", "--sample"});
    EXPECT_THAT(valueOf("SELECT ActionParam FROM SMS_RULES WHERE PRIORITY = 1"),
                AllOf(HasSubstr("<DIST>4;8</DIST>"), HasSubstr("<REPLY>Received;3</REPLY>")));
    EXPECT_EQ(valueOf("SELECT NAME FROM SMS_USERS WHERE ID = 4"), "Ravi Kumar");
    EXPECT_EQ(valueOf("SELECT USER_ID FROM SMS_CONTACTS WHERE MOBILE = '9811100011'"), "2");
    EXPECT_THAT(done({"show", "--all"}), HasSubstr("Ravi Kumar"));
}

TEST_P(ServerDatabase, KeepsItsDataWhenASampleIsRefused) {
    done({"init", "--sample"});
    const std::string before = done({"list"});
    EXPECT_THAT(failed(1, {"init", "--sample"}), HasSubstr("holds data already"));
    EXPECT_EQ(done({"list"}), before);
}

TEST_P(ServerDatabase, GivesNewRulesHigherIdsThanTheSamples) {
    done({"init", "--sample"});
    server().run(name, "DELETE FROM SMS_RULES WHERE ID = 7");
    server().run(name, "INSERT INTO SMS_RULES (Name) VALUES ('n')");
    EXPECT_EQ(valueOf("SELECT ID, PRIORITY, ACTIVE, DELETED FROM SMS_RULES WHERE Name = 'n'"),
              "8|0|1|0");
}

TEST_P(ServerDatabase, GetsATableThatIsMissing) {
    done({"init"});
    server().run(name, "DROP TABLE SMS_CONTACTS");
    done({"init"});
    EXPECT_EQ(valueOf("SELECT COUNT(*) FROM SMS_CONTACTS"), "0");
}

TEST_P(ServerDatabase, WithATableOfAnotherShapeIsRefused) {
    server().run(name, "CREATE TABLE SMS_RULES (A INTEGER)");
    EXPECT_THAT(failed(1, {"init"}), HasSubstr("SMS_RULES has no column ID"));
    EXPECT_THAT(failed(2, {"list"}), Not(HasSubstr("PWD=k")));
    server().run(name, "DROP TABLE SMS_RULES");
    done({"init"});
}

TEST_P(ServerDatabase, MustExistBeforeItsTables) {
    const std::string missing = server().odbcConnectionString("nowhere");
    const std::string password = missing.substr(missing.find("PWD=") + 4);
    EXPECT_THAT(failed(2, {"init", "--database", missing}),
                AllOf(HasSubstr("administrator"), HasSubstr("nowhere"), Not(HasSubstr(password))));
    EXPECT_THAT(failed(2, {"list", "--database", missing}),
                AllOf(HasSubstr("nowhere"), HasSubstr("has the right server, port and database"),
                      Not(HasSubstr(password))));
}

TEST_P(ServerDatabase, RefusesAWrongPasswordWithoutShowingIt) {
    become("kvex", "{wr;ong}");
    for (const char *command : {"init", "list"}) {
        EXPECT_THAT(failed(2, {command}), AllOf(HasSubstr("Correct UID and PWD"),
                                                Not(HasSubstr("ong")), Not(HasSubstr("wr;"))));
    }
}

TEST_P(ServerDatabase, GivesBackTheRulesOfAnExport) {
    done({"init", "--sample"});
    server().run(name, "INSERT INTO SMS_RULES (Name, QueryParam, ActionParam, PRIORITY, ACTIVE) "
                       "VALUES ('Unclosed', '<PEOPLE>98', '<DIST>99</DIST>', 8, 0), "
                       "(NULL, NULL, NULL, 9, 1)");
    const std::string before = done({"export"});
    const std::string file = database.string();
    done({"init", "--sample", "--database", file});
    writeFile(folder / "rules.json", before);
    done({"import", "rules.json", "--database", file});
    EXPECT_EQ(done({"export", "--database", file}), before);
    server().run(name, "DELETE FROM SMS_RULES");
    EXPECT_THAT(done({"import", "rules.json"}),
                HasSubstr("9 rules added, 0 changed, 0 removed, 0 unchanged.\n"));
    EXPECT_EQ(done({"export"}), before);
}

TEST_P(ServerDatabase, ImportsAllOrNothing) {
    done({"init", "--sample"});
    const std::string before = done({"export"});
    std::string changed = before;
    changed.replace(changed.find("Everything to the system"), 10, std::string(300, 'n'));
    changed.replace(changed.find("\"active\": false"), 15, "\"active\": true");
    writeFile(folder / "rules.json", changed);
    const Outcome outcome = kvexrules({"import", "rules.json", "--replace"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors, HasSubstr("The new record was not stored"));
    EXPECT_EQ(done({"export"}), before);
}

TEST_P(ServerDatabase, CanBeEditedByAUserWithFewRights) {
    done({"init", "--sample"});
    const std::string list = done({"list"});
    const std::string shown = done({"show", "--all"});
    server().createUser("editor", "ed1t");
    server().run(name, "GRANT SELECT, INSERT, UPDATE, DELETE ON SMS_RULES TO editor");
    for (const std::string table :
         {"SMS_USERS", "SMS_ACCOUNT", "SMS_SERVICE", "SMS_SERVICECOMMANDS", "SMS_CONTACTS"}) {
        server().run(name, "GRANT SELECT ON " + table + " TO editor");
    }
    become("editor", "ed1t");
    EXPECT_EQ(done({"list"}), list);
    EXPECT_EQ(done({"show", "--all"}), shown);
    done({"export", "7", "--file", "rules.json"});
    done({"import", "rules.json", "--replace"});
    EXPECT_EQ(done({"list"}), "1  on   7  -      Everything to the system\n");
    EXPECT_THAT(failed(1, {"init"}), HasSubstr("has its tables already"));
}

TEST_P(ServerDatabase, RefusesAUserWhoMayNotMakeTables) {
    server().createUser("editor", "ed1t");
    server().run(name, GetParam().entry);
    become("editor", "ed1t");
    EXPECT_THAT(failed(1, {"init"}), AllOf(HasSubstr("Ask the administrator"), HasSubstr("permit"),
                                           Not(HasSubstr("ed1t"))));
}

class FileThroughOdbc : public KvexrulesTest {};

TEST_F(FileThroughOdbc, IsFilledLikeAFileButNotMade) {
    const std::string file = (folder / "odbc.db").string();
    const std::string odbc = "Driver={SQLite3};Database=" + file;
    EXPECT_THAT(failed(2, {"init", "--database", odbc}), HasSubstr("cannot be reached"));
    EXPECT_FALSE(std::filesystem::exists(file));
    writeFile(file, "");
    EXPECT_EQ(done({"init", "--sample", "--database", odbc}), "ready: " + odbc + "\n");
    done({"init", "--sample"});
    EXPECT_EQ(done({"show", "--all", "--database", odbc}), done({"show", "--all"}));
    const std::string rows = "SELECT * FROM SMS_RULES; SELECT * FROM SMS_CONTACTS";
    EXPECT_EQ(sqlite3(file, rows), sqlite3(database, rows));
}

INSTANTIATE_TEST_SUITE_P(, ServerDatabase,
                         testing::Values(ServerKind{"PostgreSql", &postgreSql, ""},
                                         ServerKind{"MariaDb", &mariaDb,
                                                    "GRANT SELECT ON rules.* TO editor"}),
                         [](const auto &instance) { return std::string(instance.param.name); });

} // namespace
} // namespace kvex::process
