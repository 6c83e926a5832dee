// The line to a real terminal.
#pragma once

#include "adapters/terminal/io/Device.h"

#include <memory>

namespace kvex::terminal {

/// Each device has a terminal of its own. Several threads can use one each, at the same time.
///
/// While the line is acquired, what the process writes to its diagnostic stream is held back if
/// that is the same terminal. It appears when the line is released, also by a signal.
///
/// Ctrl+C and Ctrl+Z are keys. Ctrl+\ sends SIGQUIT, even when the program does not read.
class PosixDevice : public Device {
public:
    /// Both files are the same terminal and stay open.
    PosixDevice(int input, int output);
    ~PosixDevice() override;

    void acquire(std::string_view enter, std::string_view leave) override;
    void release() noexcept override;
    [[nodiscard]] Size size() const override;
    [[nodiscard]] Arrival read(std::optional<std::chrono::milliseconds> timeout) override;
    void write(std::string_view bytes) override;
    void suspend() override;

private:
    struct Use;

    int input_;
    int output_;
    std::unique_ptr<Use> use_;
};

/// Whether the standard input and output of the process are a terminal.
[[nodiscard]] bool isAtTerminal() noexcept;

} // namespace kvex::terminal
