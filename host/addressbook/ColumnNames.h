// What the columns of contact tables are called: in English, German, French, Spanish and Hindi.
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
    // Numbers, the preferred ones first.
    mobile,
    phone,
    homePhone,
    workPhone,
    otherPhone,
};

/// `heading`, in UTF-8, without case, accents, blanks and marks: "Téléphone (bureau)" as
/// "telephonebureau".
[[nodiscard]] std::u16string plainHeading(std::string_view heading);

/// The kind of a column by its plain heading; a digit at its end does not count ("Home Phone 2").
[[nodiscard]] ColumnKind columnKind(std::u16string_view plainHeading);

/// The kind of a number by its label in UTF-8, as in "* Mobile": otherPhone where the label says
/// nothing that is known, unknown for a machine's number, such as a fax's.
[[nodiscard]] ColumnKind labelKind(std::string_view label);

} // namespace kvex::host
