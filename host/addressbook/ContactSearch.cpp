#include "host/addressbook/ContactSearch.h"

#include "platform/Text.h"
#include "platform/Unicode.h"

#include <algorithm>

namespace kvex::host {
namespace {

using Text = std::u16string_view;

/// Stands between name and number. It sorts before every character, so a shorter name goes first.
/// No word contains it, so no word matches the end of a name and the start of a number.
constexpr char16_t boundary = u'\0';

bool separatesDigits(char16_t unit) {
    return Text(u" \u00A0-\u2010\u2011\u2012\u2013./()[]").find(unit) != Text::npos;
}

std::u16string withoutSeparators(Text number) {
    std::u16string digits(number);
    std::erase_if(digits, separatesDigits);
    return digits;
}

struct Word {
    std::u16string text;
    /// "" for a word that has only separators.
    std::u16string digits;
};

std::vector<Word> wordsOf(Text text) {
    std::vector<Word> words;
    for (const Text word : split(text, u' ')) {
        if (!word.empty()) {
            words.push_back({foldCase(word), withoutSeparators(word)});
        }
    }
    return words;
}

} // namespace

ContactSearch::ContactSearch(std::vector<Contact> contacts) {
    entries_.reserve(contacts.size());
    for (Contact &contact : contacts) {
        std::u16string text = foldCase(contact.name) + boundary + foldCase(contact.number);
        std::u16string digits = withoutSeparators(contact.number);
        entries_.push_back({std::move(contact), std::move(text), std::move(digits)});
    }
    std::ranges::stable_sort(entries_, {}, &Entry::text);
}

std::vector<std::size_t> ContactSearch::find(std::u16string_view words) const {
    const std::vector<Word> wanted = wordsOf(words);
    std::vector<std::size_t> found;
    for (std::size_t index = 0; index < entries_.size(); ++index) {
        const Entry &entry = entries_[index];
        const bool matches = std::ranges::all_of(wanted, [&](const Word &word) {
            return entry.text.find(word.text) != std::u16string::npos ||
                   (!word.digits.empty() && entry.digits.find(word.digits) != std::u16string::npos);
        });
        if (matches) {
            found.push_back(index);
        }
    }
    return found;
}

} // namespace kvex::host
