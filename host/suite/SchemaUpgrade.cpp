#include "host/suite/SchemaUpgrade.h"

#include "adapters/recordset/EqualIgnoringCase.h"
#include "adapters/recordset/SchemaVersion.h"
#include "host/suite/DriverTransaction.h"
#include "host/suite/Schema.h"
#include "platform/Text.h"

#include <algorithm>

namespace kvex::host {
namespace {

/// True when the table has exactly the columns that this program gives it.
bool isAsMade(const Table &table, const std::vector<std::u16string> &columns) {
    return columns.size() == table.columns.size() &&
           std::ranges::all_of(table.columns, [&](const TableColumn &column) {
               return std::ranges::any_of(columns, [&](const std::u16string &present) {
                   return recordset::equalIgnoringCase(present, column.name);
               });
           });
}

std::vector<std::u16string_view> tableNames() {
    std::vector<std::u16string_view> names;
    std::ranges::transform(serverTables(), std::back_inserter(names), &Table::name);
    return names;
}

} // namespace

SchemaState schemaState(recordset::Driver &driver, std::span<const SchemaStep> steps) {
    const std::optional<std::int64_t> version = recordset::schemaVersion(driver);
    const std::int64_t newest = steps.back().version;
    if (version.value_or(0) > newest) {
        return {SchemaAge::newer, *version};
    }
    bool asMade = true;
    for (const Table &table : serverTables()) {
        const std::vector<std::u16string> columns = driver.columnsOf(table.name);
        if (columns.empty()) {
            return {SchemaAge::incomplete, version.value_or(0)};
        }
        asMade = asMade && isAsMade(table, columns);
    }
    if (version) {
        return {*version == newest ? SchemaAge::current : SchemaAge::older, *version};
    }
    return {asMade ? SchemaAge::older : SchemaAge::madeByOthers, 0};
}

std::vector<std::u16string> plannedSteps(const SchemaState &state,
                                         std::span<const SchemaStep> steps) {
    std::vector<std::u16string> planned;
    for (const SchemaStep &step : steps) {
        if (step.version > state.version) {
            planned.push_back(u"Version " + toText(step.version) + u": " +
                              std::u16string(step.what) + u".");
        }
    }
    return planned;
}

SchemaState upgradeSchema(recordset::Driver &driver, const std::function<void()> &backUp,
                          std::span<const SchemaStep> steps) {
    if (const SchemaState state = schemaState(driver, steps); state.age != SchemaAge::older) {
        return state;
    }
    DriverTransaction transaction(driver);
    driver.beginAlone(tableNames());
    // Another program may have upgraded them before the transaction began.
    const SchemaState state = schemaState(driver, steps);
    if (state.age != SchemaAge::older) {
        return state;
    }
    backUp();
    for (const SchemaStep &step : steps) {
        if (step.version > state.version) {
            step.run(driver);
        }
    }
    makeVersionTable(driver);
    addVersion(driver, steps.back().version);
    transaction.commit();
    return state;
}

} // namespace kvex::host
