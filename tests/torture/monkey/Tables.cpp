#include "tests/torture/monkey/Tables.h"

#include "platform/Text.h"

#include <array>
#include <string_view>

namespace kvex::torture {
namespace {

/// Stands between the values of a row. No user types it.
constexpr char16_t separator = u'\x1F';

std::string shown(const StoredRule &rule) {
    return toUtf8(rule.name + u" | " + rule.query + u" | " + rule.action + u" | priority " +
                  rule.priority + u" | active " + rule.active + u" | deleted " + rule.deleted);
}

} // namespace

Tables readTables(test::OtherProgram &program) {
    Tables tables;
    for (const std::u16string &row : program.rows(
             u"SELECT ID || char(31) || ifnull(Name, 'NULL') || char(31) || ifnull(QueryParam, "
             u"'NULL') || char(31) || ifnull(ActionParam, 'NULL') || char(31) || ifnull(PRIORITY, "
             u"'NULL') || char(31) || ifnull(ACTIVE, 'NULL') || char(31) || ifnull(DELETED, "
             u"'NULL') FROM SMS_RULES")) {
        std::array<std::u16string, 7> values;
        std::size_t at = 0;
        for (const std::u16string_view value : split(row, separator)) {
            values.at(at++) = value;
        }
        tables.rules[toInt64(values[0])] = {values[1], values[2], values[3],
                                            values[4], values[5], values[6]};
    }
    for (const char16_t *table :
         {u"SMS_USERS", u"SMS_ACCOUNT", u"SMS_SERVICE", u"SMS_SERVICECOMMANDS", u"SMS_CONTACTS"}) {
        for (std::u16string &row :
             program.rows(u"SELECT * FROM " + std::u16string(table) + u" ORDER BY ID")) {
            tables.others.push_back(table + (u" " + std::move(row)));
        }
    }
    return tables;
}

std::string difference(const Tables &before, const Tables &after) {
    std::string text;
    for (const auto &[id, rule] : before.rules) {
        const auto found = after.rules.find(id);
        if (found == after.rules.end()) {
            text += "\n  rule " + std::to_string(id) + " is gone: " + shown(rule);
        } else if (found->second != rule) {
            text += "\n  rule " + std::to_string(id) + " was: " + shown(rule) +
                    "\n  and now is: " + shown(found->second);
        }
    }
    for (const auto &[id, rule] : after.rules) {
        if (!before.rules.contains(id)) {
            text += "\n  rule " + std::to_string(id) + " is new: " + shown(rule);
        }
    }
    if (before.others != after.others) {
        text += "\n  another table than SMS_RULES changed";
    }
    return text;
}

} // namespace kvex::torture
