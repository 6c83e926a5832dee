// The objects of the host suite, created through the class server.
#pragma once

#include "platform/AddressBook.h"
#include "platform/Utility.h"

#include <memory>

namespace kvex {

/// Creates an object of the suite's class. Fails with cannotCreateObject and names the class when
/// no host offers it.
[[nodiscard]] std::unique_ptr<Utility> createHostUtility();
[[nodiscard]] std::unique_ptr<AddressBook> createHostAddressBook();

} // namespace kvex
