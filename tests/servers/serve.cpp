// serve postgresql|mariadb|galera: a database server for a program that plays the user.
//
// Its first line is the connection string of an empty database. Then each line of the input is a
// statement; the answer is the number of its rows, and the rows, a line each. It serves until the
// input ends.
#include "tests/servers/GaleraCluster.h"
#include "tests/servers/PostgreSqlServer.h"

#include <iostream>
#include <map>

namespace kvex::test {
namespace {

const std::string database = "rules";

/// The user's program is at one server, its statements are at another.
void serve(const DatabaseServer &user, DatabaseServer &statements) {
    std::cout << user.odbcConnectionString(database) << std::endl;
    for (std::string statement; std::getline(std::cin, statement);) {
        const std::vector<std::string> rows = statements.rows(database, statement);
        std::cout << rows.size() << "\n";
        for (const std::string &row : rows) {
            std::cout << row << "\n";
        }
        std::cout << std::flush;
    }
}

template <class Server> void serveAlone() {
    Server server;
    server.createDatabase(database);
    serve(server, server);
}

void serveCluster() {
    GaleraCluster cluster;
    cluster.node(0).createDatabase(database);
    // What one node has stored is seen on the others, by whoever waits for it.
    cluster.node(2).run("mysql", "SET GLOBAL wsrep_sync_wait = 1; SET SESSION wsrep_sync_wait = 1;"
                                 "SELECT 1");
    serve(cluster.node(0), cluster.node(2));
}

const std::map<std::string, void (*)()> kinds{
    {"postgresql", serveAlone<PostgreSqlServer>},
    {"mariadb", serveAlone<MariaDbServer>},
    {"galera", serveCluster},
};

} // namespace
} // namespace kvex::test

int main(int count, char **arguments) {
    const auto kind = kvex::test::kinds.find(count == 2 ? arguments[1] : "");
    if (kind == kvex::test::kinds.end()) {
        std::cerr << "serve: say which: postgresql, mariadb or galera\n";
        return 2;
    }
    try {
        kind->second();
        return 0;
    } catch (const std::exception &failure) {
        std::cerr << "serve: " << failure.what() << "\n";
        return 1;
    }
}
