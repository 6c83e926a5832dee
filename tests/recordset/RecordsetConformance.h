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

    /// Inserts a rule with this id and no parameters.
    void insertRule(int id, std::u16string_view name);
    /// The rules ordered by id, open for writing.
    [[nodiscard]] std::unique_ptr<Recordset> openRules();
    [[nodiscard]] std::unique_ptr<Recordset> openRules(Connection &connection);
    [[nodiscard]] std::unique_ptr<Recordset> openQuery(std::u16string_view query);
    [[nodiscard]] std::u16string storedName(int id);
    [[nodiscard]] std::u16string ruleCount();
    /// True when the database declares this deviation. The reason goes into the report.
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
