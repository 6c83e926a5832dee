// A port of the loopback interface that nobody listens on.
#pragma once

#include <cstdint>

namespace kvex::test {

/// Another program may take it before a server does: who starts one tries again then. Below the
/// ports that outgoing connections get.
[[nodiscard]] std::uint16_t freePort();

} // namespace kvex::test
