// The class RuleUI at the component's boundary.
#pragma once

#include "platform/ComPointer.h"

namespace kvex {

/// A new object of the class, giving IRuleUI and IRuleReader. Raises what creating its session
/// raises.
[[nodiscard]] ComPointer<IUnknown> createRuleUI();

} // namespace kvex
