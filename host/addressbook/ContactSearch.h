// Contacts in the order of an address book, and the search among them.
#pragma once

#include "host/addressbook/Contacts.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

/// Orders contacts by name without regard to case, then by number. Equal ones keep their order.
class ContactSearch {
public:
    explicit ContactSearch(std::vector<Contact> contacts);

    [[nodiscard]] std::size_t size() const noexcept { return entries_.size(); }
    [[nodiscard]] const Contact &operator[](std::size_t index) const {
        return entries_[index].contact;
    }

    /// Finds the contacts that have every word of `words` in name or number, without regard to
    /// case. Without a word it finds all. Blanks separate words. Between digits, it ignores blanks,
    /// dashes, dots, slashes and brackets, both in the numbers and in the words.
    [[nodiscard]] std::vector<std::size_t> find(std::u16string_view words) const;

private:
    struct Entry {
        Contact contact;
        /// Name and number, folded: the search looks here, and the order follows it.
        std::u16string text;
        /// The number without the separators of its digits.
        std::u16string digits;
    };

    std::vector<Entry> entries_;
};

} // namespace kvex::host
