// What a record set's find looks for: "COLUMN = number" or "COLUMN = 'text'".
#pragma once

#include "platform/Value.h"

#include <cstdint>
#include <string_view>
#include <variant>

namespace kvex::recordset {

/// Views into the text that it was read from.
class FindCriterion {
public:
    /// A number with a whole value is held as an integer where one can hold it.
    using Wanted = std::variant<std::int64_t, double, std::u16string_view>;

    /// Fails with badArgument on a text of any other form, an apostrophe inside the searched
    /// text among them.
    explicit FindCriterion(std::u16string_view text);

    [[nodiscard]] std::u16string_view column() const noexcept { return column_; }
    [[nodiscard]] const Wanted &wanted() const noexcept { return wanted_; }
    /// A number matches numbers only, a text texts only.
    [[nodiscard]] bool matches(const ValueView &value) const;

private:
    std::u16string_view column_;
    Wanted wanted_;
};

} // namespace kvex::recordset
