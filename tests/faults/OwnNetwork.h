// A test program's own network, whose loopback interface can be cut.
#pragma once

#include <cstdint>

namespace kvex::test {

/// Moves the program, and all that it starts later, into a network of its own. Call this while the
/// program has one thread. Raises std::runtime_error when the system forbids it.
void enterOwnNetwork();

/// Loses all data that is sent from now on. Neither side notices. Connections stay open; a new one
/// waits for an answer. Raises std::runtime_error before enterOwnNetwork.
void cutNetwork();
/// Lets data arrive again, including what both ends have kept for sending.
void restoreNetwork();

/// True when the receiving system has acknowledged everything that was sent to the port.
[[nodiscard]] bool hasArrived(std::uint16_t port);

} // namespace kvex::test
