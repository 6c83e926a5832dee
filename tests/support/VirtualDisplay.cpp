#include "tests/support/VirtualDisplay.h"

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace kvex::test {
namespace {

/// The server ends with the test program, however that ends.
[[noreturn]] void becomeServer(const std::string &display, const std::string &screen,
                               int readyPipe) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    const std::string ready = std::to_string(readyPipe);
    execlp("Xvfb", "Xvfb", display.c_str(), "-displayfd", ready.c_str(), "-screen", "0",
           screen.c_str(), "-noreset", "-nolisten", "tcp", static_cast<char *>(nullptr));
    _exit(127);
}

/// Waits until the server reports, by a line with its number, that it is ready. False when it ends
/// before.
bool isReady(int pipe) {
    char last = 0;
    while (last != '\n') {
        if (read(pipe, &last, 1) != 1) {
            return false;
        }
    }
    return true;
}

/// Starts the server of this display; 0 when it could not start.
pid_t startServer(const std::string &display, const std::string &screen) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) {
        throw std::runtime_error("cannot create a pipe for the virtual display");
    }
    const pid_t server = fork();
    if (server == 0) {
        close(ends[0]);
        becomeServer(display, screen, ends[1]);
    }
    close(ends[1]);
    const bool ready = isReady(ends[0]);
    close(ends[0]);
    if (!ready) {
        waitpid(server, nullptr, 0);
    }
    return ready ? server : 0;
}

} // namespace

VirtualDisplay::VirtualDisplay(const std::string &size) {
    // The display number depends on the process. A server that takes the lowest free number can
    // lose its socket when another server ends.
    constexpr int attempts = 10;
    std::string display;
    for (int attempt = 0; server_ <= 0 && attempt < attempts; ++attempt) {
        display.assign(":").append(std::to_string(1000 + (getpid() * attempts + attempt) % 50000));
        server_ = startServer(display, size + "x24");
    }
    if (server_ <= 0) {
        throw std::runtime_error("the virtual display did not start: is Xvfb installed?");
    }
    setenv("DISPLAY", display.c_str(), 1);
    setenv("QT_QPA_PLATFORM", "xcb", 1);
    // Without a folder, the sizes of the user's own windows are neither read nor written.
    setenv("XDG_STATE_HOME", "/dev/null", 1);
    for (const char *variable : {"WAYLAND_DISPLAY", "QT_QPA_PLATFORMTHEME", "QT_STYLE_OVERRIDE"}) {
        unsetenv(variable);
    }
}

VirtualDisplay::~VirtualDisplay() {
    if (server_ > 0) {
        kill(server_, SIGTERM);
        waitpid(server_, nullptr, 0);
    }
}

} // namespace kvex::test
