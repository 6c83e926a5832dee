#include "tests/servers/FreePort.h"

#include "tests/servers/Socket.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <numeric>
#include <random>
#include <unistd.h>

namespace kvex::test {
namespace {

constexpr std::uint16_t first = 20000;
constexpr std::uint16_t blocks = 48;
using Ports = std::array<std::uint16_t, 250>;

/// The ports of this process in any order. Processes that run at the same time have other ones, as
/// their numbers seldom differ by a multiple of the number of blocks.
Ports portsOfProcess() {
    Ports ports{};
    std::iota(ports.begin(), ports.end(),
              static_cast<std::uint16_t>(first + getpid() % blocks * int{Ports().size()}));
    std::ranges::shuffle(ports, std::mt19937(std::random_device{}()));
    return ports;
}

} // namespace

std::uint16_t freePort() {
    static const Ports ports = portsOfProcess();
    static std::atomic<std::size_t> given = 0;
    for (;;) {
        const std::uint16_t port = ports.at(given++ % ports.size());
        if (Socket::listening(port)) {
            return port;
        }
    }
}

} // namespace kvex::test
