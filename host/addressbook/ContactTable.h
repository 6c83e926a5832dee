// Reads contacts from CSV (RFC 4180): a first row names the columns.
#pragma once

#include "host/addressbook/ContactFile.h"

#include <string_view>

namespace kvex::host {

/// The columns are those of ColumnNames.h, and "Phone 1 - Value" with "Phone 1 - Type" or
/// "Phone 1 - Label"; others say nothing. Fields are separated by what a line "sep=;" before the
/// first row names, else by ",", ";" or tabs, as the first row is.
///
/// A row gives one contact for each number of the best kind that it has, read as NumberCell.h
/// says: mobile, then not specified, home, work and other. The name is the full name, else what
/// first, middle and last name give, else the organisation.
///
/// A row is skipped when it has no number, a number that cannot be taken, more fields than the
/// first row, quotation marks that are not closed, or bytes that are no UTF-8. Raises
/// std::invalid_argument when the first row names no number, and when no row follows it.
[[nodiscard]] ContactFile readContactTable(std::string_view text);

} // namespace kvex::host
