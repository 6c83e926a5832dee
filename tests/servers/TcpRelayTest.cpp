// The relay forwards, cuts and refuses.
#include "tests/servers/TcpRelay.h"
#include "tests/servers/FreePort.h"
#include "tests/servers/Socket.h"

#include <gtest/gtest.h>

#include <array>
#include <poll.h>
#include <string>
#include <sys/socket.h>

namespace kvex::test {
namespace {

/// The test itself plays the server.
class Relay : public testing::Test {
protected:
    static void send(const Socket &socket, const std::string &text) {
        ASSERT_EQ(::send(socket.handle(), text.data(), text.size(), MSG_NOSIGNAL),
                  static_cast<ssize_t>(text.size()));
    }
    static void await(const Socket &socket) {
        pollfd event{socket.handle(), POLLIN, 0};
        poll(&event, 1, -1);
    }
    /// Waits for this number of characters; adds "END" when the connection closes before.
    static std::string received(const Socket &socket, std::size_t count) {
        std::string text;
        while (text.size() < count) {
            await(socket);
            std::array<char, 100> buffer{};
            const ssize_t more = recv(socket.handle(), buffer.data(), buffer.size(), 0);
            if (more <= 0) {
                return text + "END";
            }
            text.append(buffer.data(), static_cast<std::size_t>(more));
        }
        return text;
    }
    static bool hasNothing(const Socket &socket) {
        char next = 0;
        return recv(socket.handle(), &next, 1, MSG_DONTWAIT | MSG_PEEK) < 0 && errno == EAGAIN;
    }
    Socket accept() const {
        await(server);
        return server.accepted();
    }

    std::uint16_t serverPort = freePort();
    Socket server = Socket::listening(serverPort);
    TcpRelay relay{serverPort};
};

TEST_F(Relay, ForwardsBothWays) {
    const Socket client = Socket::connected(relay.port());
    const Socket other = accept();
    send(client, "question");
    EXPECT_EQ(received(other, 8), "question");
    send(other, "answer");
    EXPECT_EQ(received(client, 6), "answer");
}

TEST_F(Relay, ClosesOneSideWhenTheOtherHasClosed) {
    const Socket client = Socket::connected(relay.port());
    { const Socket other = accept(); }
    EXPECT_EQ(received(client, 1), "END");
}

TEST_F(Relay, WhatIsSentOverACutNetworkArrivesOnceItIsRestored) {
    const Socket client = Socket::connected(relay.port());
    const Socket other = accept();
    relay.cut();
    send(client, "question");
    // When a second relay has forwarded a later text, the first has had time to forward too.
    TcpRelay second(serverPort);
    const Socket late = Socket::connected(second.port());
    const Socket lateOther = accept();
    send(late, "late");
    EXPECT_EQ(received(lateOther, 4), "late");
    EXPECT_TRUE(hasNothing(other));
    EXPECT_TRUE(hasNothing(client));
    relay.restore();
    EXPECT_EQ(received(other, 8), "question");
}

TEST_F(Relay, AConnectionOverACutNetworkWaits) {
    relay.cut();
    const Socket client = Socket::connected(relay.port());
    ASSERT_TRUE(client);
    send(client, "question");
    EXPECT_FALSE(server.accepted());
    relay.restore();
    EXPECT_EQ(received(accept(), 8), "question");
}

TEST_F(Relay, RefusingClosesWhatIsOpenAndAcceptsNone) {
    const Socket client = Socket::connected(relay.port());
    const Socket other = accept();
    relay.refuse();
    EXPECT_EQ(received(client, 1), "END");
    EXPECT_EQ(received(other, 1), "END");
    EXPECT_FALSE(Socket::connected(relay.port()));
    relay.restore();
    EXPECT_TRUE(Socket::connected(relay.port()));
}

} // namespace
} // namespace kvex::test
