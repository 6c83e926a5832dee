// A session on a database server against the same statements sent by the database's own C client.
#include "adapters/headless/HeadlessToolkit.h"
#include "adapters/odbc/Provider.h"
#include "adapters/recordset/ClientConnection.h"
#include "bench/servers/Peer.h"
#include "bench/servers/RulesOnServer.h"
#include "component/RecordSearch.h"
#include "component/RuleUIClass.h"
#include "component/Session.h"
#include "platform/Text.h"
#include "tests/servers/MariaDbServer.h"
#include "tests/servers/PostgreSqlServer.h"
#include "tests/support/ComponentTest.h"

#include <benchmark/benchmark.h>

#include <array>
#include <optional>
#include <stdexcept>

namespace kvex::bench {
namespace {

struct ServerKind {
    std::string name;
    test::DatabaseServer &(*server)();
    std::unique_ptr<Peer> (*peer)(const test::DatabaseServer &server, const std::string &database);
    std::string tidy;
};

class OdbcPlatform final : public test::TestPlatform {
public:
    using TestPlatform::TestPlatform;
    std::unique_ptr<Connection> createConnection() override {
        return std::make_unique<recordset::ClientConnection>(
            std::vector<recordset::Provider>{odbc::provider()});
    }
};

/// The component's session on a database, without a window.
class ComponentSession {
public:
    ComponentSession(const test::DatabaseServer &server, const std::string &database) {
        utility_.connectionString = fromUtf8(server.odbcConnectionString(database));
        ruleUI_.emplace(platform_);
        if (!ruleUI_->OpenRules()) {
            throw std::runtime_error(toUtf8(utility_.log.front().description));
        }
    }
    ~ComponentSession() { ruleUI_->release(); }
    ComponentSession(const ComponentSession &) = delete;
    ComponentSession &operator=(const ComponentSession &) = delete;

private:
    test::UtilityRecord utility_;
    headless::HeadlessToolkit toolkit_;
    OdbcPlatform platform_{utility_, toolkit_};
    std::optional<RuleUI> ruleUI_;
};

constexpr std::array queries{
    "SELECT * FROM SMS_RULES WHERE DELETED = 0 ORDER BY PRIORITY",
    "SELECT * FROM SMS_USERS WHERE DELETED = 0",
    "SELECT * FROM SMS_ACCOUNT WHERE DELETED = 0",
    "SELECT * FROM SMS_SERVICE WHERE DELETED = 0 AND DISABLED = 0",
    "SELECT * FROM SMS_SERVICECOMMANDS WHERE SERVICE_ID IN (SELECT ID FROM SMS_SERVICE WHERE "
    "DELETED = 0 AND DISABLED = 0)"};

void open(benchmark::State &state, const ServerKind &kind) {
    test::DatabaseServer &server = kind.server();
    const std::string &database = rulesOn(server, state.range(0));
    for ([[maybe_unused]] auto iteration : state) {
        const ComponentSession opened(server, database);
    }
}

void openByPeer(benchmark::State &state, const ServerKind &kind) {
    test::DatabaseServer &server = kind.server();
    const std::string &database = rulesOn(server, state.range(0));
    for ([[maybe_unused]] auto iteration : state) {
        const std::unique_ptr<Peer> peer = kind.peer(server, database);
        for (const char *query : queries) {
            benchmark::DoNotOptimize(peer->read(query));
        }
    }
}

/// The numbers of all rules, each other than the one it has.
std::vector<Peer::Renumbering> renumbering(test::DatabaseServer &server,
                                           const std::string &database) {
    std::vector<Peer::Renumbering> rows;
    const bool fromOne = server.valueOf(database, "SELECT MIN(PRIORITY) FROM SMS_RULES") == "1";
    for (const std::string &id : server.rows(database, "SELECT ID FROM SMS_RULES ORDER BY PRIORITY")) {
        const auto number = static_cast<std::int64_t>(rows.size()) + (fromOne ? 1 : 2);
        rows.push_back({std::stoll(id), fromOne ? number + 1 : number - 1, number});
    }
    return rows;
}

template <class Store>
void renumber(benchmark::State &state, const ServerKind &kind, const Store &store) {
    test::DatabaseServer &server = kind.server();
    const std::string &database = rulesOn(server, state.range(0));
    for ([[maybe_unused]] auto iteration : state) {
        state.PauseTiming();
        server.run(database, kind.tidy);
        const std::vector<Peer::Renumbering> rows = renumbering(server, database);
        store(state, server, database, rows);
        state.ResumeTiming();
    }
}

void ok(benchmark::State &state, const ServerKind &kind) {
    renumber(state, kind,
             [](benchmark::State &timed, const test::DatabaseServer &server,
                const std::string &database, const std::vector<Peer::Renumbering> &rows) {
                 const ComponentSession opened(server, database);
                 Recordset &rules = *session().rsRules;
                 timed.ResumeTiming();
                 for (const Peer::Renumbering &row : rows) {
                     findRecordById(rules, toText(row.id));
                     rules.setField(u"PRIORITY", row.to);
                     rules.update();
                 }
                 timed.PauseTiming();
             });
}

void okByPeer(benchmark::State &state, const ServerKind &kind) {
    renumber(state, kind,
             [&kind](benchmark::State &timed, const test::DatabaseServer &server,
                     const std::string &database, const std::vector<Peer::Renumbering> &rows) {
                 const std::unique_ptr<Peer> peer = kind.peer(server, database);
                 timed.ResumeTiming();
                 const std::size_t found = peer->renumber(rows);
                 timed.PauseTiming();
                 if (found != rows.size()) {
                     throw std::runtime_error("not every rule was renumbered");
                 }
             });
}

void add(const std::string &name, const ServerKind &kind,
         void (*run)(benchmark::State &, const ServerKind &)) {
    benchmark::RegisterBenchmark((kind.name + name).c_str(), run, kind)
        ->RangeMultiplier(10)
        ->Range(100, 100000)
        ->Unit(benchmark::kMillisecond);
}

} // namespace
} // namespace kvex::bench

int main(int count, char **arguments) {
    using namespace kvex;
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments)) {
        return 2;
    }
    const std::array kinds{
        bench::ServerKind{"postgresql.",
                          []() -> test::DatabaseServer & { return test::PostgreSqlServer::shared(); },
                          &bench::postgreSqlPeer, "VACUUM FULL SMS_RULES"},
        bench::ServerKind{"mariadb.",
                          []() -> test::DatabaseServer & { return test::MariaDbServer::shared(); },
                          &bench::mariaDbPeer, "ANALYZE TABLE SMS_RULES"}};
    for (const bench::ServerKind &kind : kinds) {
        bench::add("open", kind, &bench::open);
        bench::add("open.peer", kind, &bench::openByPeer);
        bench::add("ok", kind, &bench::ok);
        bench::add("ok.peer", kind, &bench::okByPeer);
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
