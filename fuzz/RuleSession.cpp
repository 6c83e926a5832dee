#include "fuzz/RuleSession.h"

#include "adapters/recordset/ClientConnection.h"
#include "adapters/recordset/ClientRecordset.h"
#include "adapters/sqlite/Provider.h"
#include "component/session/Session.h"

#include <memory>
#include <utility>
#include <vector>

namespace kvex::fuzz {
namespace {

std::size_t loggedErrors = 0;

class CountingUtility final : public Utility {
public:
    std::u16string connectionString() override { return {}; }
    std::u16string secondText() override { return {}; }
    void writeErrorLog(std::u16string & /*logFile*/, const Error & /*error*/,
                       const std::u16string & /*text*/, std::int32_t /*reserved*/,
                       std::int16_t /*flag*/) override {
        ++loggedErrors;
    }
    void reportMessage(std::u16string & /*logFile*/, const std::u16string & /*text*/,
                       bool /*first*/, bool /*second*/) override {}
    std::int32_t showMessageBox(const std::u16string & /*text*/, std::int32_t /*style*/) override {
        return message_box::no;
    }
};

std::unique_ptr<Recordset> namedRecords(Connection &connection) {
    std::unique_ptr<Recordset> records = std::make_unique<recordset::ClientRecordset>();
    records->open(u"SELECT 1 AS ID, 'Desk' AS NAME UNION ALL SELECT 2, ' North; South ' "
                  u"UNION ALL SELECT 3, ''",
                  connection);
    return records;
}

} // namespace

void openRuleSession() {
    recordset::ClientConnection provided({sqlite::provider()});
    Connection &connection = provided;
    connection.open(u"Provider=SQLite;Data Source=:memory:");
    Session &opened = session();
    opened.objUtility = std::make_unique<CountingUtility>();
    opened.rsUsers = namedRecords(connection);
    opened.rsAccounts = namedRecords(connection);
    opened.blnHasUsers = opened.blnHasAccounts = true;
}

std::size_t takeLoggedErrors() {
    return std::exchange(loggedErrors, 0);
}

} // namespace kvex::fuzz
