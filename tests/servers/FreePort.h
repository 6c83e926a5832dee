// Finds a port of the loopback interface on which nobody listens.
#pragma once

#include <cstdint>

namespace kvex::test {

/// A process gets each port once, so a server may open it later. Another program
/// may still take it before; the caller then tries another one. The port lies below those that the
/// system gives to outgoing connections.
[[nodiscard]] std::uint16_t freePort();

} // namespace kvex::test
