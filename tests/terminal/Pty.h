// A terminal that controls no process.
#pragma once

#include <array>
#include <poll.h>
#include <pty.h>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unistd.h>

namespace kvex::test {

struct Pty {
    int user = -1;
    int program = -1;
    Pty() {
        winsize size{24, 80, 0, 0};
        if (openpty(&user, &program, nullptr, nullptr, &size) != 0) {
            throw std::runtime_error("cannot open a terminal");
        }
    }
    ~Pty() {
        if (user >= 0) {
            close(user);
        }
        close(program);
    }
    Pty(const Pty &) = delete;
    Pty &operator=(const Pty &) = delete;

    void type(std::string_view bytes) const {
        if (write(user, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) {
            throw std::runtime_error("cannot type");
        }
    }
    /// What is there to read.
    [[nodiscard]] std::string read() const {
        std::string result;
        std::array<char, 4096> buffer{};
        pollfd wait{user, POLLIN, 0};
        while (poll(&wait, 1, 0) > 0) {
            const ssize_t count = ::read(user, buffer.data(), buffer.size());
            if (count <= 0) {
                break;
            }
            result.append(buffer.data(), static_cast<std::size_t>(count));
        }
        return result;
    }
};

} // namespace kvex::test
