// Mobile numbers chosen in the host suite's address book.
#pragma once

#include "ui/EntryList.h"

namespace kvex {

/// Lets the user choose numbers, adds them as they are, and enables the buttons. An address book
/// that cannot be used, or a selection that was cancelled, is reported to the log and leaves the
/// list as it was. Fails as the host's objects do, and with objectNotSet when the address book
/// gives no numbers; those added before a failure stay.
void addFromAddressBook(EntryList &numbers);

} // namespace kvex
