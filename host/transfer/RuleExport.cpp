#include "host/transfer/RuleExport.h"

#include "host/rules/RuleFields.h"
#include "host/transfer/HalfPairs.h"
#include "host/transfer/References.h"
#include "platform/Text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <map>
#include <tuple>

namespace kvex::host {
namespace {

using Json = nlohmann::ordered_json;

Json jsonOf(bool value) {
    return value;
}

Json jsonOf(std::u16string_view text) {
    return hasHalfPair(text) ? Json{{"utf16", unitsInHexadecimal(text)}} : Json(toUtf8(text));
}

Json jsonOf(const Entries &entries) {
    Json list = Json::array();
    for (const std::u16string &entry : entries) {
        list.push_back(jsonOf(std::u16string_view(entry)));
    }
    return list;
}

Json columnJson(const ColumnText &text) {
    return text ? jsonOf(std::u16string_view(*text)) : Json(nullptr);
}

/// The member of `object` that a name such as "people.not" means.
Json &memberOf(Json &object, std::u16string_view name) {
    const std::size_t point = name.find(u'.');
    Json &first = object[toUtf8(name.substr(0, point))];
    return point == std::u16string_view::npos ? first : first[toUtf8(name.substr(point + 1))];
}

Json jsonOf(const RuleContent &content, const RuleRead &read) {
    Json rule;
    rule["name"] = columnJson(content.name);
    rule["active"] = content.isActive;
    Json &fields = rule["rule"];
    forEachField(read.values, [&](std::u16string_view name, const auto &value) {
        memberOf(fields, name) = jsonOf(value);
    });
    rule["error"] = read.end ? Json{{"number", read.end->number}, {"tag", toUtf8(read.end->tag)}}
                             : Json(nullptr);
    rule["queryParam"] = columnJson(content.queryParam);
    rule["actionParam"] = columnJson(content.actionParam);
    return rule;
}

/// The ids that rules refer to, each with its name if there is such a row. Numbers come first, in
/// their order.
class NamesById {
public:
    explicit NamesById(const auto &rows) {
        for (const NamedRow &row : rows) {
            known_.emplace(row.id, row.name);
        }
    }
    void add(const std::u16string &id) {
        const auto known = known_.find(id);
        const bool isNumber = isNumeric(id);
        used_.emplace(std::tuple(!isNumber, isNumber ? toDouble(id) : 0, id),
                      known == known_.end() ? std::nullopt : std::optional(known->second));
    }
    [[nodiscard]] Json json() const {
        Json::object_t object;
        for (const auto &[place, name] : used_) {
            object.push_back({toUtf8(std::get<std::u16string>(place)), columnJson(name)});
        }
        return object;
    }

private:
    std::map<std::u16string, std::u16string> known_;
    std::map<std::tuple<bool, double, std::u16string>, ColumnText> used_;
};

} // namespace

std::string exportDocument(std::span<const RuleRow> rules, std::span<const NamedRow> users,
                           std::span<const AccountRow> accounts, const RuleStrings &strings) {
    NamesById usedUsers(users);
    NamesById usedAccounts(accounts);
    Json list = Json::array();
    for (const RuleRow &row : rules) {
        const RuleRead read = readContent(row.content, strings);
        forEachReference(read.values, [&](Referred kind, const std::u16string &id,
                                          std::u16string_view /*field*/, std::size_t /*place*/) {
            (kind == Referred::user ? usedUsers : usedAccounts).add(id);
        });
        list.push_back(jsonOf(row.content, read));
    }
    Json document;
    document["format"] = "kvex-rules";
    document["version"] = 1;
    document["users"] = usedUsers.json();
    document["accounts"] = usedAccounts.json();
    document["rules"] = std::move(list);
    return document.dump(2) + "\n";
}

} // namespace kvex::host
