#include "bench/servers/Peer.h"

#include "bench/servers/RulesOnServer.h"

#include <libpq-fe.h>

#include <array>
#include <stdexcept>

namespace kvex::bench {
namespace {

struct Clear {
    void operator()(PGresult *result) const noexcept { PQclear(result); }
};
using Result = std::unique_ptr<PGresult, Clear>;

struct Finish {
    void operator()(PGconn *connection) const noexcept { PQfinish(connection); }
};

class PostgreSqlPeer final : public Peer {
public:
    PostgreSqlPeer(const char *const *keys, const char *const *values)
        : connection_(PQconnectdbParams(keys, values, 0)) {
        if (PQstatus(connection_.get()) != CONNECTION_OK) {
            throw std::runtime_error(PQerrorMessage(connection_.get()));
        }
    }

    std::size_t read(const std::string &query) override {
        const Result result = checked(PQexec(connection_.get(), query.c_str()));
        std::size_t sum = 0;
        for (int row = 0; row < PQntuples(result.get()); ++row) {
            for (int column = 0; column < PQnfields(result.get()); ++column) {
                sum += static_cast<std::size_t>(PQgetlength(result.get(), row, column));
            }
        }
        return sum;
    }

    std::size_t renumber(const std::vector<Renumbering> &rows) override {
        checked(PQprepare(connection_.get(), "renumber",
                          R"(UPDATE "public"."sms_rules" SET "priority" = $1 WHERE "id" = $2 AND )"
                          R"("priority" = $3)",
                          0, nullptr));
        std::size_t found = 0;
        for (const Renumbering &row : rows) {
            const std::array texts{std::to_string(row.to), std::to_string(row.id),
                                   std::to_string(row.from)};
            const std::array values{texts[0].c_str(), texts[1].c_str(), texts[2].c_str()};
            const Result result = checked(PQexecPrepared(connection_.get(), "renumber", 3,
                                                         values.data(), nullptr, nullptr, 0));
            found += std::stoul(PQcmdTuples(result.get()));
        }
        return found;
    }

private:
    Result checked(PGresult *given) {
        Result result(given);
        const ExecStatusType status = PQresultStatus(given);
        if (status != PGRES_TUPLES_OK && status != PGRES_COMMAND_OK) {
            throw std::runtime_error(PQerrorMessage(connection_.get()));
        }
        return result;
    }

    std::unique_ptr<PGconn, Finish> connection_;
};

} // namespace

std::unique_ptr<Peer> postgreSqlPeer(const test::DatabaseServer &server,
                                     const std::string &database) {
    const Login login = loginOf(server, database);
    const std::array<const char *, 6> keys{"host", "port", "dbname", "user", "password", nullptr};
    const std::array<const char *, 6> values{
        "127.0.0.1",         login.port.c_str(),     database.c_str(),
        login.user.c_str(), login.password.c_str(), nullptr};
    return std::make_unique<PostgreSqlPeer>(keys.data(), values.data());
}

} // namespace kvex::bench
