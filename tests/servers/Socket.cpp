#include "tests/servers/Socket.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace kvex::test {
namespace {

Socket withoutAddress() {
    Socket socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    const int on = 1;
    setsockopt(socket.handle(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    return socket;
}

sockaddr_in loopback(std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

// The system's interface needs this cast.
const sockaddr *general(const sockaddr_in &address) {
    return reinterpret_cast<const sockaddr *>(&address);
}

} // namespace

Socket::~Socket() {
    if (handle_ >= 0) {
        close(handle_);
    }
}

Socket Socket::listening(std::uint16_t port) {
    Socket socket = withoutAddress();
    const sockaddr_in address = loopback(port);
    if (bind(socket.handle(), general(address), sizeof address) != 0 ||
        listen(socket.handle(), SOMAXCONN) != 0) {
        return {};
    }
    return socket;
}

Socket Socket::connected(std::uint16_t port) {
    Socket socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const sockaddr_in address = loopback(port);
    if (connect(socket.handle(), general(address), sizeof address) != 0) {
        return {};
    }
    return socket;
}

void Socket::refuse() const {
    shutdown(handle_, SHUT_RDWR);
}

void Socket::listenAgain() const {
    listen(handle_, SOMAXCONN);
}

Socket Socket::accepted() const {
    return Socket(accept4(handle_, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
}

} // namespace kvex::test
