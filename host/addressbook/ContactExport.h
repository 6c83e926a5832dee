// Writes contacts as files that readContactFile reads, in UTF-8 with lines that end in CR LF.
#pragma once

#include "host/addressbook/Contacts.h"

#include <span>
#include <string>

namespace kvex::host {

/// One card of version 4.0 for each contact, with its number as a mobile number. A contact without
/// a name gets its number as its name. Lines are folded at 75 bytes.
[[nodiscard]] std::string asVCards(std::span<const Contact> contacts);

/// CSV as RFC 4180 defines it. The first row is "Name,Mobile".
[[nodiscard]] std::string asCsv(std::span<const Contact> contacts);

} // namespace kvex::host
