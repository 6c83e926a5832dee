// How a connection picks its provider and passes credentials on.
#include "adapters/recordset/ClientConnection.h"
#include "adapters/recordset/ClientRecordset.h"
#include "platform/Error.h"
#include "tests/support/RaisedError.h"

#include <gtest/gtest.h>

#include <string>

namespace kvex::test {
namespace {

using recordset::ClientConnection;
using recordset::ConnectionString;
using recordset::Driver;
using recordset::Provider;

/// A driver without a database: every call does nothing.
class EmptyDriver final : public Driver {
public:
    void query(const recordset::Statement & /*statement*/, recordset::RowSink & /*sink*/) override {
    }
    std::int64_t execute(const recordset::Statement & /*statement*/) override { return 0; }
    std::vector<Value> insert(std::u16string_view /*table*/,
                              const std::vector<recordset::Assignment> & /*values*/,
                              const std::vector<std::u16string_view> & /*keyColumns*/) override {
        return {};
    }
    [[nodiscard]] std::u16string stillHolds(std::u16string_view /*column*/,
                                            const ValueView & /*read*/) const override {
        return {};
    }
    [[nodiscard]] recordset::ColumnTypes columnTypes() const override { return {}; }
    [[nodiscard]] std::vector<std::u16string> columnsOf(std::u16string_view /*table*/) override {
        return {};
    }
    void begin() override {}
    void commit() override {}
    void rollback() noexcept override {}
};

std::size_t connectedEntries;
std::u16string connectedUser;
std::u16string connectedPassword;

std::unique_ptr<Driver> connectRecording(const ConnectionString &text) {
    connectedEntries = text.entries().size();
    connectedUser = text.value(u"UID");
    connectedPassword = text.value(u"PWD");
    return std::make_unique<EmptyDriver>();
}

std::unique_ptr<Driver> refuseConnection(const ConnectionString & /*text*/) {
    throw Error(-2147217843, u"No.");
}

Provider named(std::u16string_view form, bool (*accepts)(const ConnectionString &)) {
    return {form, accepts, &connectRecording};
}

bool isServer(const ConnectionString &text) {
    return text.has(u"DSN");
}
bool isAnything(const ConnectionString & /*text*/) {
    return true;
}
bool isNothing(const ConnectionString & /*text*/) {
    return false;
}

/// A connection of another class.
class ForeignConnection final : public Connection {
public:
    void open(std::u16string_view /*connectionString*/, std::u16string_view /*userId*/,
              std::u16string_view /*password*/, std::int32_t /*options*/) override {}
    [[nodiscard]] ObjectState state() const override { return ObjectState::open; }
    void close() override {}
    void beginTransaction() override {}
    void commitTransaction() override {}
    void rollbackTransaction() noexcept override {}
};

} // namespace

TEST(Connection, TheFirstProviderThatAcceptsOpens) {
    ClientConnection client({named(u"none", &isNothing),
                             named(u"server", &isServer),
                             {u"", &isAnything, &refuseConnection}});
    Connection &connection = client;
    connection.open(u"DSN=rules");
    EXPECT_EQ(connection.state(), ObjectState::open);
}

TEST(Connection, AProvidersRefusalLeavesItClosed) {
    ClientConnection client({{u"", &isAnything, &refuseConnection}});
    Connection &connection = client;
    EXPECT_EQ(errorNumber([&] { connection.open(u"x"); }), -2147217843);
    EXPECT_EQ(connection.state(), ObjectState::closed);
}

TEST(Connection, AnUnknownStringFailsWithTheKnownFormsAndWithoutItsPassword) {
    ClientConnection client({named(u"FORM ONE", &isNothing), named(u"FORM TWO", &isNothing)});
    Connection &connection = client;
    for (const std::u16string_view text :
         {u"Driver={Some Server};Server=h;UID=u;PWD=hidden", u"DSN=rules;PWD=hidden",
          u"Provider=MSDASQL;DSN=rules;Password=hidden", u"Provider=Unheard;PWD=hidden"}) {
        expectError(error_number::badArgument,
                    u"The connection string names no database that this program can open. Its "
                    u"forms are: FORM ONE, or FORM TWO.",
                    [&] { connection.open(text); });
    }
}

TEST(Connection, UserAndPasswordApplyWhereTheStringHasNone) {
    ClientConnection client({named(u"", &isAnything)});
    Connection &connection = client;
    connection.open(u"DSN=rules", u"user", u"word");
    EXPECT_EQ(connectedUser, u"user");
    EXPECT_EQ(connectedPassword, u"word");
    connection.close();
    connection.open(u"DSN=rules;UID=own;PWD=", u"user", u"word");
    EXPECT_EQ(connectedUser, u"own");
    EXPECT_EQ(connectedPassword, u"");
    connection.close();
    connection.open(u"DSN=rules;User ID=own;Password=key", u"user", u"word");
    EXPECT_EQ(connectedUser, u"");
    EXPECT_EQ(connectedPassword, u"");
    connection.close();
    connection.open(u"DSN=rules", u"user");
    EXPECT_EQ(connectedUser, u"user");
    EXPECT_EQ(connectedEntries, 2U);
    connection.close();
    connection.open(u"DSN=rules", u"", u"word");
    EXPECT_EQ(connectedPassword, u"word");
    EXPECT_EQ(connectedEntries, 2U);
    connection.close();
    connection.open(u"DSN=rules");
    EXPECT_EQ(connectedUser, u"");
    EXPECT_EQ(connectedEntries, 1U);
}

TEST(Connection, ARecordSetOpensOnNoOtherClassOfConnection) {
    ForeignConnection connection;
    recordset::ClientRecordset records;
    Recordset &rules = records;
    EXPECT_EQ(errorNumber([&] { rules.open(u"SELECT 1", connection); }), error_number::badArgument);
    EXPECT_EQ(rules.state(), ObjectState::closed);
}

} // namespace kvex::test
