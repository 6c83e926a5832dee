// Messages in a file of JSON Lines: each line is one object.
#pragma once

#include "host/matching/Message.h"

#include <stdexcept>
#include <string_view>

namespace kvex::host {

/// A line that is no message. `what` says why, as in `"account" is missing`.
struct BadMessage : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Reads lines such as
///
///   `{"from": "9811100011", "account": 1, "text": "Hello", "at": "2024-03-01 09:00"}`
///
/// "at" has a form of momentFrom; without it the message has the moment `now`. "service" is true or
/// false, and false when it is missing. Any other member is an error, and so is a member that
/// stands twice. Throws BadMessage.
[[nodiscard]] Message messageFrom(std::string_view line, const std::u16string &now);

/// True for a line of blanks, which is no message.
[[nodiscard]] bool isBlankLine(std::string_view line);

} // namespace kvex::host
