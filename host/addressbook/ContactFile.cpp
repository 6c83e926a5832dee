#include "host/addressbook/ContactFile.h"

#include "host/addressbook/ContactTable.h"
#include "host/addressbook/VCard.h"
#include "platform/Text.h"

#include <algorithm>

namespace kvex::host {

ContactFile readContactFile(std::string_view text, bool isVCard) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(byteOrderMark)) {
        text.remove_prefix(byteOrderMark.size());
    }
    return isVCard || beginsAsVCard(text) ? readVCards(text) : readContactTable(text);
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

bool isUtf8(std::string_view text) {
    return toUtf8(fromUtf8(text)) == text;
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
