// A short message, with all that conditions look at.
#pragma once

#include <cstdint>
#include <string>

namespace kvex::host {

struct Message {
    /// The number of its sender, as it was received.
    std::u16string sender;
    /// The id of the account through which it came in.
    std::int32_t account = 0;
    std::u16string text;
    /// When it came in, in local time: "yyyymmdd hh:mm:ss", as a rule stores it.
    std::u16string moment;
    bool isService = false;
};

} // namespace kvex::host
