// A port that forwards to a server, over a network that fails on demand.
#pragma once

#include <cstdint>
#include <memory>

namespace kvex::test {

/// Forwards from its creation on. Each call has taken effect when it returns.
class TcpRelay {
public:
    explicit TcpRelay(std::uint16_t serverPort);
    ~TcpRelay();
    TcpRelay(const TcpRelay &) = delete;
    TcpRelay &operator=(const TcpRelay &) = delete;

    [[nodiscard]] std::uint16_t port() const;

    /// Cuts the network: nothing arrives on either side, and neither side notices. A new connection
    /// waits for an answer.
    void cut();
    /// Closes every connection and refuses new ones.
    void refuse();
    /// Forwards again; after a cut, also what has waited.
    void restore();

private:
    class Traffic;
    std::unique_ptr<Traffic> traffic_;
};

} // namespace kvex::test
