#include "host/kvexrules/ListedRules.h"

#include "host/kvexrules/TextColumns.h"
#include "host/rules/StoredIds.h"
#include "platform/Text.h"

#include <cstdint>
#include <nlohmann/json.hpp>

namespace kvex::host {
namespace {

using Json = nlohmann::ordered_json;

/// All marks have one width, in every list.
std::u16string markOf(const RuleMarks &marks) {
    return marks.isNeverReached ? u"never"
           : !marks.stops       ? u"?    "
           : *marks.stops       ? u"stops"
                                : u"-    ";
}

} // namespace

std::string listText(const std::vector<ListedRule> &rules) {
    TextColumns lines({Align::right, Align::left, Align::right, Align::left, Align::left});
    for (const auto &[position, rule, marks] : rules) {
        lines.add({toText(static_cast<std::int64_t>(position)), rule.isActive ? u"on " : u"off",
                   rule.id, markOf(marks), rule.name});
    }
    return lines.text();
}

std::string listJson(const std::vector<ListedRule> &rules, bool onlyAscii) {
    Json list = Json::array();
    for (const auto &[position, rule, marks] : rules) {
        list.push_back({{"position", position},
                        {"id", idJson(rule.id)},
                        {"name", toUtf8(rule.name)},
                        {"active", rule.isActive},
                        {"stops", marks.stops ? Json(*marks.stops) : Json()},
                        {"neverReached", marks.isNeverReached}});
    }
    return Json{{"rules", std::move(list)}}.dump(2, ' ', onlyAscii) + "\n";
}

} // namespace kvex::host
