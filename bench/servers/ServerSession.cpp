#include "bench/servers/ServerSession.h"

#include "adapters/odbc/Provider.h"
#include "adapters/recordset/ClientConnection.h"
#include "platform/Text.h"

#include <stdexcept>
#include <vector>

namespace kvex::bench {

std::unique_ptr<Connection> ServerSession::OdbcPlatform::createConnection() {
    return std::make_unique<recordset::ClientConnection>(
        std::vector<recordset::Provider>{odbc::provider()});
}

ServerSession::ServerSession(const RulesOnServer &rules) {
    utility_.connectionString = rules.connectionString();
}

ServerSession::~ServerSession() {
    ruleUI_.release();
}

void ServerSession::open() {
    ruleUI_.OpenRules();
    requireNoError();
}

void ServerSession::playRules(test::Script script) {
    toolkit_.whenShown(u"frmRuleEdit", [](test::User &user) { user.press(test::Key::escape); });
    toolkit_.whenShown(u"frmRules", std::move(script));
    ruleUI_.ShowRules(u"1", u"");
    requireNoError();
}

void ServerSession::requireNoError() const {
    if (!utility_.log.empty()) {
        const test::LogEntry &entry = utility_.log.front();
        throw std::runtime_error(toUtf8(entry.text) + ": " + toUtf8(entry.description));
    }
}

} // namespace kvex::bench
