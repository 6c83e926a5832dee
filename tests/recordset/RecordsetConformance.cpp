#include "tests/recordset/RecordsetConformance.h"

namespace kvex::test {
namespace {

std::unique_ptr<Recordset> openedOn(Connection &connection, std::u16string_view query) {
    auto records = std::make_unique<recordset::ClientRecordset>();
    Recordset &opened = *records;
    opened.setCursorLocation(CursorLocation::client);
    opened.open(query, connection, CursorType::dynamic, LockType::optimistic);
    return records;
}

constexpr std::u16string_view rulesById = u"SELECT * FROM SMS_RULES ORDER BY ID";

} // namespace

RecordsetConformance::RecordsetConformance()
    : database_(GetParam().make()), connection_(openConnection()) {}

std::unique_ptr<Connection> RecordsetConformance::closedConnection() const {
    return std::make_unique<recordset::ClientConnection>(
        std::vector<recordset::Provider>{database_->provider()});
}

std::unique_ptr<Connection> RecordsetConformance::openConnection() const {
    std::unique_ptr<Connection> opened = closedConnection();
    opened->open(database_->connectionString());
    return opened;
}

void RecordsetConformance::insertRule(int id, std::u16string_view name) {
    database_->run(u"INSERT INTO SMS_RULES (ID, Name) VALUES (" + toText(std::int64_t{id}) +
                   u", '" + std::u16string(name) + u"')");
}

std::unique_ptr<Recordset> RecordsetConformance::openRules() {
    return openRules(*connection_);
}

std::unique_ptr<Recordset> RecordsetConformance::openRules(Connection &connection) {
    return openedOn(connection, rulesById);
}

std::unique_ptr<Recordset> RecordsetConformance::openQuery(std::u16string_view query) {
    return openedOn(*connection_, query);
}

std::u16string RecordsetConformance::storedName(int id) {
    return database_->valueOf(u"SELECT Name FROM SMS_RULES WHERE ID = " + toText(std::int64_t{id}));
}

std::u16string RecordsetConformance::ruleCount() {
    return database_->valueOf(u"SELECT COUNT(*) FROM SMS_RULES");
}

bool RecordsetConformance::deviates(Deviation deviation) const {
    const auto deviations = database_->deviations();
    const auto found = deviations.find(deviation);
    if (found == deviations.end()) {
        return false;
    }
    RecordProperty("deviation", found->second);
    return true;
}

std::u16string RecordsetConformance::name(const Recordset &rules) {
    return rules.field(u"Name").text();
}

std::int32_t RecordsetConformance::id(const Recordset &rules) {
    return rules.field(u"ID").int32();
}

std::vector<std::int32_t> RecordsetConformance::ids(Recordset &rules) {
    std::vector<std::int32_t> ids;
    for (rules.moveFirst(); !rules.eof(); rules.moveNext()) {
        ids.push_back(id(rules));
    }
    return ids;
}

} // namespace kvex::test
