// The statements that create the server's tables.
#include "host/suite/Schema.h"
#include "platform/Error.h"
#include "tests/recordset/ScriptedSession.h"
#include "tests/support/RaisedError.h"

#include <gtest/gtest.h>

#include <utility>

namespace kvex::test {
namespace {

using host::createSchema;
using Sent = std::vector<std::u16string>;

class Schema : public testing::Test {
protected:
    Schema()
        : session_({.types = {.key = u"KEY",
                              .name = u"NAMETEXT",
                              .text = u"LONGTEXT",
                              .integer = u"INT",
                              .behindTable = u""}}) {}

    [[nodiscard]] ScriptedSession &session() { return session_; }
    [[nodiscard]] Script &script() { return session_.script(); }
    void addTable(std::u16string_view name, std::vector<std::u16string> columns) {
        script().tables.emplace(name, std::move(columns));
    }

private:
    ScriptedSession session_;
};

} // namespace

TEST_F(Schema, EveryTableIsMadeWithItsKeyColumnsAndDefaults) {
    EXPECT_TRUE(createSchema(session().connection()));
    EXPECT_EQ(
        script().sent,
        (Sent{u"begin", u"CREATE TABLE SMS_SCHEMA (ID KEY, VERSION INT) []",
              u"CREATE TABLE SMS_RULES (ID KEY, Name NAMETEXT, QueryParam LONGTEXT, ActionParam "
              u"LONGTEXT, PRIORITY INT DEFAULT 0, ACTIVE INT DEFAULT 1, DELETED INT DEFAULT 0) []",
              u"CREATE TABLE SMS_USERS (ID KEY, NAME NAMETEXT, DELETED INT DEFAULT 0) []",
              u"CREATE TABLE SMS_ACCOUNT (ID KEY, NAME NAMETEXT, BIND_MODE NAMETEXT, DELETED INT "
              u"DEFAULT 0) []",
              u"CREATE TABLE SMS_SERVICE (ID KEY, NAME NAMETEXT, DELETED INT DEFAULT 0, DISABLED "
              u"INT DEFAULT 0) []",
              u"CREATE TABLE SMS_SERVICECOMMANDS (ID KEY, SERVICE_ID INT, NAME NAMETEXT) []",
              u"CREATE TABLE SMS_CONTACTS (ID KEY, USER_ID INT, NAME NAMETEXT, MOBILE NAMETEXT, "
              u"DELETED INT DEFAULT 0) []",
              u"INSERT INTO SMS_SCHEMA (VERSION) VALUES (?) [1]", u"commit"}));
}

TEST_F(Schema, ATableEndsWithTheOptionsThatTheDatabaseNeeds) {
    script().types.behindTable = u"CHARSET x";
    createSchema(session().connection());
    EXPECT_EQ(
        script().sent[3],
        u"CREATE TABLE SMS_USERS (ID KEY, NAME NAMETEXT, DELETED INT DEFAULT 0) CHARSET x []");
}

TEST_F(Schema, OnlyTheTablesThatAreMissingAreMade) {
    addTable(u"SMS_RULES",
             {u"active", u"ID", u"NAME", u"QUERYPARAM", u"ActionParam", u"priority", u"deleted"});
    addTable(u"SMS_USERS", {u"ID", u"NAME", u"DELETED", u"ADDRESS"});
    addTable(u"SMS_ACCOUNT", {u"ID", u"NAME", u"BIND_MODE", u"DELETED"});
    addTable(u"SMS_SERVICE", {u"ID", u"NAME", u"DELETED", u"DISABLED"});
    addTable(u"SMS_CONTACTS", {u"ID", u"USER_ID", u"NAME", u"MOBILE", u"DELETED"});
    EXPECT_TRUE(createSchema(session().connection()));
    EXPECT_EQ(script().sent.size(), 3U);
    EXPECT_TRUE(script().sent[1].starts_with(u"CREATE TABLE SMS_SERVICECOMMANDS "));
    script().sent.clear();
    addTable(u"SMS_SERVICECOMMANDS", {u"ID", u"SERVICE_ID", u"NAME"});
    EXPECT_FALSE(createSchema(session().connection()));
    EXPECT_EQ(script().sent, Sent{});
}

TEST_F(Schema, ATableOfAnotherProgramIsNamedWithTheColumnThatItLacks) {
    addTable(u"SMS_USERS", {u"ID", u"DELETED"});
    expectError(error_number::itemNotFound,
                u"The database's table SMS_USERS has no column NAME, so it is another program's: "
                u"nothing was changed, name another database.",
                [&] { createSchema(session().connection()); });
    EXPECT_EQ(script().sent, Sent{});
}

TEST_F(Schema, TablesThatAnotherProgramMadeMeanwhileAreLeft) {
    script().begun = [this] { addTable(u"SMS_USERS", {u"ID", u"NAME", u"DELETED"}); };
    EXPECT_TRUE(createSchema(session().connection()));
    EXPECT_EQ(script().sent.size(), 7U);
}

TEST_F(Schema, NothingIsMadeWhereAnotherProgramMadeAllMeanwhile) {
    script().begun = [this] {
        addTable(u"SMS_RULES", {u"ID", u"Name", u"QueryParam", u"ActionParam", u"PRIORITY",
                                u"ACTIVE", u"DELETED"});
        addTable(u"SMS_USERS", {u"ID", u"NAME", u"DELETED"});
        addTable(u"SMS_ACCOUNT", {u"ID", u"NAME", u"BIND_MODE", u"DELETED"});
        addTable(u"SMS_SERVICE", {u"ID", u"NAME", u"DELETED", u"DISABLED"});
        addTable(u"SMS_SERVICECOMMANDS", {u"ID", u"SERVICE_ID", u"NAME"});
        addTable(u"SMS_CONTACTS", {u"ID", u"USER_ID", u"NAME", u"MOBILE", u"DELETED"});
    };
    EXPECT_FALSE(createSchema(session().connection()));
    EXPECT_EQ(script().sent, (Sent{u"begin", u"commit"}));
}

} // namespace kvex::test
