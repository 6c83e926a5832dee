// The utility object of a program at a terminal, which shows no windows.
#pragma once

#include "host/suite/UtilityObject.h"

namespace kvex::host {

/// Messages go to standard error, and a question is answered "no". A database's error is told by
/// the command that meets it: it was only reading, so nothing is lost.
class TerminalUtility final : public UtilityObject {
private:
    ~TerminalUtility() final = default;

    std::int32_t showMessage(const std::u16string &text, std::int32_t style) final;
    void tellUser(const Error & /*error*/) final {}
};

} // namespace kvex::host
