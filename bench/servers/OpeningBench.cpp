// Opens the session on a server: the connection and the five record sets.
#include "adapters/odbc/Provider.h"
#include "bench/servers/Client.h"
#include "bench/support/BenchSession.h"
#include "bench/support/Timing.h"

namespace kvex::bench {
namespace {

template <class Server> void open(benchmark::State &state) {
    const RulesOnServer &rules = Server::rules(sizeOf(state));
    for (auto _ : state) {
        BenchSession session(rules.connectionString(), odbc::provider());
        Stopwatch watch(state);
        session.open();
        watch.stop();
    }
}

template <class Server> void openByClient(benchmark::State &state) {
    const RulesOnServer &rules = Server::rules(sizeOf(state));
    for (auto _ : state) {
        Stopwatch watch(state);
        const std::unique_ptr<Client> client = Server::connect(rules);
        for (const std::string_view query : sessionQueries) {
            benchmark::DoNotOptimize(client->read(query));
        }
        watch.stop();
    }
}

BENCHMARK(open<PostgreSql>)->Name("postgresql_session")->Apply(atEverySize);
BENCHMARK(openByClient<PostgreSql>)->Name("postgresql_session.peer")->Apply(atEverySize);
BENCHMARK(open<MariaDb>)->Name("mariadb_session")->Apply(atEverySize);
BENCHMARK(openByClient<MariaDb>)->Name("mariadb_session.peer")->Apply(atEverySize);

} // namespace
} // namespace kvex::bench
