#include "host/kvexrules/ListedRules.h"

#include "host/kvexrules/CommandLine.h"
#include "host/kvexrules/TextColumns.h"
#include "platform/Text.h"

#include <cstdint>
#include <nlohmann/json.hpp>

namespace kvex::host {
namespace {

using Json = nlohmann::ordered_json;

Json idJson(const std::u16string &id) {
    const std::string text = toUtf8(id);
    const auto number = wholeNumber<std::int64_t>(text);
    return number ? Json(*number) : Json(text);
}

/// All marks have one width, in every list.
std::u16string stopMark(std::optional<bool> stops) {
    return !stops ? u"?    " : *stops ? u"stops" : u"-    ";
}

} // namespace

std::string listText(const std::vector<ListedRule> &rules) {
    TextColumns lines({Align::right, Align::left, Align::right, Align::left, Align::left});
    for (const auto &[position, rule, stops] : rules) {
        lines.add({toText(static_cast<std::int64_t>(position)), rule.isActive ? u"on " : u"off",
                   rule.id, stopMark(stops), rule.name});
    }
    return lines.text();
}

std::string listJson(const std::vector<ListedRule> &rules, bool onlyAscii) {
    Json list = Json::array();
    for (const auto &[position, rule, stops] : rules) {
        list.push_back({{"position", position},
                        {"id", idJson(rule.id)},
                        {"name", toUtf8(rule.name)},
                        {"active", rule.isActive},
                        {"stops", stops ? Json(*stops) : Json()}});
    }
    return Json{{"rules", std::move(list)}}.dump(2, ' ', onlyAscii) + "\n";
}

} // namespace kvex::host
