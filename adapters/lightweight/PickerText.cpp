#include "adapters/lightweight/PickerText.h"

#include "adapters/controls/PickerValue.h"

#include <algorithm>
#include <optional>

namespace kvex::lightweight {
namespace {

std::optional<PickerPart> partOf(char16_t letter) {
    switch (letter) {
    case u'd':
        return PickerPart::day;
    case u'M':
        return PickerPart::month;
    case u'y':
        return PickerPart::year;
    case u'H':
        return PickerPart::hour;
    case u'm':
        return PickerPart::minute;
    case u's':
        return PickerPart::second;
    default:
        return std::nullopt;
    }
}

} // namespace

PartValues valuesOf(PickerPart part) {
    switch (part) {
    case PickerPart::day:
        return {1, 31};
    case PickerPart::month:
        return {1, 12};
    case PickerPart::year:
        return {controls::PickerValue::firstYear, controls::PickerValue::lastYear};
    case PickerPart::hour:
        return {0, 23};
    default:
        return {0, 59};
    }
}

int valueOf(const DTPicker &picker, PickerPart part) {
    switch (part) {
    case PickerPart::day:
        return picker.day();
    case PickerPart::month:
        return picker.month();
    case PickerPart::year:
        return picker.year();
    case PickerPart::hour:
        return picker.hour();
    case PickerPart::minute:
        return picker.minute();
    default:
        return picker.second();
    }
}

PickerText::PickerText(std::u16string_view format) {
    constexpr std::size_t ofYear = 4;
    constexpr std::size_t ofOthers = 2;
    for (std::size_t at = 0; at < format.size();) {
        const std::size_t end = std::min(format.find_first_not_of(format[at], at), format.size());
        if (const auto part = partOf(format[at])) {
            const std::size_t length = part == PickerPart::year ? ofYear : ofOthers;
            parts_.push_back(*part);
            places_.push_back({blank_.size(), length});
            blank_.append(length, u' ');
        } else {
            blank_ += format.substr(at, end - at);
        }
        at = end;
    }
}

std::size_t PickerText::partAt(std::size_t place) const {
    std::size_t found = 0;
    while (found + 1 < places_.size() && places_[found + 1].from <= place) {
        ++found;
    }
    return found;
}

std::u16string PickerText::of(const DTPicker &picker) const {
    std::u16string text = blank_;
    for (std::size_t index = 0; index < parts_.size(); ++index) {
        int value = valueOf(picker, parts_[index]);
        const auto [from, length] = places_[index];
        for (std::size_t at = from + length; at > from; value /= 10) {
            text[--at] = static_cast<char16_t>(u'0' + value % 10);
        }
    }
    return text;
}

} // namespace kvex::lightweight
