// Presses OK in the rules window, on a server, when the stored priority of every rule must change.
#include "adapters/odbc/Provider.h"
#include "bench/servers/Client.h"
#include "bench/support/BenchSession.h"
#include "bench/support/Timing.h"

#include <stdexcept>

namespace kvex::bench {
namespace {

constexpr std::int64_t shift = 1'000'000;

/// The window shows the same order as before, but OK renumbers every rule.
template <class Server> void shiftPriorities(RulesOnServer &rules) {
    rules.run("UPDATE SMS_RULES SET PRIORITY = ID + " + std::to_string(shift));
    rules.run(Server::tidy);
}

template <class Server> void renumberByOk(benchmark::State &state) {
    RulesOnServer &rules = Server::rules(sizeOf(state));
    for (auto _ : state) {
        shiftPriorities<Server>(rules);
        BenchSession session(rules.connectionString(), odbc::provider());
        session.playRules([&state](test::User &user) {
            Stopwatch watch(state);
            user.click(u"cmdOK");
            watch.stop();
        });
        if (rules.valueOf("SELECT COUNT(*) FROM SMS_RULES WHERE PRIORITY <> ID") != "0") {
            throw std::runtime_error("a rule was not renumbered");
        }
    }
}

template <class Server> void renumberByClient(benchmark::State &state) {
    RulesOnServer &rules = Server::rules(sizeOf(state));
    for (auto _ : state) {
        shiftPriorities<Server>(rules);
        const std::unique_ptr<Client> client = Server::connect(rules);
        Stopwatch watch(state);
        const std::int64_t found = client->renumber(state.range(0), shift);
        watch.stop();
        if (found != state.range(0)) {
            throw std::runtime_error("a rule was not renumbered");
        }
    }
}

BENCHMARK(renumberByOk<PostgreSql>)->Name("postgresql_renumber")->Apply(atEverySize);
BENCHMARK(renumberByClient<PostgreSql>)->Name("postgresql_renumber.peer")->Apply(atEverySize);
BENCHMARK(renumberByOk<MariaDb>)->Name("mariadb_renumber")->Apply(atEverySize);
BENCHMARK(renumberByClient<MariaDb>)->Name("mariadb_renumber.peer")->Apply(atEverySize);

} // namespace
} // namespace kvex::bench
