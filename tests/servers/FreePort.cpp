#include "tests/servers/FreePort.h"

#include "tests/servers/Socket.h"

#include <random>
#include <set>

namespace kvex::test {

std::uint16_t freePort() {
    static std::mt19937 random{std::random_device{}()};
    static std::set<std::uint16_t> given;
    std::uniform_int_distribution<std::uint16_t> ports(20000, 32000);
    for (;;) {
        const std::uint16_t port = ports(random);
        if (Socket::listening(port) && given.insert(port).second) {
            return port;
        }
    }
}

} // namespace kvex::test
