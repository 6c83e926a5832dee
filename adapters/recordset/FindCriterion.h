// The criterion of a record set's find: "COLUMN = number" or "COLUMN = 'text'".
#pragma once

#include "platform/Value.h"

#include <cstdint>
#include <string_view>
#include <variant>

namespace kvex::recordset {

/// Its texts are views of the text that it was read from.
class FindCriterion {
public:
    /// A whole number is stored as an integer if it fits into one.
    using Wanted = std::variant<std::int64_t, double, std::u16string_view>;

    /// Fails with badArgument for a text of any other form. An apostrophe inside the quoted text is
    /// not allowed.
    explicit FindCriterion(std::u16string_view text);

    [[nodiscard]] std::u16string_view column() const noexcept { return column_; }
    [[nodiscard]] const Wanted &wanted() const noexcept { return wanted_; }
    /// A number matches only numbers, a text only texts.
    [[nodiscard]] bool matches(const ValueView &value) const;

private:
    std::u16string_view column_;
    Wanted wanted_;
};

} // namespace kvex::recordset
