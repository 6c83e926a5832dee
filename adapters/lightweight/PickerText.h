// What a picker shows, and where its parts stand in it.
#pragma once

#include "platform/controls/DTPicker.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::lightweight {

enum class PickerPart { day, month, year, hour, minute, second };

/// A part's values, independent of the other parts.
struct PartValues {
    int least;
    int most;
};
[[nodiscard]] PartValues valuesOf(PickerPart part);
[[nodiscard]] int valueOf(const DTPicker &picker, PickerPart part);

/// The text of a format such as "dd/MM/yyyy" or "HH:mm:ss". "yyy" is a whole year, too.
class PickerText {
public:
    struct Range {
        std::size_t from;
        std::size_t length;
        friend bool operator==(const Range &, const Range &) = default;
    };

    explicit PickerText(std::u16string_view format);

    [[nodiscard]] const std::vector<PickerPart> &parts() const { return parts_; }
    /// The place of the part with this index.
    [[nodiscard]] Range place(std::size_t index) const { return places_[index]; }
    /// The index of the part at this place, or of the one before it.
    [[nodiscard]] std::size_t partAt(std::size_t place) const;
    /// The picker's date or time, with all digits.
    [[nodiscard]] std::u16string of(const DTPicker &picker) const;
    /// How long each such text is.
    [[nodiscard]] std::size_t length() const { return blank_.size(); }

private:
    /// The text with blanks in place of the parts.
    std::u16string blank_;
    std::vector<PickerPart> parts_;
    std::vector<Range> places_;
};

} // namespace kvex::lightweight
