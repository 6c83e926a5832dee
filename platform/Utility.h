// The host suite's utility object as the component uses it.
#pragma once

#include "platform/Error.h"

#include <cstdint>
#include <string>

namespace kvex {

/// When the host's object fails, the call throws an Error. `logFile` is a reference: the host's
/// object may change it, and its change stays even when the call fails.
class Utility {
public:
    virtual ~Utility() = default;

    /// The connection string of the server's database.
    [[nodiscard]] virtual std::u16string connectionString() = 0;
    /// The component passes it to the address book's Init and does not read it.
    [[nodiscard]] virtual std::u16string secondText() = 0;
    /// Writes one entry to the error log. Every trap passes 0 as `reserved` and -1 as `flag`.
    virtual void writeErrorLog(std::u16string &logFile, const Error &error,
                               const std::u16string &text, std::int32_t reserved,
                               std::int16_t flag) = 0;
    /// Writes a message to the log. The message is no run-time error.
    virtual void reportMessage(std::u16string &logFile, const std::u16string &text, bool first,
                               bool second) = 0;
    /// See kvex/MessageBox.h for styles and results.
    virtual std::int32_t showMessageBox(const std::u16string &text, std::int32_t style) = 0;
};

} // namespace kvex
