#include "rules/RuleState.h"

namespace kvex {

RuleState &ruleState() noexcept {
    thread_local RuleState current;
    return current;
}

void ClearRuleData() {
    RuleState empty;
    empty.intAsCommand = ruleState().intAsCommand;
    ruleState() = empty;
}

} // namespace kvex
