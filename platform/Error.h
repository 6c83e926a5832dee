// The project's only exception type. It carries the runtime's error numbers.
#pragma once

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

/// What an error means for the user. A database error has the number that the database's library
/// chose, and one number can mean several things. The host suite has advice for each context. The
/// values cross the component's boundary, so they never change.
enum class HelpContext : std::int32_t {
    /// No advice beyond the error's description.
    none = 0,
    // The database cannot be opened.
    cannotConnect = 1,
    noDriver = 2,
    noDataSource = 3,
    wrongUser = 4,
    noFile = 5,
    notADatabase = 6,
    cutOff = 7,
    cannotMake = 8,
    // The database refuses a statement.
    connectionLost = 20,
    forbidden = 21,
    noTable = 22,
    badStatement = 23,
    constraint = 24,
    tooLong = 25,
    badValue = 26,
    locked = 27,
    lockedOrCutOff = 28,
    noAnswer = 29,
    diskFull = 30,
    inputOutput = 31,
    damaged = 32,
    fileMoved = 33,
    failed = 34,
    noNewKey = 35,
    // The rows are not as the record set read them, or cannot be written.
    changedByAnother = 50,
    noPrimaryKey = 51,
    valueNotKept = 52,
    // The rules are not all there, or not all stored.
    ruleReadInPart = 70,
    listEndsEarly = 71,
    ruleNotStored = 72,
    orderNotStored = 73,
    ruleNotRemoved = 74,
};

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
