#include "host/kvexrules/RuleList.h"

#include "host/kvexrules/CommandLine.h"
#include "host/kvexrules/Database.h"
#include "host/kvexrules/Failure.h"
#include "host/suite/Databases.h"
#include "platform/Text.h"

#include <cstdint>

namespace kvex::host {
std::vector<StoredRule> rulesOf(const Settings &settings, Strings strings) {
    try {
        return readRules(*openToRead(settings), strings);
    } catch (const Error &error) {
        failFor(settings, error);
    }
}

StoredTexts storedTexts(std::string_view id, const Settings &settings) {
    const auto connection = openConnection(settings);
    const std::unique_ptr<Recordset> rule = createRecordset();
    rule->open(u"SELECT QueryParam, ActionParam FROM SMS_RULES WHERE ID = " + fromUtf8(id),
               *connection);
    if (rule->eof()) {
        return {};
    }
    return {toUtf8(textOf(*rule, u"QueryParam")), toUtf8(textOf(*rule, u"ActionParam"))};
}

std::string ruleId(std::string_view text) {
    const auto id = wholeNumber<std::int64_t>(text);
    if (!id) {
        throw Failure(
            "\"" + std::string(text) +
            "\" is not the id of a rule. The ids are the numbers that kvexrules list shows.");
    }
    return std::to_string(*id);
}

} // namespace kvex::host
