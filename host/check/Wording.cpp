#include "host/check/Wording.h"

#include "platform/Text.h"
#include "platform/Utf16.h"
#include "platform/VisibleText.h"

#include <array>
#include <cstdint>
#include <cstdio>

namespace kvex::host {

std::u16string inWords(std::size_t number) {
    return toText(static_cast<std::int64_t>(number));
}

std::u16string inQuotes(std::u16string_view text) {
    constexpr std::size_t longest = 60;
    return quoted(visible(text), longest);
}

std::u16string characterInWords(std::u16string_view character) {
    std::size_t at = 0;
    std::array<char, 16> code{};
    std::snprintf(code.data(), code.size(), " (U+%04X)",
                  static_cast<unsigned>(nextCharacter(character, at)));
    return inQuotes(character) + fromUtf8(code.data());
}

std::u16string ruleInWords(const CheckedRule &rule) {
    return u"rule " + visible(rule.row.id) + u" " + inQuotes(rule.row.name);
}

} // namespace kvex::host
