// Carries out an import.
#pragma once

#include "host/transfer/ImportPlan.h"

#include <functional>

namespace kvex::host {

/// Writes the plan in one transaction: all of it, or nothing. `before` are the tables that the plan
/// was made of. Fails with rowChangedByAnother when they hold something else by now, and as the
/// writes of a record set do. After noConnection at the end nobody knows which; the error says so.
/// Calls `stepped` after each rule of the plan.
void applyImport(
    Connection &connection, const ImportPlan &plan, const RuleDocument &document,
    const RuleTables &before, const std::function<void()> &stepped = [] {});

} // namespace kvex::host
