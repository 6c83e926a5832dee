// What the component is composed with: everything real that stands behind an interface.
#pragma once

#include "platform/AddressBook.h"
#include "platform/Database.h"
#include "platform/Utility.h"
#include "platform/controls/Toolkit.h"

#include <memory>
#include <string>

namespace kvex {

/// Each call makes a new object, and fails with cannotCreateObject where the system has none.
class Platform {
public:
    virtual ~Platform() = default;

    [[nodiscard]] virtual std::unique_ptr<Utility> createUtility() = 0;
    [[nodiscard]] virtual std::unique_ptr<Connection> createConnection() = 0;
    [[nodiscard]] virtual std::unique_ptr<Recordset> createRecordset() = 0;
    [[nodiscard]] virtual std::unique_ptr<AddressBook> createAddressBook() = 0;
    [[nodiscard]] virtual Toolkit &toolkit() = 0;
    /// The directory from which the component was loaded, without a separator at its end unless
    /// it is a root. What is no UTF-8 in its name becomes U+FFFD.
    [[nodiscard]] virtual std::u16string componentDirectory() = 0;
};

} // namespace kvex
