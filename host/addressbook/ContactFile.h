// Contacts of a file: what each format's reader gives.
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
    /// In the file's order; numbers as they are written there. A contact without a name has its
    /// number for one.
    std::vector<FileContact> contacts;
    std::vector<SkippedEntry> skipped;
    /// Whether the file's encoding is a guess: Windows-1252.
    bool isGuessedEncoding = false;

    /// Adds the contact, or skips it when its name or number is longer than a server's database
    /// keeps.
    void take(std::size_t line, FileContact contact);
};

/// Reads a file in an encoding of TextEncoding.h: vCards when `isVCard` or when it begins as one,
/// else CSV. Raises std::invalid_argument with a sentence for the user when none of it can be
/// read: see TextEncoding.h, VCard.h and ContactTable.h.
[[nodiscard]] ContactFile readContactFile(std::string_view bytes, bool isVCard);

/// `text`, in UTF-8, as a name or number is kept: blanks for line breaks and other control
/// characters, none at the ends.
[[nodiscard]] std::u16string oneLine(std::string_view text);

/// A number that can be dialled has a digit.
[[nodiscard]] bool hasDigit(std::u16string_view number);

/// Whether the two are equal but for the case of ASCII letters.
[[nodiscard]] bool equalInAscii(std::string_view left, std::string_view right);

/// In ASCII.
[[nodiscard]] std::string lowerCase(std::string_view text);

} // namespace kvex::host
