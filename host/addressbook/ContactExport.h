// Writes contacts as files that readContactFile reads, in UTF-8 with lines that end in CR LF.
#pragma once

#include "host/addressbook/Contacts.h"

#include <span>
#include <string>

namespace kvex::host {

/// A card of version 4.0 for each contact, with its number as a mobile one. A contact without a
/// name has its number for one. Lines are folded at 75 bytes.
[[nodiscard]] std::string asVCards(std::span<const Contact> contacts);

/// RFC 4180, with a first row "Name,Mobile".
[[nodiscard]] std::string asCsv(std::span<const Contact> contacts);

} // namespace kvex::host
