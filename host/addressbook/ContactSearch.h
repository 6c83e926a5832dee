// Contacts in the order of an address book, and what a user looks for among them.
#pragma once

#include "host/addressbook/Contacts.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

/// Ordered by name without regard to case, then by number; equal ones as they were given.
class ContactSearch {
public:
    explicit ContactSearch(std::vector<Contact> contacts);

    [[nodiscard]] std::size_t size() const noexcept { return entries_.size(); }
    [[nodiscard]] const Contact &operator[](std::size_t index) const {
        return entries_[index].contact;
    }

    /// The contacts that every word of `words` occurs in, in name or number and without regard to
    /// case; all of them where there is no word. Blanks separate words. A word of digits also
    /// finds a number that is written with blanks, dashes, dots, slashes or brackets between its
    /// digits, and may be written so itself.
    [[nodiscard]] std::vector<std::size_t> find(std::u16string_view words) const;

private:
    struct Entry {
        Contact contact;
        /// What is searched: name and number, folded. Also the key of the order.
        std::u16string text;
        /// The number without what separates its digits.
        std::u16string digits;
    };

    std::vector<Entry> entries_;
};

} // namespace kvex::host
