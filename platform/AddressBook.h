// The host suite's address book as the component uses it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace kvex {

/// A collection of texts. When the host's object fails, the call throws an Error.
class TextCollection {
public:
    virtual ~TextCollection() = default;

    [[nodiscard]] virtual std::int32_t count() = 0;
    /// `index` runs from 1 to count().
    [[nodiscard]] virtual std::u16string item(std::int32_t index) = 0;
};

/// When the host's object fails, the call throws an Error.
class AddressBook {
public:
    virtual ~AddressBook() = default;

    /// Returns false when the address book cannot be used. The component passes "" as `first`, 1
    /// as `mode`, and the utility object's second text. `secondText` and `logFile` are references:
    /// the host's object may change them, and its changes stay even when the call fails.
    virtual bool init(const std::u16string &first, const std::u16string &connectionString,
                      std::int32_t mode, std::u16string &secondText, std::u16string &logFile) = 0;
    /// Lets the user choose contacts, and returns 1 when the user did. The component always passes
    /// true as `multiple`.
    virtual std::int32_t selectRecipients(std::int32_t userId, bool multiple) = 0;
    /// Null when the host's object has none.
    [[nodiscard]] virtual std::unique_ptr<TextCollection> selectedItems() = 0;
    /// The chosen mobile numbers. Null when the host's object has none.
    [[nodiscard]] virtual std::unique_ptr<TextCollection> selectedNumbers() = 0;
};

} // namespace kvex
