// The suite that every kind of database passes: RecordsetConformance.
#pragma once

#include "adapters/recordset/ClientConnection.h"
#include "adapters/recordset/ClientRecordset.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "tests/databases/DatabaseFixture.h"
#include "tests/support/RaisedError.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace kvex::test {

/// A test for each kind of database. It starts with an open connection and empty tables.
class RecordsetConformance : public testing::TestWithParam<DatabaseKind> {
protected:
    using Deviation = DatabaseFixture::Deviation;

    RecordsetConformance();

    [[nodiscard]] DatabaseFixture &database() { return *database_; }
    [[nodiscard]] Connection &connection() { return *connection_; }
    [[nodiscard]] std::unique_ptr<Connection> closedConnection() const;
    [[nodiscard]] std::unique_ptr<Connection> openConnection() const;

    /// A rule of that id, without parameters.
    void insertRule(int id, std::u16string_view name);
    /// The rules by id, to be written.
    [[nodiscard]] std::unique_ptr<Recordset> openRules();
    [[nodiscard]] std::unique_ptr<Recordset> openRules(Connection &connection);
    [[nodiscard]] std::unique_ptr<Recordset> openQuery(std::u16string_view query);
    [[nodiscard]] std::u16string storedName(int id);
    [[nodiscard]] std::u16string ruleCount();
    /// True, with the reason in the report, when the database declares that it deviates.
    [[nodiscard]] bool deviates(Deviation deviation) const;

    static std::u16string name(const Recordset &rules);
    static std::int32_t id(const Recordset &rules);
    /// The ids from the first record on.
    static std::vector<std::int32_t> ids(Recordset &rules);

private:
    std::unique_ptr<DatabaseFixture> database_;
    std::unique_ptr<Connection> connection_;
};

} // namespace kvex::test
