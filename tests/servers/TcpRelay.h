// A port that forwards to a server, and the network between that fails on demand.
#pragma once

#include <cstdint>
#include <memory>

namespace kvex::test {

/// Forwards from its creation on. What each call says holds when it returns.
class TcpRelay {
public:
    explicit TcpRelay(std::uint16_t serverPort);
    ~TcpRelay();
    TcpRelay(const TcpRelay &) = delete;
    TcpRelay &operator=(const TcpRelay &) = delete;

    [[nodiscard]] std::uint16_t port() const;

    /// The network is dead: nothing arrives on either side, and nobody is told. Who connects now
    /// waits for an answer.
    void cut();
    /// Nobody is there: every connection is closed, a new one is refused.
    void refuse();
    /// Forwards again, after cut all that waited too.
    void restore();

private:
    class Traffic;
    std::unique_ptr<Traffic> traffic_;
};

} // namespace kvex::test
