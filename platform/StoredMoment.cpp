#include "platform/StoredMoment.h"

#include "platform/Error.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <iomanip>
#include <locale>
#include <sstream>
#include <stdexcept>

namespace kvex {
namespace {

bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

unsigned numberOf(std::u16string_view digits) {
    unsigned number = 0;
    for (const char16_t digit : digits) {
        number = number * 10 + (digit - u'0');
    }
    return number;
}

bool isCalendarDate(std::u16string_view date) {
    if (date.size() != 8 || !std::ranges::all_of(date, isDigit)) {
        return false;
    }
    const unsigned year = numberOf(date.substr(0, 4));
    const std::chrono::year_month_day day(std::chrono::year(static_cast<int>(year)),
                                          std::chrono::month(numberOf(date.substr(4, 2))),
                                          std::chrono::day(numberOf(date.substr(6, 2))));
    return year > 0 && day.ok();
}

/// True for two digits below `limit`.
bool isTwoDigits(std::u16string_view text, unsigned limit) {
    return text.size() == 2 && std::ranges::all_of(text, isDigit) && numberOf(text) < limit;
}

/// The locale in the user's environment, which may differ from that of the process. Returns the C
/// locale when the system does not have it.
std::locale userLocale() {
    try {
        return std::locale("");
    } catch (const std::runtime_error &) {
        return std::locale::classic();
    }
}

/// The separator between the numbers of a date in `locale`: "/", "." or "-". "/" when the locale
/// has none of them.
char16_t dateSeparatorOf(const std::locale &locale) {
    std::tm date{};
    date.tm_year = 101;
    date.tm_mon = 10;
    date.tm_mday = 22;
    std::ostringstream shown;
    shown.imbue(locale);
    shown << std::put_time(&date, "%x");
    const std::string text = shown.str();
    const std::size_t found = text.find_first_of("/.-");
    return found == std::string::npos ? u'/' : static_cast<char16_t>(text[found]);
}

/// Looked up once for each process.
char16_t dateSeparator() {
    static const char16_t separator = dateSeparatorOf(userLocale());
    return separator;
}

} // namespace

StoredRange storedRange(std::u16string_view range) {
    const std::size_t comma = range.find(u',');
    if (comma == std::u16string_view::npos) {
        throw Error(error_number::typeMismatch);
    }
    return {range.substr(0, comma), range.substr(comma + 1)};
}

bool isWholeMoment(std::u16string_view stored) {
    return stored.size() == 17 && isCalendarDate(stored.substr(0, 8)) && stored[8] == u' ' &&
           isTwoDigits(stored.substr(9, 2), 24) && stored[11] == u':' &&
           isTwoDigits(stored.substr(12, 2), 60) && stored[14] == u':' &&
           isTwoDigits(stored.substr(15, 2), 60);
}

std::u16string shownMoment(std::u16string_view stored) {
    const auto date = stored.substr(0, 8);
    if (!isCalendarDate(date)) {
        throw Error(error_number::typeMismatch);
    }
    const char16_t separator = dateSeparator();
    std::u16string shown(date.substr(6, 2));
    shown.append(1, separator).append(date.substr(4, 2));
    shown.append(1, separator).append(date.substr(0, 4));
    shown.append(u" ").append(stored.substr(std::min<std::size_t>(9, stored.size())));
    return shown.append(u" Hrs.");
}

} // namespace kvex
