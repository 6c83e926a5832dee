#include "host/matching/PlayReport.h"

#include "host/matching/Refusals.h"
#include "host/rules/StoredIds.h"
#include "platform/Text.h"

#include <nlohmann/json.hpp>

namespace kvex::host {
namespace {

/// Field by field in a fixed order.
using Json = nlohmann::ordered_json;

Json document() {
    return {{"format", "kvexrules try"}, {"version", 1}};
}

std::string written(const Json &document, bool onlyAscii) {
    return document.dump(2, ' ', onlyAscii) + "\n";
}

Json jsonOf(const PlayedRule &rule) {
    return {{"id", idJson(rule.row.id)}, {"name", toUtf8(rule.row.name)}};
}

Json jsonOf(const Entries &entries) {
    Json list = Json::array();
    for (const std::u16string &entry : entries) {
        list.push_back(toUtf8(entry));
    }
    return list;
}

Json jsonOf(const Action &action) {
    switch (action.kind) {
    case Action::Kind::distribute:
        return {{"action", "distribute"}, {"users", jsonOf(action.recipients)}};
    case Action::Kind::deleteIt:
        return {{"action", "delete"}};
    case Action::Kind::ignoreFurtherRules:
        return {{"action", "ignoreFurtherRules"}};
    default:
        return {{"action", action.kind == Action::Kind::reply ? "reply" : "alert"},
                {"text", toUtf8(action.text)},
                {"account", toUtf8(action.account)},
                {"recipients", jsonOf(action.recipients)}};
    }
}

Json jsonOf(const Verdict &verdict) {
    Json json{{"rule", jsonOf(*verdict.rule)}, {"result", "applies"}};
    if (verdict.refusal) {
        json["result"] = "does not apply";
        json["condition"] = verdict.refusal->condition;
        json["reason"] = toUtf8(verdict.refusal->reason);
        return json;
    }
    json["actions"] = Json::array();
    for (const Action &action : verdict.actions) {
        json["actions"].push_back(jsonOf(action));
    }
    if (verdict.rule->read.end) {
        json["unreadFrom"] = toUtf8(verdict.rule->read.end->tag);
    }
    return json;
}

} // namespace

std::string asJson(const Outcome &outcome, bool onlyAscii) {
    Json json = document();
    json["rules"] = Json::array();
    for (const Verdict &verdict : outcome.verdicts) {
        json["rules"].push_back(jsonOf(verdict));
    }
    for (const PlayedRule *rule : outcome.notReached) {
        json["rules"].push_back({{"rule", jsonOf(*rule)}, {"result", "not reached"}});
    }
    json["endedAt"] = outcome.isEnded ? jsonOf(*outcome.verdicts.back().rule) : Json();
    return written(json, onlyAscii);
}

std::string asJson(const Tally &tally, bool onlyAscii) {
    Json json = document();
    json["messages"] = tally.messages();
    json["rules"] = Json::array();
    Json idle = Json::array();
    for (std::size_t place = 0; place < tally.rules().size(); ++place) {
        const PlayedRule &rule = tally.rules()[place];
        const std::size_t hits = tally.hits()[place];
        json["rules"].push_back({{"rule", jsonOf(rule)}, {"hits", hits}});
        if (hits == 0) {
            idle.push_back(jsonOf(rule));
            if (const auto never = refusalOfAll(rule)) {
                idle.back()["reason"] = toUtf8(never->reason);
            }
        }
    }
    json["untouchedLines"] = tally.untouched();
    json["untouchedRules"] = idle;
    return written(json, onlyAscii);
}

} // namespace kvex::host
