// The words of findings.
#pragma once

#include "host/check/Rulebook.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace kvex::host {

/// "12".
[[nodiscard]] std::u16string inWords(std::size_t number);

/// The text in quotation marks, with escapes for what could break the line or deceive a terminal. A
/// long text loses its middle.
[[nodiscard]] std::u16string inQuotes(std::u16string_view text);

/// The character in quotation marks and its code: "ж" (U+0436).
[[nodiscard]] std::u16string characterInWords(std::u16string_view character);

/// The rule's id and its name in quotation marks: rule 3 "Strangers".
[[nodiscard]] std::u16string ruleInWords(const CheckedRule &rule);

} // namespace kvex::host
