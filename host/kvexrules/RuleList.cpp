#include "host/kvexrules/RuleList.h"

#include "host/kvexrules/CommandLine.h"
#include "host/kvexrules/Database.h"
#include "host/kvexrules/Failure.h"
#include "host/rules/RuleRows.h"
#include "host/suite/Databases.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <algorithm>
#include <cstdint>

namespace kvex::host {
namespace {

std::u16string rightAligned(const std::u16string &text, std::size_t width) {
    return std::u16string(width - text.size(), u' ') + text;
}

} // namespace

std::vector<StoredRule> rulesOf(const Settings &settings) {
    try {
        return readRules(*openToRead(settings), Strings::leaveOut);
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

std::string listText(const std::vector<StoredRule> &rules) {
    const std::size_t positionWidth = std::to_string(rules.size()).size();
    std::size_t idWidth = 0;
    for (const StoredRule &rule : rules) {
        idWidth = std::max(idWidth, visible(rule.id).size());
    }
    std::u16string text;
    for (std::size_t i = 0; i < rules.size(); ++i) {
        const StoredRule &rule = rules[i];
        text += rightAligned(toText(static_cast<std::int64_t>(i + 1)), positionWidth) +
                (rule.isActive ? u"  on   " : u"  off  ") +
                rightAligned(visible(rule.id), idWidth) + u"  " + visible(rule.name) + u"\n";
    }
    return toUtf8(text);
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
