#include "tests/faults/OwnNetwork.h"

#include "tests/servers/Socket.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <net/if.h>
#include <sched.h>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace kvex::test {
namespace {

bool isOwn = false;

[[noreturn]] void fail(const std::string &what) {
    throw std::runtime_error(what + ": " + std::strerror(errno)); // NOLINT(concurrency-mt-unsafe)
}

void write(const char *file, const std::string &text) {
    if (!(std::ofstream(file) << text << std::flush)) {
        fail(std::string("cannot write ") + file);
    }
}

/// A user who may not create a network may create one in a user namespace of their own.
void enterOwnUsers() {
    const std::string user = std::to_string(geteuid());
    const std::string group = std::to_string(getegid());
    if (unshare(CLONE_NEWUSER) != 0) {
        fail("the test needs a network of its own: run it as root, or where users may make "
             "namespaces");
    }
    write("/proc/self/setgroups", "deny");
    write("/proc/self/uid_map", user + ' ' + user + " 1");
    write("/proc/self/gid_map", group + ' ' + group + " 1");
}

void setLoopback(bool on) {
    if (!isOwn) {
        throw std::runtime_error("the test has no network of its own");
    }
    const Socket any(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    ifreq loopback{};
    std::strncpy(loopback.ifr_name, "lo", sizeof loopback.ifr_name - 1);
    loopback.ifr_flags = on ? IFF_UP : 0;
    if (ioctl(any.handle(), SIOCSIFFLAGS, &loopback) != 0) {
        fail("the loopback interface cannot be switched");
    }
}

} // namespace

void enterOwnNetwork() {
    if (unshare(CLONE_NEWNET) != 0) {
        enterOwnUsers();
        if (unshare(CLONE_NEWNET) != 0) {
            fail("the test may not make a network of its own");
        }
    }
    isOwn = true;
    restoreNetwork();
}

void cutNetwork() {
    setLoopback(false);
}

void restoreNetwork() {
    setLoopback(true);
}

bool hasArrived(std::uint16_t port) {
    constexpr std::string_view established = "01";
    constexpr std::string_view nothing = "00000000";
    std::ifstream connections("/proc/thread-self/net/tcp");
    std::string line;
    std::getline(connections, line);
    while (std::getline(connections, line)) {
        std::istringstream columns(line);
        std::string ignored;
        std::string to;
        std::string state;
        std::string unacknowledged;
        columns >> ignored >> ignored >> to >> state >> unacknowledged;
        if (state == established && !unacknowledged.starts_with(nothing) &&
            std::stoi(to.substr(to.find(':') + 1), nullptr, 16) == port) {
            return false;
        }
    }
    return true;
}

} // namespace kvex::test
