// Reads contacts from CSV (RFC 4180): a first row names the columns.
#pragma once

#include "host/addressbook/ContactFile.h"

#include <string_view>

namespace kvex::host {

/// Columns are named without regard to case, blanks and marks: the name by "name", "full name" or
/// "display name", else by "first name" and "last name" (also "given", "family", "surname"); the
/// number by "mobile" or "cell", else by "phone", "telephone", "number" and the like. Of several
/// that a row has, mobiles go first. Other columns say nothing. Fields are separated by ",", ";"
/// or tabs, as the first row is.
///
/// A row is skipped when it has no number, more fields than the first row, quotation marks that
/// are not closed, or no UTF-8. Raises std::invalid_argument when the first row names no number.
[[nodiscard]] ContactFile readContactTable(std::string_view text);

} // namespace kvex::host
