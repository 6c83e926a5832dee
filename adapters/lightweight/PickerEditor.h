// Changes a picker's value part by part, as the user types or steps.
#pragma once

#include "adapters/controls/PickerValue.h"
#include "adapters/lightweight/PickerText.h"

#include <array>
#include <string>
#include <string_view>

namespace kvex::lightweight {

/// The user types a date with or without separators. The last digit of a part goes on to the next
/// part. The user types the day before the month, so the old month may cut it: 31 becomes 30 in
/// April. Once the month or the year is typed, the editor tries the typed day again. A year counts
/// when it is whole and in range.
class PickerEditor {
public:
    /// `value` must outlive it.
    PickerEditor(controls::PickerValue &value, std::u16string_view format)
        : value_(value), text_(format) {}

    /// What the user sees; "" while there is no value. A year that is not whole is shown as typed.
    [[nodiscard]] std::u16string text() const;
    /// The longest text.
    [[nodiscard]] std::size_t length() const { return text_.length(); }
    /// Where text() has the part that keys change.
    [[nodiscard]] PickerText::Range part() const;

    /// So many parts on, or back for a negative number, but not beyond the ends. It ends what is
    /// being typed, and so do the next two functions.
    void goToPart(int step);
    void goToPartAt(std::size_t place);
    /// Call it after any change of the value, also during typeDigit().
    void endTyping();

    /// The last call was typeDigit().
    [[nodiscard]] bool isTyping() const { return isTyping_; }
    /// A digit that makes no value is dropped.
    void typeDigit(int digit);
    /// Goes to the next part, unless the last digit has done so.
    void typeSeparator();
    /// Adds to the part, at most to its last value. The month and the year cut the day to the
    /// month's last, and bring it back in a longer month.
    void step(int by);

private:
    [[nodiscard]] PickerPart edited() const { return text_.parts()[index_]; }
    void typeIntoYear(int digit);
    void typeIntoPart(int digit);
    void set(PickerPart part, int value);
    /// Forgets the day if somebody else has set another date.
    void checkDay();

    controls::PickerValue &value_;
    PickerText text_;
    std::size_t index_ = 0;
    /// The digits of a part that is not whole.
    std::u16string typed_;
    bool isTyping_ = false;
    bool digitEndedPart_ = false;
    /// The day that the user chose last, or 0; and the date at that time.
    int day_ = 0;
    std::array<int, 3> date_{};
};

} // namespace kvex::lightweight
