#include "adapters/lightweight/PickerEditor.h"

#include "platform/Text.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace kvex::lightweight {
namespace {

int lastDay(int year, int month) {
    const std::chrono::year_month_day_last last{
        std::chrono::year(year),
        std::chrono::month_day_last(std::chrono::month(static_cast<unsigned>(month)))};
    return static_cast<int>(static_cast<unsigned>(last.day()));
}

std::array<int, 3> dateOf(const DTPicker &picker) {
    return {picker.year(), picker.month(), picker.day()};
}

} // namespace

std::u16string PickerEditor::text() const {
    if (!value_.hasValue()) {
        return {};
    }
    std::u16string text = text_.of(value_);
    if (edited() == PickerPart::year && !typed_.empty()) {
        const auto [from, length] = text_.place(index_);
        text.replace(from, length, typed_);
    }
    return text;
}

PickerText::Range PickerEditor::part() const {
    PickerText::Range place = text_.place(index_);
    if (edited() == PickerPart::year && !typed_.empty()) {
        place.length = typed_.size();
    }
    return place;
}

void PickerEditor::endTyping() {
    typed_.clear();
    isTyping_ = digitEndedPart_ = false;
}

void PickerEditor::goToPart(int step) {
    endTyping();
    const auto last = static_cast<int>(text_.parts().size()) - 1;
    index_ = static_cast<std::size_t>(std::clamp(static_cast<int>(index_) + step, 0, last));
}

void PickerEditor::goToPartAt(std::size_t place) {
    endTyping();
    index_ = text_.partAt(place);
}

void PickerEditor::typeSeparator() {
    goToPart(digitEndedPart_ ? 0 : 1);
}

void PickerEditor::typeDigit(int digit) {
    checkDay();
    digitEndedPart_ = false;
    edited() == PickerPart::year ? typeIntoYear(digit) : typeIntoPart(digit);
    isTyping_ = true;
    date_ = dateOf(value_);
}

/// No year begins with 0.
void PickerEditor::typeIntoYear(int digit) {
    if (typed_.empty() && digit == 0) {
        return;
    }
    const std::u16string typed = typed_ + static_cast<char16_t>(u'0' + digit);
    if (typed.size() < text_.place(index_).length) {
        typed_ = typed;
        return;
    }
    const int year = toInt32(typed);
    const auto [least, most] = valuesOf(PickerPart::year);
    if (year >= least && year <= most) {
        set(PickerPart::year, year);
    }
}

/// Takes a digit of a two-digit part.
void PickerEditor::typeIntoPart(int digit) {
    const PickerPart part = edited();
    const auto [least, most] = valuesOf(part);
    const bool isSecond = !typed_.empty();
    const int value = (isSecond ? toInt32(typed_) * 10 : 0) + digit;
    if (value > most || (isSecond && value < least)) {
        return;
    }
    if (part == PickerPart::day) {
        day_ = value;
    }
    if (value >= least) {
        set(part, value);
    }
    digitEndedPart_ = isSecond || value * 10 > most;
    typed_.assign(digitEndedPart_ ? 0 : 1, static_cast<char16_t>(u'0' + digit));
    if (digitEndedPart_ && index_ + 1 < text_.parts().size()) {
        ++index_;
    }
}

void PickerEditor::step(int by) {
    endTyping();
    checkDay();
    const PickerPart part = edited();
    const auto [least, most] = valuesOf(part);
    const int last = part == PickerPart::day ? lastDay(value_.year(), value_.month()) : most;
    const int value = std::clamp(valueOf(value_, part) + by, least, last);
    if (part == PickerPart::day || day_ == 0) {
        day_ = part == PickerPart::day ? value : value_.day();
    }
    set(part, value);
    date_ = dateOf(value_);
}

/// Cuts the day to the month's last day.
void PickerEditor::set(PickerPart part, int value) {
    const auto valueNow = [&](PickerPart other) {
        return part == other ? value : valueOf(value_, other);
    };
    if (part == PickerPart::day || part == PickerPart::month || part == PickerPart::year) {
        const int year = valueNow(PickerPart::year);
        const int month = valueNow(PickerPart::month);
        const int day = part != PickerPart::day && day_ > 0 ? day_ : valueNow(PickerPart::day);
        value_.setDate(year, month, std::min(day, lastDay(year, month)));
    } else {
        value_.setTime(valueNow(PickerPart::hour), valueNow(PickerPart::minute),
                       valueNow(PickerPart::second));
    }
}

void PickerEditor::checkDay() {
    if (dateOf(value_) != date_) {
        day_ = 0;
    }
}

} // namespace kvex::lightweight
