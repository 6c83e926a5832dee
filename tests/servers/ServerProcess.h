// A server program that runs beside the test program, and never longer.
#pragma once

#include "tests/servers/ServerFolder.h"

#include <chrono>
#include <string>
#include <vector>

namespace kvex::test {

/// Runs in the folder as its user; what it prints goes to the folder's file "log". It is killed
/// when the test program ends, however that ends, so it is to be started by the main thread.
class ServerProcess {
public:
    ServerProcess(const std::vector<std::string> &command, const ServerFolder &folder);
    /// Kills what still runs.
    ~ServerProcess();
    ServerProcess(const ServerProcess &) = delete;
    ServerProcess &operator=(const ServerProcess &) = delete;

    [[nodiscard]] pid_t pid() const noexcept { return pid_; }
    [[nodiscard]] bool running() const;
    /// Waits until it has ended, for so long at most; whether it has.
    bool awaitEnd(std::chrono::milliseconds limit) const;

    /// Asks it to end by this signal and waits until it has; one that does not is killed.
    void end(int signal);
    /// Kills it and the processes that it started, and waits until they are gone.
    void kill();
    /// Stops and continues it and the processes that it started.
    void freeze() const;
    void thaw() const;

    /// The status that it ended with; 128 and the signal for one that was killed. To be called
    /// once it has ended.
    [[nodiscard]] int status();

private:
    void reap();

    pid_t pid_;
    int handle_ = -1;
    bool reaped_ = false;
    int status_ = 0;
};

/// Runs a program to its end; raises std::runtime_error, with what it printed, when it fails.
void runToEnd(const std::vector<std::string> &command, const ServerFolder &folder);

/// The last lines that a server printed.
[[nodiscard]] std::string endOfLog(const ServerFolder &folder);

} // namespace kvex::test
