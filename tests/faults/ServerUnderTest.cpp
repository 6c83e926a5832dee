#include "tests/faults/ServerUnderTest.h"

#include "platform/Text.h"
#include "tests/databases/ServerFixture.h"
#include "tests/faults/OwnNetwork.h"
#include "tests/servers/MariaDbServer.h"
#include "tests/servers/PostgreSqlServer.h"

namespace kvex::test {
namespace {

template <class Server> DatabaseServer &shared() {
    return Server::shared();
}

void start(ServerUnderTest &test) {
    test.server.start();
}

} // namespace

std::u16string addressOf(std::uint16_t port) {
    return u"127.0.0.1:" + toText(std::int64_t{port});
}

std::vector<ServerKindUnderTest> serversUnderTest() {
    return {{postgreSqlServer(), &shared<PostgreSqlServer>, "postgres",
             "SELECT COUNT(*) FROM pg_stat_activity WHERE wait_event_type = 'Lock'",
             "SELECT COUNT(*) FROM pg_stat_activity WHERE backend_xid IS NOT NULL"},
            {mariaDbServer(), &shared<MariaDbServer>, "mysql",
             "SELECT VARIABLE_VALUE FROM information_schema.GLOBAL_STATUS WHERE VARIABLE_NAME = "
             "'INNODB_ROW_LOCK_CURRENT_WAITS'",
             "SELECT COUNT(*) FROM information_schema.INNODB_TRX WHERE TRX_ROWS_MODIFIED > 0"}};
}

std::vector<WayToGo> waysToGo() {
    return {
        {"Stopped", false, [](ServerUnderTest &test) { test.server.stop(); }, &start},
        {"Killed", false, [](ServerUnderTest &test) { test.server.kill(); }, &start},
        {"CutOff", true, [](ServerUnderTest &test) { test.relay.refuse(); },
         [](ServerUnderTest &test) { test.relay.restore(); }},
        {"Silent", false, [](ServerUnderTest &) { cutNetwork(); },
         [](ServerUnderTest &) { restoreNetwork(); }},
    };
}

} // namespace kvex::test
