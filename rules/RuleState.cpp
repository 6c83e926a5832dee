#include "rules/RuleState.h"

namespace kvex {

RuleState &ruleState() noexcept {
    thread_local RuleState current;
    return current;
}

void ClearRuleData() {
    static const RuleState empty;
    const std::int16_t asCommand = ruleState().intAsCommand;
    ruleState() = empty;
    ruleState().intAsCommand = asCommand;
}

} // namespace kvex
