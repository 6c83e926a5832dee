// Brings the server's tables to the version that this program knows.
#pragma once

#include "host/suite/SchemaSteps.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace kvex::host {

enum class SchemaAge {
    /// One of the six tables is missing.
    incomplete,
    /// The tables have no version, and their columns are not those that this program makes.
    madeByOthers,
    /// Also tables without a version that this program made before it knew versions: version 0.
    older,
    current,
    newer,
};

struct SchemaState {
    SchemaAge age = SchemaAge::incomplete;
    /// 0 for tables without a version.
    std::int64_t version = 0;
};

/// The state of the tables for a program that knows these steps. Fails as Driver::columnsOf does.
[[nodiscard]] SchemaState schemaState(recordset::Driver &driver,
                                      std::span<const SchemaStep> steps = schemaSteps());

/// What an upgrade of these tables would do, one sentence for each step: "Version 1: ...".
[[nodiscard]] std::vector<std::u16string>
plannedSteps(const SchemaState &state, std::span<const SchemaStep> steps = schemaSteps());

/// Upgrades older tables in one transaction, in which no other program can write them. Calls
/// `backUp` before the first change. Returns the state before it; when the tables were not older,
/// nothing was changed and `backUp` was not called.
///
/// Fails as the driver and `backUp` do. After a failure the database is as it was. MariaDB is the
/// exception, because it stores each change of a table at once. There the version stays the old
/// one, and a second call runs all steps again.
SchemaState upgradeSchema(recordset::Driver &driver, const std::function<void()> &backUp,
                          std::span<const SchemaStep> steps = schemaSteps());

} // namespace kvex::host
