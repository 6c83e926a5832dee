// A shell with one program at a terminal of its own.
#pragma once

#include "adapters/terminal/io/Geometry.h"

#include <functional>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <termios.h>

namespace kvex::test {

/// What the shell saw when the program stopped or ended.
struct Ending {
    /// As waitpid() gives it.
    int status = 0;
    /// The terminal's settings at that time.
    termios settings{};
};

/// Both are processes; the terminal controls their session, and the program is in its foreground.
class Shell {
public:
    /// Runs the function as the program, which ends with status 0 after it.
    explicit Shell(const std::function<void()> &program, terminal::Size size = {80, 24});
    ~Shell();
    Shell(const Shell &) = delete;
    Shell &operator=(const Shell &) = delete;

    /// The settings before the program began.
    [[nodiscard]] const termios &settings() const { return settings_; }
    [[nodiscard]] termios settingsNow() const;

    void type(std::string_view bytes) const;
    void resize(terminal::Size size) const;
    /// Sends the signal to the program.
    void kill(int signal) const;
    /// Reads what the program writes up to this text, and returns all of it.
    std::string readUntil(std::string_view text);
    /// Waits until the program stops or ends.
    Ending wait();
    /// What the program wrote and nobody has read.
    std::string rest();
    /// Continues a stopped program, with the terminal or without.
    void foreground() const;
    void background() const;
    /// Closes the other end of the terminal.
    void hangUp();

private:
    int terminal_ = -1;
    int reports_ = -1;
    int orders_ = -1;
    pid_t shell_ = -1;
    pid_t program_ = -1;
    termios settings_{};
    std::string read_;
};

[[nodiscard]] bool areEqual(const termios &a, const termios &b);

} // namespace kvex::test
