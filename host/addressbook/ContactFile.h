// The contacts of a file: reading vCards and CSV.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

struct FileContact {
    std::u16string name;
    std::u16string number;
};

/// A card or row that was skipped.
struct SkippedEntry {
    /// From 1.
    std::size_t line;
    /// In UTF-8, without a full stop: "the card has no telephone number".
    std::string reason;
};

struct ContactFile {
    /// In the file's order; numbers as the file writes them. A contact without a name has its
    /// number as its name.
    std::vector<FileContact> contacts;
    std::vector<SkippedEntry> skipped;
    /// True when the encoding is a guess: Windows-1252.
    bool isGuessedEncoding = false;

    /// Adds the contact. Skips it when its name or number is too long for a server's database.
    void take(std::size_t line, FileContact contact);
};

/// Reads a file in an encoding of TextEncoding.h. It reads vCards when `isVCard` or when the file
/// begins like one, else CSV. Raises std::invalid_argument, with a sentence for the user, when
/// nothing can be read.
[[nodiscard]] ContactFile readContactFile(std::string_view bytes, bool isVCard);

/// Reads vCards of the versions 2.1, 3.0 (RFC 2426) and 4.0 (RFC 6350).
///
/// A card gives one contact for each mobile number (TYPE=CELL). Without one, it gives a contact
/// for each other number, except those of a machine alone (fax, pager, modem). NumberCell.h says
/// how a number is read. A "tel:" URI loses its parameters, such as ";ext=". The name is FN, else
/// the parts of N, else ORG.
///
/// A card is skipped when it has
/// - no version, or one that is not listed above,
/// - no number, or one that cannot be taken,
/// - no END,
/// - a name or number that cannot be decoded,
/// - a line that is not a vCard's, or not UTF-8.
///
/// Text outside of cards is skipped, too. Raises std::invalid_argument when there is no
/// BEGIN:VCARD.
[[nodiscard]] ContactFile readVCards(std::string_view text);

/// True when `text` begins with BEGIN:VCARD.
[[nodiscard]] bool beginsAsVCard(std::string_view text);

/// Reads CSV (RFC 4180) whose first row names the columns.
///
/// It knows the columns of ColumnNames.h, and "Phone 1 - Value" with "Phone 1 - Type" or
/// "Phone 1 - Label"; it ignores all others. A line such as "sep=;" before the first row names the
/// separator. Without it the separator is ",", ";" or a tab, as in the first row.
///
/// A row gives one contact for each number of its best kind. From best to worst the kinds are:
/// mobile, not specified, home, work, other. NumberCell.h says how a number is read. The name is
/// the full name, else first, middle and last name together, else the organisation.
///
/// A row is skipped when it has
/// - no number, or one that cannot be taken,
/// - more fields than the first row,
/// - quotation marks that are not closed,
/// - bytes that are not UTF-8.
///
/// Raises std::invalid_argument when the first row names no number, or no row follows it.
[[nodiscard]] ContactFile readContactTable(std::string_view text);

/// `text`, in UTF-8, as a name or number is stored. Line breaks and other control characters
/// become blanks, and blanks at the ends are removed.
[[nodiscard]] std::u16string oneLine(std::string_view text);

/// True when the number has a digit, so that it can be dialled.
[[nodiscard]] bool hasDigit(std::u16string_view number);

/// True when the two differ at most in the case of ASCII letters.
[[nodiscard]] bool equalInAscii(std::string_view left, std::string_view right);

/// Changes ASCII letters alone.
[[nodiscard]] std::string lowerCase(std::string_view text);

} // namespace kvex::host
