// The host suite's address book, as the component uses it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kvex {

/// Each call fails with an Error when the host's object does.
class AddressBook {
public:
    virtual ~AddressBook() = default;

    /// False when the address book cannot be used. The component passes "" and 1 for `first`
    /// and `mode`, and the utility object's second text.
    virtual bool init(const std::u16string &first, const std::u16string &connectionString,
                      std::int32_t mode, const std::u16string &secondText,
                      const std::u16string &logFile) = 0;
    /// Lets the user choose; 1 when he did. `multiple` is true from the component.
    virtual std::int32_t selectRecipients(std::int32_t userId, bool multiple) = 0;
    [[nodiscard]] virtual std::vector<std::u16string> selectedItems() = 0;
    /// The chosen mobile numbers.
    [[nodiscard]] virtual std::vector<std::u16string> selectedNumbers() = 0;
};

} // namespace kvex
