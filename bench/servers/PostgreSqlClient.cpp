#include "bench/servers/Client.h"

#include <benchmark/benchmark.h>
#include <libpq-fe.h>

#include <array>
#include <stdexcept>
#include <string>

namespace kvex::bench {
namespace {

struct Clear {
    void operator()(PGresult *result) const noexcept { PQclear(result); }
};
using Result = std::unique_ptr<PGresult, Clear>;

struct Finish {
    void operator()(PGconn *connection) const noexcept { PQfinish(connection); }
};

class PostgreSqlClient final : public Client {
public:
    PostgreSqlClient(const char *const *keys, const char *const *values)
        : connection_(PQconnectdbParams(keys, values, 0)) {
        if (PQstatus(connection_.get()) != CONNECTION_OK) {
            throw std::runtime_error(PQerrorMessage(connection_.get()));
        }
    }

    std::size_t read(std::string_view query) override {
        const Result result = checked(PQexec(connection_.get(), std::string(query).c_str()));
        const int rows = PQntuples(result.get());
        const int columns = PQnfields(result.get());
        std::string value;
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < columns; ++column) {
                value.assign(PQgetvalue(result.get(), row, column),
                             static_cast<std::size_t>(PQgetlength(result.get(), row, column)));
                benchmark::DoNotOptimize(value.data());
            }
        }
        return static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns);
    }

    std::int64_t renumber(std::int64_t lastId, std::int64_t shift) override {
        checked(PQprepare(connection_.get(), "renumber",
                          R"(UPDATE "public"."sms_rules" SET "priority" = $1 WHERE "id" = $2 AND )"
                          R"("priority" = $3)",
                          0, nullptr));
        std::int64_t found = 0;
        checked(PQexec(connection_.get(), "BEGIN"));
        for (std::int64_t id = 1; id <= lastId; ++id) {
            const std::string number = std::to_string(id);
            const std::string before = std::to_string(id + shift);
            const std::array values{number.c_str(), number.c_str(), before.c_str()};
            const Result result = checked(PQexecPrepared(connection_.get(), "renumber", 3,
                                                         values.data(), nullptr, nullptr, 0));
            found += std::stoll(PQcmdTuples(result.get()));
        }
        checked(PQexec(connection_.get(), "COMMIT"));
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

std::unique_ptr<Client> postgreSqlClient(const RulesOnServer &rules) {
    const std::string port = std::to_string(rules.port());
    const std::string user = rules.user();
    const std::string password = rules.password();
    const std::array<const char *, 6> keys{"host", "port", "dbname", "user", "password", nullptr};
    const std::array<const char *, 6> values{
        "127.0.0.1",  port.c_str(),     rules.database().c_str(),
        user.c_str(), password.c_str(), nullptr};
    return std::make_unique<PostgreSqlClient>(keys.data(), values.data());
}

} // namespace kvex::bench
