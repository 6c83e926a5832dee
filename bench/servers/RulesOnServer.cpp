#include "bench/servers/RulesOnServer.h"

#include "adapters/odbc/Provider.h"
#include "adapters/recordset/ClientConnection.h"
#include "adapters/recordset/Schema.h"
#include "bench/servers/SampleRules.h"
#include "platform/Text.h"

#include <algorithm>
#include <map>
#include <utility>

namespace kvex::bench {
namespace {

void createTables(const std::string &connectionString) {
    recordset::ClientConnection connection({odbc::provider()});
    static_cast<Connection &>(connection).open(fromUtf8(connectionString));
    recordset::createSchema(connection);
}

void addRules(test::DatabaseServer &server, const std::string &database, std::int64_t count) {
    constexpr std::int64_t atOnce = 500;
    for (std::int64_t first = 1; first <= count; first += atOnce) {
        std::string statement =
            "INSERT INTO SMS_RULES (Name, QueryParam, ActionParam, PRIORITY) VALUES ";
        for (std::int64_t number = first; number < std::min(first + atOnce, count + 1); ++number) {
            const SampleRule rule = sampleRule(number);
            statement += number > first ? ", ('" : "('";
            statement += rule.name + "', '" + rule.queryParam + "', '" + rule.actionParam + "', " +
                         std::to_string(number) + ")";
        }
        server.run(database, statement);
    }
}

void addOthers(test::DatabaseServer &server, const std::string &database) {
    for (int i = 1; i <= 20; ++i) {
        const std::string number = std::to_string(i);
        server.run(database, "INSERT INTO SMS_USERS (NAME) VALUES ('User " + number +
                                 "');"
                                 "INSERT INTO SMS_ACCOUNT (NAME, BIND_MODE) VALUES ('Account " +
                                 number +
                                 "', 'TRANSCEIVER');"
                                 "INSERT INTO SMS_SERVICE (NAME) VALUES ('Service " +
                                 number +
                                 "');"
                                 "INSERT INTO SMS_SERVICECOMMANDS (SERVICE_ID, NAME) VALUES (" +
                                 number + ", 'COMMAND" + number + "')");
    }
}

} // namespace

Login loginOf(const test::DatabaseServer &server, const std::string &database) {
    const std::u16string text = fromUtf8(server.odbcConnectionString(database));
    const recordset::ConnectionString parsed(text);
    return {std::to_string(server.port()), toUtf8(parsed.value(u"UID")),
            toUtf8(parsed.value(u"PWD"))};
}

const std::string &rulesOn(test::DatabaseServer &server, std::int64_t count) {
    static std::map<std::pair<const test::DatabaseServer *, std::int64_t>, std::string> made;
    std::string &name = made[{&server, count}];
    if (name.empty()) {
        name = "rules" + std::to_string(count);
        server.createDatabase(name);
        createTables(server.odbcConnectionString(name));
        addRules(server, name, count);
        addOthers(server, name);
    }
    return name;
}

} // namespace kvex::bench
