// The steps from each version of the server's tables to the next.
#pragma once

#include "adapters/recordset/Driver.h"

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace kvex::host {

struct SchemaStep {
    /// The version that the tables have afterwards.
    std::int64_t version;
    /// What it does, as the user reads it behind "version N: ".
    std::u16string_view what;
    /// Changes the tables, but not their version. It must be able to run again after it was
    /// interrupted, because MariaDB stores each change of a table at once.
    std::function<void(recordset::Driver &driver)> run;
};

/// In ascending order, without a gap. The last one leads to the newest version that this program
/// knows.
[[nodiscard]] const std::vector<SchemaStep> &schemaSteps();

} // namespace kvex::host
