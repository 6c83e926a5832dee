// What must be stored after an act of the user, when nobody else disturbed it.
#pragma once

#include "tests/torture/monkey/Act.h"
#include "tests/torture/monkey/Tables.h"

#include <string>

namespace kvex::torture {

struct Outcome {
    const Tables &before;
    const Tables &now;
    /// An error was logged or left a handler.
    bool failed;
    /// The act closed its window.
    bool closed;
    /// The session began without rules, so it stores no order and may give a name twice.
    bool beganEmpty;
};

/// Says what is not stored as it must be; "" when all is. Needs an open session.
[[nodiscard]] std::string wrongOutcome(const Act &act, const Outcome &outcome);

/// Says which row of the rules window does not show what is stored; "" when all do.
[[nodiscard]] std::string wrongList(const headless::HeadlessWindow &rulesWindow,
                                    const Tables &tables);

} // namespace kvex::torture
