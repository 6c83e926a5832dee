// The utility object of a program at a terminal, which shows no windows.
#pragma once

#include "host/suite/UtilityObject.h"

namespace kvex::host {

/// Writes messages to standard error and answers a question with "no". It does not show errors of
/// the database: the command that meets one reports it. The command only reads, so the user has no
/// changes to lose.
class TerminalUtility final : public UtilityObject {
private:
    ~TerminalUtility() final = default;

    std::int32_t showMessage(const std::u16string &text, std::int32_t style) final;
    void tellUser(const Error & /*error*/) final {}
};

} // namespace kvex::host
