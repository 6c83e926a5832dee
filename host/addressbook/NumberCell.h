// The telephone numbers of one cell of a table or one value of a vCard.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

struct NumberCell {
    /// As they are written there; none without a digit.
    std::vector<std::u16string> numbers;
    /// Why they cannot be taken, in UTF-8 and without a full stop; "" when they can.
    std::string fault;
};

/// Splits `text`, in UTF-8, at " ::: ", "|", line breaks, ";" and ",". The last two also stand
/// for a pause or between thousands: a part of fewer than five digits beside one is a fault. So is
/// what a spreadsheet made of a number, as in 9.8E+11, '98 and ="98".
[[nodiscard]] NumberCell readNumberCell(std::string_view text);

} // namespace kvex::host
