// Creates the real objects behind the interfaces that the component uses.
#pragma once

#include "platform/AddressBook.h"
#include "platform/Database.h"
#include "platform/Utility.h"
#include "platform/controls/Toolkit.h"

#include <memory>
#include <string>

namespace kvex {

/// Each create call makes a new object. It fails with cannotCreateObject when no program offers it.
class Platform {
public:
    virtual ~Platform() = default;

    [[nodiscard]] virtual std::unique_ptr<Utility> createUtility() = 0;
    [[nodiscard]] virtual std::unique_ptr<Connection> createConnection() = 0;
    [[nodiscard]] virtual std::unique_ptr<Recordset> createRecordset() = 0;
    [[nodiscard]] virtual std::unique_ptr<AddressBook> createAddressBook() = 0;
    [[nodiscard]] virtual Toolkit &toolkit() = 0;
    /// The directory from which the component was loaded. It has no separator at its end unless it
    /// is a root. Bytes of its name that are not UTF-8 become U+FFFD.
    [[nodiscard]] virtual std::u16string componentDirectory() = 0;
};

} // namespace kvex
