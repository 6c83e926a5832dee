// The network of a test program alone: its loopback interface can go dead for both sides.
#pragma once

#include <cstdint>

namespace kvex::test {

/// The program, and what it starts, see no other network from now on. To be called while the
/// program has one thread; raises std::runtime_error where the system does not permit it.
void enterOwnNetwork();

/// What is sent is lost, and nobody is told: existing connections stay, and who makes one waits
/// for an answer. Raises std::runtime_error before enterOwnNetwork.
void cutNetwork();
/// What the ends of a connection still want to send arrives.
void restoreNetwork();

/// Whether all that was sent to the port has been acknowledged by the other side's system.
[[nodiscard]] bool hasArrived(std::uint16_t port);

} // namespace kvex::test
