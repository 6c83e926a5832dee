// The telephone numbers of one cell of a table or one value of a vCard.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

struct NumberCell {
    /// As the cell writes them. Text without a digit is not a number.
    std::vector<std::u16string> numbers;
    /// Why they cannot be taken, in UTF-8 and without a full stop. "" when they can.
    std::string fault;
};

/// Splits `text`, which is UTF-8, at " ::: ", "|", line breaks, ";" and ",".
///
/// The signs ";" and "," can also mean a pause, and "," separates thousands. So a part next to such
/// a sign is a fault if it has fewer than five digits. A number that a spreadsheet has changed is a
/// fault as well: 9.8E+11, '98, ="98". A number loses "tel:" at its beginning.
[[nodiscard]] NumberCell readNumberCell(std::string_view text);

} // namespace kvex::host
