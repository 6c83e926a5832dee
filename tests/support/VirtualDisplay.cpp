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
[[noreturn]] void becomeServer(int numberPipe) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    const std::string pipe = std::to_string(numberPipe);
    execlp("Xvfb", "Xvfb", "-displayfd", pipe.c_str(), "-screen", "0", "1280x1024x24", "-nolisten",
           "tcp", static_cast<char *>(nullptr));
    _exit(127);
}

/// What the server writes once it is ready; "" when it ends before.
std::string readNumber(int pipe) {
    std::string number;
    std::array<char, 16> buffer{};
    while (number.find('\n') == std::string::npos) {
        const ssize_t count = read(pipe, buffer.data(), buffer.size());
        if (count <= 0) {
            return {};
        }
        number.append(buffer.data(), static_cast<std::size_t>(count));
    }
    number.pop_back();
    return number;
}

} // namespace

VirtualDisplay::VirtualDisplay() {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) {
        throw std::runtime_error("no pipe for the virtual display");
    }
    server_ = fork();
    if (server_ == 0) {
        close(ends[0]);
        becomeServer(ends[1]);
    }
    close(ends[1]);
    const std::string number = readNumber(ends[0]);
    close(ends[0]);
    if (number.empty()) {
        throw std::runtime_error("the virtual display did not start: is Xvfb installed?");
    }
    setenv("DISPLAY", (":" + number).c_str(), 1);
    setenv("QT_QPA_PLATFORM", "xcb", 1);
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
