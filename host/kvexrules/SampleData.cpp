#include "host/kvexrules/SampleData.h"

#include "host/suite/Databases.h"
#include "platform/Text.h"
#include "platform/Transaction.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {
namespace {

struct Table {
    std::u16string_view name;
    std::vector<std::u16string_view> columns;
    /// A text in brackets is the NAME of an earlier row, and stands for that row's ID.
    std::vector<std::vector<Value>> rows;
};

Value text(std::u16string_view value) {
    return std::u16string(value);
}

Value number(std::int64_t value) {
    return value;
}

Table rules() {
    const auto rule = [](std::u16string_view name, std::u16string_view queryParam,
                         std::u16string_view actionParam, int priority, int active = 1) {
        return std::vector{text(name), text(queryParam), text(actionParam), number(priority),
                           number(active)};
    };
    return {
        u"SMS_RULES",
        {u"Name", u"QueryParam", u"ActionParam", u"PRIORITY", u"ACTIVE"},
        {rule(u"Not stopped in March",
              u"<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><PEOPLE><CON><ANY>9811100011;9811100022"
              u"</PEOPLE><WORD><NOT><ALL><ASCOMMAND>STOP;HALT</WORD><DATETIME>20240301 "
              u"09:00:00,20240331 18:30:00</DATETIME>",
              u"<DIST>[Ravi Kumar];[Meera Nair]</DIST><REPLY>Received;[Bulk sending]</REPLY>"
              u"<ALERT>New message;[Bulk sending];9811100033;9811100044</ALERT><DELETE>NO</DELETE>"
              u"<IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>",
              1),
         rule(u"Help 🌙 at night",
              u"<IGNOREIFSERVICE>YES</IGNOREIFSERVICE><WORD><CON><ANY>help;मदद;🆘</WORD>",
              u"<DIST>[Night shift 🌙];[Zoë O'Neill]</DIST><REPLY>आपका संदेश मिला। We call back in "
              u"the morning 🌙;[दिल्ली कार्यालय]</REPLY><DELETE>NO</DELETE><IGNOREFURTHERRULES>NO"
              u"</IGNOREFURTHERRULES>",
              2),
         rule(u"दिल्ली के संदेश",
              u"<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><ACCOUNT><CON><ANY>[दिल्ली कार्यालय];"
              u"[Old modem 📟]</ACCOUNT>",
              u"<DIST>[प्रिया शर्मा]</DIST><DELETE>NO</DELETE><IGNOREFURTHERRULES>NO"
              u"</IGNOREFURTHERRULES>",
              3),
         rule(u"Strangers",
              u"<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><PEOPLE><NOT><ANY>9811100011;9811100022;"
              u"9811100055</PEOPLE><ACCOUNT><NOT><ANY>[Main line];[Short code 56070]</ACCOUNT>",
              u"<ALERT>Message from a stranger;[Main line];9811100044</ALERT><DELETE>NO</DELETE>"
              u"<IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>",
              4),
         rule(u"Advertisements",
              u"<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><WORD><CON><ALL>offer;free</WORD>",
              u"<DELETE>YES</DELETE><IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>", 5, 0),
         rule(u"No services", u"<IGNOREIFSERVICE>YES</IGNOREIFSERVICE>",
              u"<DIST>[Asha Rao]</DIST><DELETE>NO</DELETE><IGNOREFURTHERRULES>NO"
              u"</IGNOREFURTHERRULES>",
              6),
         rule(u"Everything to the system", u"<ALLMESSAGES>",
              u"<DIST>[SYSTEM]</DIST><DELETE>NO</DELETE><IGNOREFURTHERRULES>NO"
              u"</IGNOREFURTHERRULES>",
              7)}};
}

std::vector<Table> sampleTables() {
    return {
        {u"SMS_USERS",
         {u"NAME"},
         {{text(u"SYSTEM")},
          {text(u"Asha Rao")},
          {text(u"Ravi Kumar")},
          {text(u"प्रिया शर्मा")},
          {text(u"Zoë O'Neill")},
          {text(u"Night shift 🌙")},
          {text(u"Meera Nair")}}},
        {u"SMS_ACCOUNT",
         {u"NAME", u"BIND_MODE"},
         {{text(u"Main line"), text(u"TRANSCEIVER")},
          {text(u"Bulk sending"), text(u"TRANSMITTER")},
          {text(u"Short code 56070"), text(u"RECEIVER")},
          {text(u"दिल्ली कार्यालय"), text(u"TRANSCEIVER")},
          {text(u"Old modem 📟"), text(u"transceiver")}}},
        {u"SMS_SERVICE",
         {u"NAME", u"DISABLED"},
         {{text(u"Weather"), number(0)},
          {text(u"Account balance"), number(0)},
          {text(u"Competition"), number(1)}}},
        {u"SMS_SERVICECOMMANDS",
         {u"SERVICE_ID", u"NAME"},
         {{text(u"[Weather]"), text(u"WEATHER")},
          {text(u"[Weather]"), text(u"RAIN")},
          {text(u"[Account balance]"), text(u"BALANCE")},
          {text(u"[Competition]"), text(u"WIN")}}},
        {u"SMS_CONTACTS",
         {u"USER_ID", u"NAME", u"MOBILE"},
         {{text(u"[SYSTEM]"), text(u"Branch office"), text(u"9811100011")},
          {text(u"[SYSTEM]"), text(u"Field engineer"), text(u"9811100022")},
          {text(u"[SYSTEM]"), text(u"अनिल गुप्ता"), text(u"9811100033")},
          {text(u"[SYSTEM]"), text(u"Duty officer 🚨"), text(u"9811100044")},
          {text(u"[Asha Rao]"), text(u"José Müller"), text(u"9811100055")}}},
        rules(),
    };
}

/// The ids that the database gave, by name.
using Ids = std::map<std::u16string, std::int64_t, std::less<>>;

/// Replaces names in brackets by their ids. A value that is only one name becomes a number.
Value resolved(const Value &value, const Ids &ids) {
    const auto *held = std::get_if<std::u16string>(&value);
    if (!held) {
        return value;
    }
    std::u16string result;
    std::u16string_view rest = *held;
    for (std::size_t open = 0; (open = rest.find(u'[')) != std::u16string_view::npos;) {
        const std::size_t close = rest.find(u']', open);
        const std::int64_t id = ids.find(rest.substr(open + 1, close - open - 1))->second;
        if (open == 0 && close + 1 == held->size()) {
            return id;
        }
        result.append(rest.substr(0, open)).append(toText(id));
        rest.remove_prefix(close + 1);
    }
    return result.append(rest);
}

void add(Recordset &rows, const Table &table, Ids &ids) {
    for (const std::vector<Value> &values : table.rows) {
        rows.addNew();
        for (std::size_t i = 0; i < values.size(); ++i) {
            rows.setField(table.columns[i], resolved(values[i], ids));
        }
        rows.update();
        ids.emplace(rows.field(u"NAME").text(), rows.field(u"ID").int32());
    }
}

} // namespace

bool addSampleData(recordset::ClientConnection &connection) {
    Transaction transaction(connection);
    const std::vector<Table> tables = sampleTables();
    std::vector<std::unique_ptr<Recordset>> opened;
    for (const Table &table : tables) {
        opened.push_back(createRecordset());
        opened.back()->open(u"SELECT * FROM " + std::u16string(table.name), connection,
                            CursorType::dynamic, LockType::optimistic);
        if (!opened.back()->eof()) {
            return false;
        }
    }
    Ids ids;
    for (std::size_t i = 0; i < tables.size(); ++i) {
        add(*opened[i], tables[i], ids);
    }
    transaction.commit();
    return true;
}

} // namespace kvex::host
