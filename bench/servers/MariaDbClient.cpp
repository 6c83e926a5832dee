#include "bench/servers/Client.h"

#include <benchmark/benchmark.h>
#include <mysql.h>

#include <array>
#include <stdexcept>
#include <string>
#include <string_view>

namespace kvex::bench {
namespace {

struct Close {
    void operator()(MYSQL *connection) const noexcept { mysql_close(connection); }
    void operator()(MYSQL_STMT *statement) const noexcept { mysql_stmt_close(statement); }
    void operator()(MYSQL_RES *result) const noexcept { mysql_free_result(result); }
};

class MariaDbClient final : public Client {
public:
    explicit MariaDbClient(const RulesOnServer &rules) : connection_(mysql_init(nullptr)) {
        mysql_options(connection_.get(), MYSQL_SET_CHARSET_NAME, "utf8mb4");
        check(mysql_real_connect(connection_.get(), "127.0.0.1", rules.user().c_str(),
                                 rules.password().c_str(), rules.database().c_str(), rules.port(),
                                 nullptr, CLIENT_FOUND_ROWS) != nullptr);
    }

    std::size_t read(std::string_view query) override {
        check(mysql_real_query(connection_.get(), query.data(), query.size()) == 0);
        const std::unique_ptr<MYSQL_RES, Close> result(mysql_store_result(connection_.get()));
        check(result != nullptr);
        const unsigned int columns = mysql_num_fields(result.get());
        std::string value;
        while (MYSQL_ROW row = mysql_fetch_row(result.get())) {
            const unsigned long *lengths = mysql_fetch_lengths(result.get());
            for (unsigned int column = 0; column < columns; ++column) {
                if (row[column] != nullptr) {
                    value.assign(row[column], lengths[column]);
                    benchmark::DoNotOptimize(value.data());
                }
            }
        }
        return mysql_num_rows(result.get()) * columns;
    }

    std::int64_t renumber(std::int64_t lastId, std::int64_t shift) override {
        const std::unique_ptr<MYSQL_STMT, Close> statement(mysql_stmt_init(connection_.get()));
        const std::string text = "UPDATE `" + std::string(connection_->db) +
                                 "`.`SMS_RULES` SET `PRIORITY` = ? WHERE `ID` = ? AND "
                                 "`PRIORITY` = ?";
        check(mysql_stmt_prepare(statement.get(), text.data(), text.size()) == 0);
        std::int64_t id = 1;
        std::int64_t before = 0;
        std::array<MYSQL_BIND, 3> parameters{};
        for (MYSQL_BIND &parameter : parameters) {
            parameter.buffer_type = MYSQL_TYPE_LONGLONG;
            parameter.buffer = &id;
        }
        parameters.back().buffer = &before;
        check(mysql_stmt_bind_param(statement.get(), parameters.data()) == 0);
        std::int64_t found = 0;
        check(mysql_autocommit(connection_.get(), 0) == 0);
        for (; id <= lastId; ++id) {
            before = id + shift;
            check(mysql_stmt_execute(statement.get()) == 0);
            found += static_cast<std::int64_t>(mysql_stmt_affected_rows(statement.get()));
        }
        check(mysql_commit(connection_.get()) == 0);
        return found;
    }

private:
    void check(bool done) {
        if (!done) {
            throw std::runtime_error(mysql_error(connection_.get()));
        }
    }

    std::unique_ptr<MYSQL, Close> connection_;
};

} // namespace

std::unique_ptr<Client> mariaDbClient(const RulesOnServer &rules) {
    return std::make_unique<MariaDbClient>(rules);
}

} // namespace kvex::bench
