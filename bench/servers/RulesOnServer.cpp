#include "bench/servers/RulesOnServer.h"

#include "adapters/odbc/Provider.h"
#include "adapters/recordset/ClientConnection.h"
#include "bench/support/RuleSet.h"
#include "host/suite/Schema.h"
#include "platform/Text.h"

#include <map>
#include <utility>

namespace kvex::bench {
namespace {

std::string literal(std::u16string_view text) {
    return " '" + toUtf8(text) + "',";
}

std::string valueOfKey(std::u16string_view connectionString, std::u16string_view key) {
    return toUtf8(recordset::ConnectionString(connectionString).value(key));
}

} // namespace

RulesOnServer &RulesOnServer::on(test::DatabaseServer &server, std::size_t rules) {
    static std::map<std::pair<test::DatabaseServer *, std::size_t>, RulesOnServer> made;
    return made.try_emplace({&server, rules}, server, rules).first->second;
}

RulesOnServer::RulesOnServer(test::DatabaseServer &server, std::size_t rules)
    : server_(server), database_("rules" + std::to_string(rules)) {
    server.createDatabase(database_);
    {
        recordset::ClientConnection connection({odbc::provider()});
        static_cast<Connection &>(connection).open(connectionString());
        host::createSchema(connection);
    }
    addNamed(userCount, "SMS_USERS");
    addNamed(accountCount, "SMS_ACCOUNT", ", BIND_MODE", ", 'TRANSCEIVER'");
    addNamed(serviceCount, "SMS_SERVICE");
    addNamed(commandCount, "SMS_SERVICECOMMANDS", ", SERVICE_ID", ", 1");
    addRules(rules);
}

std::u16string RulesOnServer::connectionString() const {
    return fromUtf8(server_.odbcConnectionString(database_));
}

std::string RulesOnServer::user() const {
    return valueOfKey(connectionString(), u"UID");
}

std::string RulesOnServer::password() const {
    return valueOfKey(connectionString(), u"PWD");
}

void RulesOnServer::addRules(std::size_t count) {
    constexpr std::size_t atOnce = 500;
    RuleSet rules;
    while (count > 0) {
        std::string statement =
            "INSERT INTO SMS_RULES (Name, QueryParam, ActionParam, PRIORITY, ACTIVE) VALUES";
        std::string_view separator = " (";
        for (std::size_t i = 0; i < atOnce && count > 0; ++i, --count) {
            const RuleRow rule = rules.next();
            statement.append(separator)
                .append(literal(rule.name))
                .append(literal(rule.queryParam))
                .append(literal(rule.actionParam))
                .append(std::to_string(rule.priority) + ", " + std::to_string(rule.active) + ")");
            separator = ", (";
        }
        run(statement);
    }
}

void RulesOnServer::addNamed(int count, const std::string &table, const std::string &columns,
                             const std::string &rest) {
    std::string statement = "INSERT INTO " + table + " (NAME" + columns + ") VALUES";
    for (int i = 1; i <= count; ++i) {
        statement.append(i > 1 ? ", ('" : " ('");
        statement.append(table).append(" ").append(std::to_string(i)).append("'");
        statement.append(rest).append(")");
    }
    run(statement);
}

} // namespace kvex::bench
