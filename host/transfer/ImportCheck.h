// Whether a document fits a database.
#pragma once

#include "host/transfer/ImportPlan.h"

namespace kvex::host {

/// Adds a problem for
/// - each user and account that the database does not have, or has under another name,
/// - each reference to a user or account that neither the document nor the database knows,
/// - each added rule whose name a rule has that the document does not hold,
/// - each rule without its strings that the editor would refuse.
///
/// A rule with its strings is restored as it was exported, even when the editor would refuse it.
/// Fails as RuleStrings does.
void checkImport(const ImportPlan &plan, const RuleDocument &document, const RuleTables &tables,
                 const RuleStrings &strings, Problems &problems);

} // namespace kvex::host
