// Describes the rules of a database through the component.
#pragma once

#include "host/kvexrules/DescriptionFormat.h"
#include "host/kvexrules/Settings.h"
#include "host/kvexrules/TerminalUtility.h"
#include "kvex/ComPointer.h"
#include "kvex/HostSuite.h"
#include "kvex/RuleUI.h"
#include "kvex/ServedObject.h"

#include <string>

namespace kvex::host {

enum class Described { whole, inPart, noRule };

class RuleReader {
public:
    /// Raises a Failure when there is no component, and when it cannot open the rules.
    explicit RuleReader(const Settings &settings);

    /// Gives the description of the rule with this id in decimal, or the part that could be read.
    Described describe(const std::string &id, Description &description) const;

    /// Says what went wrong last and where it is logged.
    [[nodiscard]] static std::string lastError();

private:
    ServedObject utility_{CLSID_Utility, *makeComObject<TerminalUtility>()};
    ComPointer<IRuleReader> reader_;
};

} // namespace kvex::host
