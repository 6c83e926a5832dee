// Moments of messages: local time, in the form in which a rule stores it.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace kvex::host {

/// What a user may write for a moment, for sentences about it.
inline constexpr std::string_view momentForms =
    R"("2024-03-01 09:00", "2024-03-01T09:00:00" or, with a time zone, "2024-03-01T09:00:00Z" and "...+05:30")";

/// The local time "yyyymmdd hh:mm:ss" of a moment that is written as momentForms says. Seconds and
/// their fraction may be missing; a fraction is dropped. A moment without a time zone is local time
/// already. Nothing for any other text, and for a date that does not exist.
[[nodiscard]] std::optional<std::u16string> momentFrom(std::string_view text);

/// The present, in the same form.
[[nodiscard]] std::u16string momentNow();

/// A range of dates; both moments belong to it. They are numbers that stand in order, as
/// momentNumber makes them.
struct MomentRange {
    std::int64_t start = std::numeric_limits<std::int64_t>::min();
    std::int64_t end = std::numeric_limits<std::int64_t>::max();
};

/// 20240301090000 for the moment "20240301 09:00:00".
[[nodiscard]] std::int64_t momentNumber(std::u16string_view moment) noexcept;
/// "2024-03-01 09:00:00" for the same moment.
[[nodiscard]] std::u16string shownMoment(std::int64_t number);

/// Reads a stored range. A moment without a time is the beginning of its day at the start, and the
/// end of its day at the end. Nothing when one of them is no moment that exists.
[[nodiscard]] std::optional<MomentRange> momentRange(std::u16string_view stored);

} // namespace kvex::host
