// A program that runs at a terminal of its own.
#pragma once

#include "tests/terminal/Pty.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace kvex::bench {

/// The terminal has 80 x 24 characters and understands what xterm does.
class TerminalProcess {
public:
    /// Starts the program. Throws when that fails.
    explicit TerminalProcess(std::vector<std::string> command);
    /// Ends the program.
    ~TerminalProcess();
    TerminalProcess(const TerminalProcess &) = delete;
    TerminalProcess &operator=(const TerminalProcess &) = delete;

    /// Waits until the screen is whole: it shows `text`, and nothing more has arrived for some
    /// time. Returns the seconds from the program's start to the last byte.
    double secondsToScreen(std::string_view text);
    /// The program's resident memory.
    [[nodiscard]] std::size_t residentBytes() const;

private:
    test::Pty terminal_;
    double start_;
    pid_t process_ = -1;
};

} // namespace kvex::bench
