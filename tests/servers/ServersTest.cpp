// Each kind of server starts, answers, keeps its data, and leaves no process or file behind.
#include "tests/servers/MariaDbServer.h"
#include "tests/servers/PostgreSqlServer.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <poll.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

// This header of glibc 2.36 lacks extern "C".
extern "C" {
#include <sys/pidfd.h>
}

namespace kvex::test {
namespace {

bool runs(pid_t pid) {
    return ::kill(pid, 0) == 0;
}

/// The letter for the process's state, such as "T" for a stopped one.
std::string stateOf(pid_t pid) {
    std::ifstream status("/proc/" + std::to_string(pid) + "/stat");
    std::string number;
    std::string program;
    std::string state;
    status >> number >> program >> state;
    return state;
}

template <class Server> class Servers : public testing::Test {
protected:
    void SetUp() override {
        server.createDatabase("rules");
        server.run("rules", "CREATE TABLE t (id integer, name varchar(50));"
                            "INSERT INTO t VALUES (1, 'ग्राहक 📱'), (2, NULL)");
    }

    Server server;
};

using Kinds = testing::Types<PostgreSqlServer, MariaDbServer>;
TYPED_TEST_SUITE(Servers, Kinds);

TYPED_TEST(Servers, AServerAnswers) {
    EXPECT_EQ(this->server.rows("rules", "SELECT id, name FROM t ORDER BY id"),
              (std::vector<std::string>{"1|ग्राहक 📱", "2|NULL"}));
    EXPECT_EQ(this->server.valueOf("rules", "SELECT COUNT(*) FROM t"), "2");
    EXPECT_EQ(this->server.valueOf("rules", "SELECT id FROM t WHERE id = 3"), "NONE");
}

TYPED_TEST(Servers, AStatementThatTheServerRefusesRaises) {
    EXPECT_THROW(this->server.run("rules", "SELECT * FROM nothing"), std::runtime_error);
}

TYPED_TEST(Servers, AServerKeepsItsDataOverAStop) {
    const auto port = this->server.port();
    const pid_t before = this->server.pid();
    this->server.stop();
    EXPECT_FALSE(runs(before));
    EXPECT_EQ(this->server.pid(), 0);
    EXPECT_THROW(this->server.run("rules", "SELECT 1"), std::runtime_error);
    this->server.start();
    EXPECT_EQ(this->server.port(), port);
    EXPECT_EQ(this->server.valueOf("rules", "SELECT COUNT(*) FROM t"), "2");
}

TYPED_TEST(Servers, AKilledServerKeepsWhatWasStored) {
    const pid_t before = this->server.pid();
    this->server.kill();
    EXPECT_FALSE(runs(before));
    this->server.start();
    EXPECT_EQ(this->server.valueOf("rules", "SELECT COUNT(*) FROM t"), "2");
}

TYPED_TEST(Servers, ADroppedDatabaseIsGone) {
    this->server.dropDatabase("rules");
    EXPECT_THROW(this->server.run("rules", "SELECT 1"), std::runtime_error);
}

TYPED_TEST(Servers, AFrozenServerDoesNothingUntilItIsThawed) {
    this->server.freeze();
    EXPECT_EQ(stateOf(this->server.pid()), "T");
    this->server.thaw();
    EXPECT_EQ(this->server.valueOf("rules", "SELECT COUNT(*) FROM t"), "2");
}

TYPED_TEST(Servers, AFrozenServerIsStoppedAndKilled) {
    this->server.freeze();
    this->server.stop();
    this->server.start();
    this->server.freeze();
    this->server.kill();
    this->server.start();
    EXPECT_EQ(this->server.valueOf("rules", "SELECT COUNT(*) FROM t"), "2");
}

TYPED_TEST(Servers, AServerEndsWithATestProgramThatCrashes) {
    // This folder shows whether the server leaves anything behind.
    const ServerFolder folder;
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    const pid_t crashing = fork();
    if (crashing == 0) {
        setenv("TMPDIR", folder.path().c_str(), 1);
        const TypeParam crashed;
        const pid_t pid = crashed.pid();
        if (write(ends[1], &pid, sizeof pid) == sizeof pid) {
            pause();
        }
        _exit(1);
    }
    pid_t pid = 0;
    ASSERT_EQ(read(ends[0], &pid, sizeof pid), static_cast<ssize_t>(sizeof pid));
    const int handle = pidfd_open(pid, 0);
    ASSERT_GE(handle, 0);
    ::kill(crashing, SIGKILL);
    waitpid(crashing, nullptr, 0);
    pollfd ended{handle, POLLIN, 0};
    constexpr int hang = 120'000;
    EXPECT_EQ(poll(&ended, 1, hang), 1);
    while (!std::filesystem::is_empty(folder.path())) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    for (const int end : {handle, ends[0], ends[1]}) {
        close(end);
    }
}

} // namespace
} // namespace kvex::test
