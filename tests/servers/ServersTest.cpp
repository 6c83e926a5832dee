// Each kind of server starts, answers, keeps its data, and leaves nothing behind.
#include "tests/servers/MariaDbServer.h"
#include "tests/servers/PostgreSqlServer.h"

#include <gtest/gtest.h>

#include <csignal>

namespace kvex::test {
namespace {

bool runs(pid_t pid) {
    return ::kill(pid, 0) == 0;
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

} // namespace
} // namespace kvex::test
