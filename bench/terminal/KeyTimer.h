// The user of a terminal's windows who presses keys and measures what they cost.
#pragma once

#include "adapters/terminal/TerminalToolkit.h"
#include "adapters/terminal/io/PosixDevice.h"
#include "tests/terminal/Pty.h"

#include <chrono>
#include <functional>
#include <string>
#include <string_view>

namespace kvex::bench {

/// The user's terminal has 80 x 24 characters and understands what xterm does. User and toolkit
/// take turns in one thread, and all bytes go through the system's terminal.
class KeyTimer {
public:
    [[nodiscard]] terminal::TerminalToolkit &toolkit() { return toolkit_; }

    /// Called when a window is shown and waits. Presses keys until the window is closed.
    std::function<void()> onWindow;
    /// Returns when the toolkit has done everything and waits for the next key.
    void press(std::string_view key);

    /// From the last key to the last byte written.
    [[nodiscard]] double seconds() const {
        return std::chrono::duration<double>(device_.writtenAt - pressedAt_).count();
    }
    /// The bytes written since the last key, and since the beginning.
    [[nodiscard]] std::size_t written() const { return device_.written.size() - writtenBefore_; }
    [[nodiscard]] const std::string &everything() const { return device_.written; }

private:
    using Clock = std::chrono::steady_clock;

    /// The toolkit waits for the next key.
    struct Idle {};

    class Device final : public terminal::PosixDevice {
    public:
        explicit Device(KeyTimer &timer)
            : PosixDevice(timer.terminal_.program, timer.terminal_.program), timer_(timer) {}

        [[nodiscard]] terminal::Arrival
        read(std::optional<std::chrono::milliseconds> timeout) override;
        void write(std::string_view bytes) override;

        std::string written;
        Clock::time_point writtenAt;

    private:
        KeyTimer &timer_;
    };

    void wait();

    test::Pty terminal_;
    Device device_{*this};
    terminal::TerminalToolkit toolkit_{device_,
                                       {"xterm-256color", terminal::Characters::unicode, true}};
    Clock::time_point pressedAt_;
    std::size_t writtenBefore_ = 0;
    bool isPressing_ = false;
    /// The toolkit has not read the key yet.
    bool isTyped_ = false;
};

} // namespace kvex::bench
