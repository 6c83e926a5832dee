#include "adapters/recordset/FindCriterion.h"

#include "adapters/recordset/EqualIgnoringCase.h"
#include "platform/Error.h"
#include "platform/Text.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <type_traits>

namespace kvex::recordset {
namespace {

constexpr char16_t apostrophe = u'\'';

[[noreturn]] void refuse(std::u16string_view text) {
    throw Error(error_number::badArgument,
                u"The search criterion " + std::u16string(text) +
                    u" cannot be read: write COLUMN = number, or COLUMN = 'text' with no "
                    u"apostrophe inside the text.");
}

std::u16string_view quotedText(std::u16string_view operand, std::u16string_view criterion) {
    if (operand.size() < 2 || operand.back() != apostrophe) {
        refuse(criterion);
    }
    const std::u16string_view text = operand.substr(1, operand.size() - 2);
    if (text.find(apostrophe) != std::u16string_view::npos) {
        refuse(criterion);
    }
    return text;
}

std::optional<std::int64_t> wholeNumber(std::u16string_view operand) {
    const std::string digits = toUtf8(operand);
    std::int64_t whole = 0;
    const char *end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, whole);
    return read.ec == std::errc() && read.ptr == end ? std::optional(whole) : std::nullopt;
}

FindCriterion::Wanted number(std::u16string_view operand, std::u16string_view criterion) {
    // Most searches are for ids, which are whole numbers.
    if (const auto whole = wholeNumber(operand)) {
        return *whole;
    }
    if (!isNumeric(operand)) {
        refuse(criterion);
    }
    if (operand.front() == u'+') {
        return number(operand.substr(1), criterion);
    }
    const double value = toDouble(operand);
    constexpr double integersEnd = 0x1p63;
    if (value == std::trunc(value) && value >= -integersEnd && value < integersEnd) {
        return static_cast<std::int64_t>(value);
    }
    return value;
}

} // namespace

FindCriterion::FindCriterion(std::u16string_view text) {
    const std::size_t equals = text.find(u'=');
    if (equals == std::u16string_view::npos) {
        refuse(text);
    }
    column_ = trimmed(text.substr(0, equals));
    const std::u16string_view operand = trimmed(text.substr(equals + 1));
    if (column_.empty() || operand.empty() ||
        std::u16string_view(u"<>!").find(column_.back()) != std::u16string_view::npos) {
        refuse(text);
    }
    if (operand.front() == apostrophe) {
        wanted_ = quotedText(operand, text);
    } else {
        wanted_ = number(operand, text);
    }
}

bool FindCriterion::matches(const ValueView &value) const {
    return std::visit(
        [](auto wanted, auto held) {
            using Searched = decltype(wanted);
            using Held = decltype(held);
            if constexpr (std::is_same_v<Held, Null>) {
                return false;
            } else if constexpr (std::is_same_v<Searched, std::u16string_view> ||
                                 std::is_same_v<Held, std::u16string_view>) {
                if constexpr (std::is_same_v<Searched, Held>) {
                    return equalIgnoringCase(wanted, held);
                } else {
                    return false;
                }
            } else if constexpr (std::is_same_v<Searched, Held>) {
                return wanted == held;
            } else {
                return static_cast<double>(wanted) == static_cast<double>(held);
            }
        },
        wanted_, value.held());
}

} // namespace kvex::recordset
