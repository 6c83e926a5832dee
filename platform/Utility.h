// The host suite's utility object, as the component uses it.
#pragma once

#include "platform/Error.h"

#include <cstdint>
#include <string>

namespace kvex {

/// Each call fails with an Error when the host's object does. `logFile` goes by reference: what the
/// host's object makes of it is what the caller holds afterwards, also when the call fails.
class Utility {
public:
    virtual ~Utility() = default;

    /// The connection string of the server's database.
    [[nodiscard]] virtual std::u16string connectionString() = 0;
    /// Passed on, unread, to the address book's Init.
    [[nodiscard]] virtual std::u16string secondText() = 0;
    /// One entry in the error log. `reserved` is 0 and `flag` -1 from every trap.
    virtual void writeErrorLog(std::u16string &logFile, const Error &error,
                               const std::u16string &text, std::int32_t reserved,
                               std::int16_t flag) = 0;
    /// A message in the log that is no error of the runtime.
    virtual void reportMessage(std::u16string &logFile, const std::u16string &text, bool first,
                               bool second) = 0;
    /// See message_box in platform/controls/Toolkit.h for styles and results.
    virtual std::int32_t showMessageBox(const std::u16string &text, std::int32_t style) = 0;
};

} // namespace kvex
