// The project's only exception type. It carries the runtime's error numbers.
#pragma once

#include "kvex/HelpContext.h"

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace kvex {

/// The numbers that callers compare with. An error that comes from a database has the provider's
/// negative number instead.
namespace error_number {
inline constexpr std::int32_t invalidCall = 5;
inline constexpr std::int32_t overflow = 6;
inline constexpr std::int32_t outOfMemory = 7;
inline constexpr std::int32_t subscriptOutOfRange = 9;
inline constexpr std::int32_t typeMismatch = 13;
inline constexpr std::int32_t internalError = 51;
inline constexpr std::int32_t objectNotSet = 91;
inline constexpr std::int32_t invalidUseOfNull = 94;
inline constexpr std::int32_t invalidPropertyValue = 380;
inline constexpr std::int32_t cannotCreateObject = 429;
inline constexpr std::int32_t automationError = 440;
inline constexpr std::int32_t controlNotFound = 730;
inline constexpr std::int32_t badArgument = 3001;
inline constexpr std::int32_t noCurrentRecord = 3021;
inline constexpr std::int32_t itemNotFound = 3265;
inline constexpr std::int32_t objectClosed = 3704;
inline constexpr std::int32_t objectOpen = 3705;
inline constexpr std::int32_t indexOutOfBounds = 35600;
inline constexpr std::int32_t elementNotFound = 35601;
inline constexpr std::int32_t keyNotUnique = 35602;
} // namespace error_number

/// A run-time error, with the texts that the error log shows.
class Error : public std::exception {
public:
    /// An empty `description` stands for the runtime's own text for `number`.
    explicit Error(std::int32_t number, std::u16string description = {},
                   std::u16string source = u"KVEXMessageRules",
                   HelpContext helpContext = HelpContext::none);

    [[nodiscard]] std::int32_t number() const noexcept { return number_; }
    [[nodiscard]] const std::u16string &description() const noexcept { return description_; }
    [[nodiscard]] const std::u16string &source() const noexcept { return source_; }
    [[nodiscard]] HelpContext helpContext() const noexcept { return helpContext_; }
    /// True for an error that comes from a database: its number is negative.
    [[nodiscard]] bool fromDatabase() const noexcept { return number_ < 0; }
    /// True when the user must learn of the error, and a log alone is not enough.
    [[nodiscard]] bool concernsUser() const noexcept {
        return fromDatabase() || helpContext_ != HelpContext::none;
    }
    /// "error NUMBER: DESCRIPTION (SOURCE)" in UTF-8, for diagnostic streams.
    [[nodiscard]] const char *what() const noexcept override { return what_.c_str(); }

    /// The same error for a user: the sentence `more` follows the description, unless it is "".
    /// `context` applies when the error has none.
    [[nodiscard]] Error explained(HelpContext context, std::u16string_view more) const;

    /// The exception that is being handled, as an Error. A failed allocation becomes outOfMemory,
    /// any other exception internalError with its text. Call it only in a catch block.
    [[nodiscard]] static Error current();

private:
    std::int32_t number_;
    std::u16string description_;
    std::u16string source_;
    HelpContext helpContext_;
    std::string what_;
};

} // namespace kvex
