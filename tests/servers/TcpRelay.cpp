#include "tests/servers/TcpRelay.h"

#include "tests/servers/FreePort.h"
#include "tests/servers/Socket.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <list>
#include <mutex>
#include <poll.h>
#include <string>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace kvex::test {
namespace {

/// Data on its way from one side to the other.
struct Direction {
    const Socket *from;
    const Socket *to;
    std::string waiting;

    /// Moves data as far as it can without waiting; false when a side has closed.
    bool move() {
        if (waiting.empty()) {
            std::array<char, 16384> buffer{};
            const ssize_t count = recv(from->handle(), buffer.data(), buffer.size(), MSG_DONTWAIT);
            if (count <= 0) {
                return count < 0 && errno == EAGAIN;
            }
            waiting.assign(buffer.data(), static_cast<std::size_t>(count));
        }
        const ssize_t count =
            send(to->handle(), waiting.data(), waiting.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
        if (count < 0) {
            return errno == EAGAIN;
        }
        waiting.erase(0, static_cast<std::size_t>(count));
        return true;
    }
    /// The event that lets data move.
    [[nodiscard]] pollfd next() const {
        return waiting.empty() ? pollfd{from->handle(), POLLIN, 0}
                               : pollfd{to->handle(), POLLOUT, 0};
    }
};

struct Link {
    Link(Socket ofClient, Socket ofServer)
        : client(std::move(ofClient)), server(std::move(ofServer)) {}

    Socket client;
    Socket server;
    std::array<Direction, 2> directions{Direction{&client, &server, {}},
                                        Direction{&server, &client, {}}};

    bool move() {
        return std::ranges::all_of(directions,
                                   [](Direction &direction) { return direction.move(); });
    }
};

Socket listeningSomewhere(std::uint16_t &port) {
    for (;;) {
        port = freePort();
        if (Socket socket = Socket::listening(port)) {
            return socket;
        }
    }
}

} // namespace

/// Forwards on its own thread. The public functions may run on any thread.
class TcpRelay::Traffic {
public:
    explicit Traffic(std::uint16_t serverPort)
        : serverPort_(serverPort), listener_(listeningSomewhere(port_)) {
        thread_ = std::thread([this] { run(); });
    }
    ~Traffic() {
        change([this] { ended_ = true; });
        thread_.join();
    }
    Traffic(const Traffic &) = delete;
    Traffic &operator=(const Traffic &) = delete;

    [[nodiscard]] std::uint16_t port() const { return port_; }

    void cut() {
        change([this] { forwards_ = false; });
    }
    void refuse() {
        change([this] {
            listener_.refuse();
            accepts_ = false;
            links_.clear();
        });
    }
    void restore() {
        change([this] {
            if (!accepts_) {
                listener_.listenAgain();
                accepts_ = true;
            }
            forwards_ = true;
        });
    }

private:
    template <class Change> void change(Change what) {
        const std::lock_guard lock(mutex_);
        what();
        eventfd_write(wake_.handle(), 1);
    }

    void run() {
        std::unique_lock lock(mutex_);
        while (!ended_) {
            std::vector<pollfd> events = awaited();
            lock.unlock();
            poll(events.data(), events.size(), -1);
            lock.lock();
            eventfd_t ignored = 0;
            eventfd_read(wake_.handle(), &ignored);
            if (forwards_) {
                forward();
            }
        }
    }

    [[nodiscard]] std::vector<pollfd> awaited() const {
        std::vector<pollfd> events{{wake_.handle(), POLLIN, 0}};
        if (forwards_ && accepts_) {
            events.push_back({listener_.handle(), POLLIN, 0});
            for (const Link &link : links_) {
                for (const Direction &direction : link.directions) {
                    events.push_back(direction.next());
                }
            }
        }
        return events;
    }

    void forward() {
        while (Socket client = accepts_ ? listener_.accepted() : Socket()) {
            if (Socket server = Socket::connected(serverPort_)) {
                links_.emplace_back(std::move(client), std::move(server));
            }
        }
        links_.remove_if([](Link &link) { return !link.move(); });
    }

    std::uint16_t serverPort_;
    std::uint16_t port_ = 0;
    Socket listener_;
    Socket wake_{eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)};
    std::mutex mutex_;
    bool forwards_ = true;
    bool accepts_ = true;
    bool ended_ = false;
    /// A list keeps its elements in place, and the directions point into them.
    std::list<Link> links_;
    std::thread thread_;
};

TcpRelay::TcpRelay(std::uint16_t serverPort) : traffic_(std::make_unique<Traffic>(serverPort)) {}

TcpRelay::~TcpRelay() = default;

std::uint16_t TcpRelay::port() const {
    return traffic_->port();
}

void TcpRelay::cut() {
    traffic_->cut();
}

void TcpRelay::refuse() {
    traffic_->refuse();
}

void TcpRelay::restore() {
    traffic_->restore();
}

} // namespace kvex::test
