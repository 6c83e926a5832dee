// A stored rule, with what the component makes of it.
#pragma once

#include "host/rules/Rule.h"

namespace kvex::host {

struct ReadRule {
    StoredRule row;
    RuleRead read;
    /// What the editor would store for the values that were read.
    RuleWritten written;
};

} // namespace kvex::host
