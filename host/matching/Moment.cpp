#include "host/matching/Moment.h"

#include "platform/StoredMoment.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <ctime>

namespace kvex::host {
namespace {

constexpr std::string_view digits = "0123456789";

std::u16string localTime(std::time_t time) {
    std::tm local{};
    localtime_r(&time, &local);
    std::array<char, 64> text{};
    const std::size_t size = std::strftime(text.data(), text.size(), "%Y%m%d %H:%M:%S", &local);
    return fromUtf8({text.data(), size});
}

int numberIn(std::string_view text, std::size_t at, std::size_t size) {
    int number = 0;
    std::from_chars(text.data() + at, text.data() + at + size, number);
    return number;
}

/// Takes ":ss" off the front, and a fraction behind it. Returns ":00" when there is none.
std::string takeSeconds(std::string_view &rest) {
    if (!rest.starts_with(':')) {
        return ":00";
    }
    std::string seconds(rest.substr(0, 3));
    rest.remove_prefix(seconds.size());
    if (rest.starts_with('.') || rest.starts_with(',')) {
        const std::size_t end = std::min(rest.find_first_not_of(digits, 1), rest.size());
        rest.remove_prefix(end == 1 ? 0 : end);
    }
    return seconds;
}

/// The seconds east of Greenwich of "Z", "+hh:mm" or "+hhmm".
std::optional<int> offsetOf(std::string_view zone) {
    if (zone == "Z") {
        return 0;
    }
    std::string form(zone);
    if (form.size() == 6 && form[3] == ':') {
        form.erase(3, 1);
    }
    if (form.size() != 5 || (form[0] != '+' && form[0] != '-') ||
        form.find_first_not_of(digits, 1) != std::string::npos) {
        return std::nullopt;
    }
    const int hours = numberIn(form, 1, 2);
    const int minutes = numberIn(form, 3, 2);
    if (hours > 23 || minutes > 59) {
        return std::nullopt;
    }
    return (form[0] == '-' ? -60 : 60) * (hours * 60 + minutes);
}

std::time_t greenwichTime(std::string_view stored) {
    std::tm time{};
    time.tm_year = numberIn(stored, 0, 4) - 1900;
    time.tm_mon = numberIn(stored, 4, 2) - 1;
    time.tm_mday = numberIn(stored, 6, 2);
    time.tm_hour = numberIn(stored, 9, 2);
    time.tm_min = numberIn(stored, 12, 2);
    time.tm_sec = numberIn(stored, 15, 2);
    return timegm(&time);
}

/// The moment with `time` where it has none; "" when it is no moment.
std::u16string completed(std::u16string_view stored, std::u16string_view time) {
    constexpr std::size_t dateSize = 8;
    std::u16string moment(trimmed(stored));
    if (moment.size() == dateSize) {
        moment.append(u" ").append(time);
    }
    return isWholeMoment(moment) ? moment : std::u16string();
}

} // namespace

std::optional<std::u16string> momentFrom(std::string_view text) {
    constexpr std::size_t toMinutes = 16;
    if (text.size() < toMinutes || text[4] != '-' || text[7] != '-' ||
        (text[10] != 'T' && text[10] != ' ')) {
        return std::nullopt;
    }
    std::string_view rest = text.substr(toMinutes);
    std::string stored(text.substr(0, 4));
    stored.append(text.substr(5, 2)).append(text.substr(8, 2)).append(" ");
    stored.append(text.substr(11, 5)).append(takeSeconds(rest));
    std::u16string moment = fromUtf8(stored);
    if (!isWholeMoment(moment)) {
        return std::nullopt;
    }
    if (rest.empty()) {
        return moment;
    }
    const auto offset = offsetOf(rest);
    return offset ? std::optional(localTime(greenwichTime(stored) - *offset)) : std::nullopt;
}

std::u16string momentNow() {
    return localTime(std::time(nullptr));
}

std::int64_t momentNumber(std::u16string_view moment) noexcept {
    std::int64_t number = 0;
    for (const char16_t unit : moment) {
        if (unit >= u'0' && unit <= u'9') {
            number = number * 10 + (unit - u'0');
        }
    }
    return number;
}

std::u16string shownMoment(std::int64_t number) {
    std::u16string shown = toText(number);
    shown.insert(0, 14 - std::min<std::size_t>(shown.size(), 14), u'0');
    shown.insert(12, u":").insert(10, u":").insert(8, u" ").insert(6, u"-").insert(4, u"-");
    return shown;
}

std::optional<MomentRange> momentRange(std::u16string_view stored) {
    if (stored.find(u',') == std::u16string_view::npos) {
        return std::nullopt;
    }
    const StoredRange parts = storedRange(stored);
    const std::u16string start = completed(parts.start, u"00:00:00");
    const std::u16string end = completed(parts.end, u"23:59:59");
    if (start.empty() || end.empty()) {
        return std::nullopt;
    }
    return MomentRange{momentNumber(start), momentNumber(end)};
}

} // namespace kvex::host
