// The reports of played messages, in UTF-8. docs/matching.md describes them.
#pragma once

#include "host/matching/Outcome.h"
#include "host/matching/Tally.h"

#include <string>

namespace kvex::host {

[[nodiscard]] std::string asText(const Outcome &outcome);
[[nodiscard]] std::string asText(const Tally &tally);

/// With `onlyAscii` the document escapes all other characters, some of which deceive a terminal.
[[nodiscard]] std::string asJson(const Outcome &outcome, bool onlyAscii = false);
[[nodiscard]] std::string asJson(const Tally &tally, bool onlyAscii = false);

} // namespace kvex::host
