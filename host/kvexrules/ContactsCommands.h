// What the commands of contacts share.
#pragma once

#include "adapters/recordset/ClientConnection.h"
#include "host/addressbook/Contacts.h"
#include "host/kvexrules/Settings.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

/// The contacts of the user whom the settings name, and those that belong to nobody. Raises a
/// Failure when they cannot be read.
[[nodiscard]] std::vector<Contact> contactsOf(const Settings &settings);

using ContactChange =
    std::function<void(recordset::ClientConnection &connection, std::int32_t user)>;

/// Runs `change` on the contacts. Raises a Failure when they cannot be opened, and one with the
/// status `refused` when the database refuses the change.
void changeContacts(const Settings &settings, const ContactChange &change);

/// "1 contact removed.", "2 contacts removed."
[[nodiscard]] std::string counted(std::size_t count, std::string_view what);

} // namespace kvex::host
