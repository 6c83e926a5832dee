// Finds a port of the loopback interface on which nobody listens.
#pragma once

#include <cstdint>

namespace kvex::test {

/// Another program may take the port before a server does; the caller then tries another one. The
/// port lies below those that the system gives to outgoing connections.
[[nodiscard]] std::uint16_t freePort();

} // namespace kvex::test
