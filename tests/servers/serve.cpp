// serve postgresql|mariadb: a database server for a program that plays the user.
//
// Its first line is the connection string of an empty database. Then each line of the input is a
// statement; the answer is the number of its rows, and the rows, a line each. It serves until the
// input ends.
#include "tests/servers/MariaDbServer.h"
#include "tests/servers/PostgreSqlServer.h"

#include <functional>
#include <iostream>
#include <map>

namespace kvex::test {
namespace {

template <class Server> std::unique_ptr<DatabaseServer> make() {
    return std::make_unique<Server>();
}

const std::map<std::string, std::function<std::unique_ptr<DatabaseServer>()>> kinds{
    {"postgresql", make<PostgreSqlServer>},
    {"mariadb", make<MariaDbServer>},
};

void serve(DatabaseServer &server) {
    const std::string database = "rules";
    server.createDatabase(database);
    std::cout << server.odbcConnectionString(database) << std::endl;
    for (std::string statement; std::getline(std::cin, statement);) {
        const std::vector<std::string> rows = server.rows(database, statement);
        std::cout << rows.size() << "\n";
        for (const std::string &row : rows) {
            std::cout << row << "\n";
        }
        std::cout << std::flush;
    }
}

} // namespace
} // namespace kvex::test

int main(int count, char **arguments) {
    const auto kind = kvex::test::kinds.find(count == 2 ? arguments[1] : "");
    if (kind == kvex::test::kinds.end()) {
        std::cerr << "serve: say which: postgresql or mariadb\n";
        return 2;
    }
    try {
        kvex::test::serve(*kind->second());
        return 0;
    } catch (const std::exception &failure) {
        std::cerr << "serve: " << failure.what() << "\n";
        return 1;
    }
}
