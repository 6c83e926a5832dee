// serve postgresql|mariadb|galera: a database server for a test in another language.
//
// It prints the connection string of an empty database first. It then runs each line of its input
// as a statement, and answers with the number of rows and one line for each row. It ends with its
// input.
#include "tests/servers/GaleraCluster.h"
#include "tests/servers/PostgreSqlServer.h"

#include <iostream>
#include <map>

namespace kvex::test {
namespace {

const std::string database = "rules";

/// The program under test uses the server `user`; the test's statements run on the other.
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
    // With this setting, a query on the node waits for what the others have committed.
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
        std::cerr << "serve: name a server: postgresql, mariadb or galera\n";
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
