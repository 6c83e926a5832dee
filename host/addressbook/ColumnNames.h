// The names of columns in contact tables: English, German, French, Spanish and Hindi.
#pragma once

#include <string>
#include <string_view>

namespace kvex::host {

enum class ColumnKind {
    unknown,
    fullName,
    firstName,
    middleName,
    lastName,
    organisation,
    // The kinds of numbers, from the best to the worst.
    mobile,
    phone,
    homePhone,
    workPhone,
    otherPhone,
};

/// Removes case, accents, blanks and marks from `heading`, which is UTF-8. "Téléphone (bureau)"
/// becomes "telephonebureau".
[[nodiscard]] std::u16string plainHeading(std::string_view heading);

/// The kind of the column with this plain heading. A digit at its end is ignored ("Home Phone 2").
[[nodiscard]] ColumnKind columnKind(std::u16string_view plainHeading);

/// The kind of the number with this label in UTF-8, such as "* Mobile". An unknown label gives
/// otherPhone. The label of a machine, such as a fax, gives `unknown`.
[[nodiscard]] ColumnKind labelKind(std::string_view label);

} // namespace kvex::host
