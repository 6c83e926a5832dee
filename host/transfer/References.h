// The users and accounts that rules refer to.
#pragma once

#include "host/rules/Rule.h"

#include <functional>
#include <string>
#include <string_view>

namespace kvex::host {

enum class Referred { user, account };

/// The id that a part of a rule names. A number is in its usual decimal form. Any other text stays
/// as it is, with U+FFFD for half a surrogate pair.
[[nodiscard]] std::u16string referredId(std::u16string_view part);

/// Receives an id as referredId gives it, the field that holds it, and its place in that field's
/// list, from 0.
using ReferenceVisit = std::function<void(Referred kind, const std::u16string &id,
                                          std::u16string_view field, std::size_t place)>;

/// Visits every reference of the rule. A reply or an alert without an account refers to none.
void forEachReference(const RuleValues &rule, const ReferenceVisit &visit);

} // namespace kvex::host
