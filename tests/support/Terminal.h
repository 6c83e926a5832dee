// A terminal for a program under test.
#pragma once

#include <cstdlib>
#include <fcntl.h>
#include <stdexcept>
#include <termios.h>
#include <unistd.h>

namespace kvex::test {

/// Echoes no input and changes no output. The test uses `master`, the program uses `program`.
struct Terminal {
    int master = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    int program = -1;
    Terminal() {
        if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0) {
            throw std::runtime_error("cannot open a terminal");
        }
        program = open(ptsname(master), O_RDWR | O_NOCTTY | O_CLOEXEC);
        termios settings{};
        tcgetattr(program, &settings);
        settings.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        settings.c_oflag &= ~static_cast<tcflag_t>(OPOST);
        tcsetattr(program, TCSANOW, &settings);
    }
    ~Terminal() {
        close(master);
        close(program);
    }
    Terminal(const Terminal &) = delete;
    Terminal &operator=(const Terminal &) = delete;
};

} // namespace kvex::test
