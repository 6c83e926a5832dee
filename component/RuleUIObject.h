// The object behind the public class RuleUI.
#pragma once

#include "platform/ComPointer.h"

namespace kvex {

/// A new RuleUI: its session's objects exist and nothing is open. Raises what their creation
/// raises.
[[nodiscard]] ComPointer<IUnknown> createRuleUI();

} // namespace kvex
