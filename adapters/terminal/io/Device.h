// The line to a terminal: bytes in both directions.
#pragma once

#include "adapters/terminal/io/Geometry.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace kvex::terminal {

/// What ended the wait for the user.
struct Arrival {
    enum class Kind {
        bytes,
        nothing, ///< The time has passed.
        resized,
        resumed, ///< The terminal was lent to others, and has forgotten what it showed.
        hungUp,
    };
    Kind kind = Kind::nothing;
    std::string bytes;
};

/// A line that is not acquired behaves as one that has hung up.
class Device {
public:
    Device() = default;
    Device(const Device &) = delete;
    Device &operator=(const Device &) = delete;
    virtual ~Device() = default;

    /// Makes the line raw and writes `enter`. From now on whatever ends the use of the line writes
    /// `leave` and restores the line's settings. Throws Error when there is no terminal.
    virtual void acquire(std::string_view enter, std::string_view leave) = 0;
    /// Ends the use. Without effect when the line is not acquired.
    virtual void release() noexcept = 0;

    /// {0, 0} when the line does not know.
    [[nodiscard]] virtual Size size() const = 0;
    /// Waits for the user, without a `timeout` for any time. After a hang-up every call says so.
    [[nodiscard]] virtual Arrival read(std::optional<std::chrono::milliseconds> timeout) = 0;
    /// A line that has hung up takes all bytes and drops them.
    virtual void write(std::string_view bytes) = 0;
    /// Lends the terminal to the shell that started the program, until that continues it. The next
    /// read says that it was resumed. Where nobody would continue the program it is not stopped.
    virtual void suspend() = 0;
};

} // namespace kvex::terminal
