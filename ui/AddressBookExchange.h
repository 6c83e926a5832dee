// Mobile numbers that the user chooses in the host suite's address book.
#pragma once

#include "ui/EntryList.h"

namespace kvex {

/// Lets the user choose numbers, adds them unchanged, and enables the buttons. When the address
/// book does not work or the user cancels, the log gets a report and the list stays as it was.
/// Fails as the host's objects do, and with objectNotSet when the address book returns no numbers.
/// Numbers added before a failure stay.
void addFromAddressBook(EntryList &numbers);

} // namespace kvex
