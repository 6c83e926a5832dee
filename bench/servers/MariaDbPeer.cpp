#include "bench/servers/Peer.h"

#include "bench/servers/RulesOnServer.h"

#include <mysql.h>

#include <array>
#include <stdexcept>
#include <string_view>

namespace kvex::bench {
namespace {

struct Close {
    void operator()(MYSQL *connection) const noexcept { mysql_close(connection); }
    void operator()(MYSQL_STMT *statement) const noexcept { mysql_stmt_close(statement); }
    void operator()(MYSQL_RES *result) const noexcept { mysql_free_result(result); }
};

class MariaDbPeer final : public Peer {
public:
    MariaDbPeer(const Login &login, const std::string &database)
        : connection_(mysql_init(nullptr)) {
        mysql_options(connection_.get(), MYSQL_SET_CHARSET_NAME, "utf8mb4");
        check(mysql_real_connect(connection_.get(), "127.0.0.1", login.user.c_str(),
                                 login.password.c_str(), database.c_str(),
                                 static_cast<unsigned int>(std::stoul(login.port)), nullptr,
                                 CLIENT_FOUND_ROWS) != nullptr);
    }

    std::size_t read(const std::string &query) override {
        check(mysql_real_query(connection_.get(), query.data(), query.size()) == 0);
        const std::unique_ptr<MYSQL_RES, Close> result(mysql_store_result(connection_.get()));
        check(result != nullptr);
        const unsigned int columns = mysql_num_fields(result.get());
        std::size_t sum = 0;
        while (mysql_fetch_row(result.get())) {
            const unsigned long *lengths = mysql_fetch_lengths(result.get());
            for (unsigned int column = 0; column < columns; ++column) {
                sum += lengths[column];
            }
        }
        return sum;
    }

    std::size_t renumber(const std::vector<Renumbering> &rows) override {
        const std::unique_ptr<MYSQL_STMT, Close> statement(mysql_stmt_init(connection_.get()));
        constexpr std::string_view text =
            "UPDATE SMS_RULES SET `PRIORITY` = ? WHERE `ID` = ? AND `PRIORITY` = ?";
        check(mysql_stmt_prepare(statement.get(), text.data(), text.size()) == 0);
        Renumbering row{};
        std::array<MYSQL_BIND, 3> parameters{};
        parameters[0].buffer = &row.to;
        parameters[1].buffer = &row.id;
        parameters[2].buffer = &row.from;
        for (MYSQL_BIND &parameter : parameters) {
            parameter.buffer_type = MYSQL_TYPE_LONGLONG;
        }
        check(mysql_stmt_bind_param(statement.get(), parameters.data()) == 0);
        std::size_t found = 0;
        for (const Renumbering &next : rows) {
            row = next;
            check(mysql_stmt_execute(statement.get()) == 0);
            found += mysql_stmt_affected_rows(statement.get());
        }
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

std::unique_ptr<Peer> mariaDbPeer(const test::DatabaseServer &server, const std::string &database) {
    return std::make_unique<MariaDbPeer>(loginOf(server, database), database);
}

} // namespace kvex::bench
