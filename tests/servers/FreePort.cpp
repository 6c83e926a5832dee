#include "tests/servers/FreePort.h"

#include "tests/servers/Socket.h"

#include <random>

namespace kvex::test {

std::uint16_t freePort() {
    static std::mt19937 random{std::random_device{}()};
    std::uniform_int_distribution<std::uint16_t> ports(20000, 32000);
    for (;;) {
        const std::uint16_t port = ports(random);
        if (Socket::listening(port)) {
            return port;
        }
    }
}

} // namespace kvex::test
