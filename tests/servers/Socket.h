// A TCP socket of the loopback interface.
#pragma once

#include <cstdint>
#include <utility>

namespace kvex::test {

class Socket {
public:
    Socket() = default;
    explicit Socket(int handle) : handle_(handle) {}
    ~Socket();
    Socket(Socket &&other) noexcept : handle_(std::exchange(other.handle_, -1)) {}
    Socket &operator=(Socket &&other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    Socket(const Socket &) = delete;
    Socket &operator=(const Socket &) = delete;

    /// A listening socket has no handle when its port is taken. A connected one has none when
    /// nobody listens there. Listening and accepted sockets do not block.
    [[nodiscard]] static Socket listening(std::uint16_t port);
    [[nodiscard]] static Socket connected(std::uint16_t port);
    [[nodiscard]] Socket accepted() const;
    /// Makes a listening socket refuse connections, and listen again. It keeps its port.
    void refuse() const;
    void listenAgain() const;

    [[nodiscard]] explicit operator bool() const noexcept { return handle_ >= 0; }
    [[nodiscard]] int handle() const noexcept { return handle_; }

private:
    int handle_ = -1;
};

} // namespace kvex::test
