// The network of a test program alone: its loopback interface can go dead for both sides.
#pragma once

namespace kvex::test {

/// The program, and what it starts, see no other network from now on. To be called while the
/// program has one thread; raises std::runtime_error where the system does not permit it.
void enterOwnNetwork();

/// What is sent is lost, and nobody is told; existing connections stay. A new one is refused at
/// once. Raises std::runtime_error before enterOwnNetwork.
void cutNetwork();
/// What the ends of a connection still want to send arrives.
void restoreNetwork();

} // namespace kvex::test
