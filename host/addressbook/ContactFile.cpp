#include "host/addressbook/ContactFile.h"

#include "host/addressbook/TextEncoding.h"
#include "platform/Text.h"

#include <algorithm>

namespace kvex::host {

ContactFile readContactFile(std::string_view bytes, bool isVCard) {
    const DecodedText decoded = decodeText(bytes);
    ContactFile file = isVCard || beginsAsVCard(decoded.text) ? readVCards(decoded.text)
                                                              : readContactTable(decoded.text);
    file.isGuessedEncoding = decoded.isGuess;
    return file;
}

void ContactFile::take(std::size_t line, FileContact contact) {
    constexpr std::size_t longest = 255;
    if (contact.number.size() > longest) {
        skipped.push_back({line, "the number is longer than 255 characters"});
    } else if (contact.name.size() > longest) {
        skipped.push_back({line, "the name is longer than 255 characters"});
    } else {
        contacts.push_back(std::move(contact));
    }
}

std::u16string oneLine(std::string_view text) {
    std::u16string line = fromUtf8(text);
    std::erase(line, u'\r');
    std::ranges::replace_if(
        line, [](char16_t unit) { return unit < u' '; }, u' ');
    return std::u16string(trimmed(line));
}

bool hasDigit(std::u16string_view number) {
    return number.find_first_of(u"0123456789") != std::u16string_view::npos;
}

bool equalInAscii(std::string_view left, std::string_view right) {
    return lowerCase(left) == lowerCase(right);
}

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    for (char &byte : lower) {
        byte = byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
    }
    return lower;
}

} // namespace kvex::host
