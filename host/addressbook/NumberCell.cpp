#include "host/addressbook/NumberCell.h"

#include "host/addressbook/ContactFile.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <algorithm>
#include <cstddef>

namespace kvex::host {
namespace {

constexpr std::size_t fewestDigits = 5;

std::vector<std::string_view> partsOf(std::string_view text, std::string_view separators) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = text.find_first_of(separators);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return parts;
        }
        text.remove_prefix(end + 1);
    }
}

bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

std::size_t digitsAtStart(std::u16string_view text) {
    return static_cast<std::size_t>(std::ranges::find_if_not(text, isDigit) - text.begin());
}

/// "9,81111E+11".
bool isScientific(std::u16string_view text) {
    constexpr std::u16string_view signs = u"+-";
    text.remove_prefix(std::min(text.find_first_not_of(signs), text.size()));
    const std::size_t whole = digitsAtStart(text);
    text.remove_prefix(whole);
    if (text.starts_with(u',') || text.starts_with(u'.')) {
        text.remove_prefix(1);
        text.remove_prefix(digitsAtStart(text));
    }
    if (whole == 0 || !(text.starts_with(u'E') || text.starts_with(u'e'))) {
        return false;
    }
    text.remove_prefix(1);
    text.remove_prefix(std::min(text.find_first_not_of(signs), text.size()));
    return !text.empty() && digitsAtStart(text) == text.size();
}

std::string faultOf(std::u16string_view number) {
    const std::string shown = "the number " + toUtf8(visible(number));
    if (isScientific(number)) {
        return shown + " lost its digits in a spreadsheet";
    }
    if (number.starts_with(u'\'') || number.starts_with(u'\u2019') || number.starts_with(u'=')) {
        return shown + " begins with a spreadsheet's text marker";
    }
    return "";
}

/// `text` as one line, without "tel:" at its beginning.
std::u16string writtenNumber(std::string_view text) {
    constexpr std::string_view scheme = "tel:";
    std::u16string number = oneLine(text);
    while (equalInAscii(toUtf8(number.substr(0, scheme.size())), scheme)) {
        number = std::u16string(trimmed(std::u16string_view(number).substr(scheme.size())));
    }
    return number;
}

/// Reads a part between separators that have no other meaning.
void readPart(std::string_view text, NumberCell &cell) {
    const std::u16string whole = writtenNumber(text);
    if (!hasDigit(whole)) {
        return;
    }
    if (cell.fault = faultOf(whole); !cell.fault.empty()) {
        return;
    }
    std::vector<std::u16string> numbers;
    for (const std::string_view part : partsOf(text, ";,")) {
        if (std::u16string number = writtenNumber(part); !number.empty()) {
            numbers.push_back(std::move(number));
        }
    }
    for (std::u16string &number : numbers) {
        const bool isShort =
            static_cast<std::size_t>(std::ranges::count_if(number, isDigit)) < fewestDigits;
        cell.fault = numbers.size() > 1 && isShort
                         ? "the parts of " + toUtf8(visible(whole)) +
                               " between \",\" and \";\" are not all numbers"
                         : faultOf(number);
        if (!cell.fault.empty()) {
            return;
        }
        cell.numbers.push_back(std::move(number));
    }
}

} // namespace

NumberCell readNumberCell(std::string_view text) {
    NumberCell cell;
    std::string plain(text);
    for (std::size_t at = plain.find(":::"); at != std::string::npos; at = plain.find(":::", at)) {
        plain.replace(at, 3, "|");
    }
    for (const std::string_view part : partsOf(plain, "|\r\n")) {
        readPart(part, cell);
        if (!cell.fault.empty()) {
            cell.numbers.clear();
            break;
        }
    }
    return cell;
}

} // namespace kvex::host
