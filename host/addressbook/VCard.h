// Reads contacts from vCards of the versions 2.1, 3.0 (RFC 2426) and 4.0 (RFC 6350).
#pragma once

#include "host/addressbook/ContactFile.h"

#include <string_view>

namespace kvex::host {

/// One contact for each mobile number (TYPE=CELL) of a card or, when it has none, for each of its
/// other numbers but those of machines (fax, pager, modem) alone; each read as NumberCell.h says.
/// Of "tel:" URIs the number alone is kept, without parameters such as ";ext=". The name is FN,
/// else what N puts together, else ORG.
///
/// A card is skipped when it has another version or none, no number, a number that cannot be taken,
/// no END, a name or number that cannot be decoded, a line that is no vCard's or no UTF-8; text
/// that belongs to no card is, too. Raises std::invalid_argument for a text without any
/// BEGIN:VCARD.
[[nodiscard]] ContactFile readVCards(std::string_view text);

/// Whether `text` begins with BEGIN:VCARD.
[[nodiscard]] bool beginsAsVCard(std::string_view text);

} // namespace kvex::host
