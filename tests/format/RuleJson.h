// Rules and texts in the form of the test vectors (docs/format.md).
#pragma once

#include "rules/RuleState.h"

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>

namespace kvex::test {

/// Each fails with an exception of the library when the JSON has another form.
[[nodiscard]] std::u16string textOf(const nlohmann::json &text);
[[nodiscard]] RuleState ruleOf(const nlohmann::json &rule);

/// A string, or its UTF-16 units when it holds half a surrogate pair.
[[nodiscard]] nlohmann::json jsonOf(std::u16string_view text);
[[nodiscard]] nlohmann::json jsonOf(const RuleState &rule);

} // namespace kvex::test
