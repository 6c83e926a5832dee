// The value of a database field: Null, an integer, a floating-point number or text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace kvex {

struct Null {
    friend bool operator==(Null, Null) = default;
};

/// An owned value.
using Value = std::variant<Null, std::int64_t, double, std::u16string>;

/// A value that another object owns. The function that returns it says how long it is valid.
class ValueView {
public:
    using Held = std::variant<Null, std::int64_t, double, std::u16string_view>;

    ValueView() = default;
    explicit ValueView(Held held) : held_(held) {}

    [[nodiscard]] const Held &held() const noexcept { return held_; }
    [[nodiscard]] bool isNull() const noexcept { return std::holds_alternative<Null>(held_); }
    [[nodiscard]] Value owned() const;

    /// The value as text; a number is written in decimal. Fails with invalidUseOfNull for Null.
    [[nodiscard]] std::u16string text() const;
    /// The text itself, not copied. "" for Null and for a number, so that a search for a word finds
    /// nothing in them.
    [[nodiscard]] std::u16string_view textOrEmpty() const;
    /// The value as a number; text converts as in toInt64, toInt32 and toInt16. Each fails with
    /// invalidUseOfNull for Null, with overflow for a number out of range, and with typeMismatch
    /// for text that is no number.
    [[nodiscard]] std::int64_t int64() const;
    [[nodiscard]] std::int32_t int32() const;
    [[nodiscard]] std::int16_t int16() const;

private:
    Held held_;
};

} // namespace kvex
