// A server program that runs beside the test program, and ends with it.
#pragma once

#include "tests/servers/ServerFolder.h"

#include <chrono>
#include <string>
#include <vector>

namespace kvex::test {

/// Runs in the folder as the folder's user, and prints to its file "log". The system kills it when
/// the thread that started it ends, even by a crash, so only the main thread may start it.
class ServerProcess {
public:
    ServerProcess(const std::vector<std::string> &command, const ServerFolder &folder);
    /// Kills a process that still runs.
    ~ServerProcess();
    ServerProcess(const ServerProcess &) = delete;
    ServerProcess &operator=(const ServerProcess &) = delete;

    [[nodiscard]] pid_t pid() const noexcept { return pid_; }
    [[nodiscard]] bool running() const;
    /// Waits for the end up to the limit; true when the process has ended.
    bool awaitEnd(std::chrono::milliseconds limit) const;

    /// Sends the signal and waits for the end; kills the process when it does not end.
    void end(int signal);
    /// Kills the process and its children, and waits until they are gone.
    void kill();
    /// Stops and continues the process and its children.
    void freeze() const;
    void thaw() const;

    /// The exit status; 128 plus the signal for a killed process. Call this after the end.
    [[nodiscard]] int status();

private:
    void reap();

    pid_t pid_;
    int handle_ = -1;
    bool reaped_ = false;
    int status_ = 0;
};

/// Runs a program to its end. Raises std::runtime_error with its output when it fails.
void runToEnd(const std::vector<std::string> &command, const ServerFolder &folder);

/// The end of the server's output.
[[nodiscard]] std::string endOfLog(const ServerFolder &folder);

} // namespace kvex::test
