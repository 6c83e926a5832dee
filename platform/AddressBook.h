// The host suite's address book, as the component uses it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace kvex {

/// A collection of texts. Each call fails with an Error when the host's object does.
class TextCollection {
public:
    virtual ~TextCollection() = default;

    [[nodiscard]] virtual std::int32_t count() = 0;
    /// `index` from 1 to the count.
    [[nodiscard]] virtual std::u16string item(std::int32_t index) = 0;
};

/// Each call fails with an Error when the host's object does.
class AddressBook {
public:
    virtual ~AddressBook() = default;

    /// False when the address book cannot be used. The component passes "" and 1 for `first`
    /// and `mode`, and the utility object's second text. The last two go by reference: what the
    /// host's object makes of them is what the caller holds afterwards, also when the call fails.
    virtual bool init(const std::u16string &first, const std::u16string &connectionString,
                      std::int32_t mode, std::u16string &secondText, std::u16string &logFile) = 0;
    /// Lets the user choose; 1 when he did. `multiple` is true from the component.
    virtual std::int32_t selectRecipients(std::int32_t userId, bool multiple) = 0;
    /// Null when the host's object gives none.
    [[nodiscard]] virtual std::unique_ptr<TextCollection> selectedItems() = 0;
    /// The chosen mobile numbers. Null when the host's object gives none.
    [[nodiscard]] virtual std::unique_ptr<TextCollection> selectedNumbers() = 0;
};

} // namespace kvex
