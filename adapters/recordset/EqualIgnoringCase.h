// Whether two texts are equal when case is ignored: names of columns and keys, searched texts.
#pragma once

#include <string_view>

namespace kvex::recordset {

/// As the comparison of the foldings, without making them where ASCII decides.
[[nodiscard]] bool equalIgnoringCase(std::u16string_view left, std::u16string_view right);

} // namespace kvex::recordset
