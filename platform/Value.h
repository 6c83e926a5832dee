// A database field's value: Null, an integer, a floating-point number or text.
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

/// A value that somebody else owns; see who gives it for how long it is valid.
class ValueView {
public:
    using Held = std::variant<Null, std::int64_t, double, std::u16string_view>;

    ValueView() = default;
    explicit ValueView(Held held) : held_(held) {}

    [[nodiscard]] const Held &held() const noexcept { return held_; }
    [[nodiscard]] bool isNull() const noexcept { return std::holds_alternative<Null>(held_); }
    [[nodiscard]] Value owned() const;

    /// As text: a number in decimal. Null raises invalidUseOfNull.
    [[nodiscard]] std::u16string text() const;
    /// The text without a copy, for a value that is text; "" for Null and for a number, where a
    /// search for a word finds nothing.
    [[nodiscard]] std::u16string_view textOrEmpty() const;
    /// As a number: text converts as toInt64, toInt32 and toInt16 do. Null raises invalidUseOfNull,
    /// a number out of range overflow, text that is no number typeMismatch.
    [[nodiscard]] std::int64_t int64() const;
    [[nodiscard]] std::int32_t int32() const;
    [[nodiscard]] std::int16_t int16() const;

private:
    Held held_;
};

} // namespace kvex
