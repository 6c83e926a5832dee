// The host suite's objects, reached through the class server.
#pragma once

#include "platform/AddressBook.h"
#include "platform/Utility.h"

#include <memory>

namespace kvex {

/// A new object of the suite's class; cannotCreateObject, naming the class, when nobody offers it.
[[nodiscard]] std::unique_ptr<Utility> createHostUtility();
[[nodiscard]] std::unique_ptr<AddressBook> createHostAddressBook();

} // namespace kvex
