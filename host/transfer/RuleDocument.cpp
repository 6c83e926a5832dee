#include "host/transfer/RuleDocument.h"

#include "host/rules/RuleFields.h"
#include "host/transfer/HalfPairs.h"
#include "host/transfer/JsonForm.h"
#include "platform/Error.h"
#include "platform/Text.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace kvex::host {
namespace {

using Kind = LinedJson::Kind;

/// The members that each object of a rule's fields may have, by the object's name. The fields
/// themselves are "".
const std::map<std::string, MemberNames> &fieldMembers() {
    static const std::map<std::string, MemberNames> members = [] {
        std::map<std::string, MemberNames> built;
        const RuleValues any;
        forEachField(any, [&](std::u16string_view field, const auto & /*value*/) {
            const std::string name = toUtf8(field);
            const std::size_t point = name.find('.');
            built[""].insert(name.substr(0, point));
            if (point != std::string::npos) {
                built[name.substr(0, point)].insert(name.substr(point + 1));
            }
        });
        return built;
    }();
    return members;
}

const LinedJson *fieldIn(const LinedJson &fields, const std::string &name) {
    const std::size_t point = name.find('.');
    const LinedJson *first = fields.member(name.substr(0, point));
    return point == std::string::npos || first == nullptr ? first
                                                          : first->member(name.substr(point + 1));
}

std::vector<std::size_t> linesOf(const LinedJson &field) {
    std::vector<std::size_t> lines{field.line};
    if (field.kind == Kind::array) {
        for (const LinedJson &entry : field.values) {
            lines.push_back(entry.line);
        }
    }
    return lines;
}

/// The first field in which the two differ.
std::u16string differentField(const RuleValues &left, const RuleValues &right) {
    std::u16string different;
    forEachField(left, [&](std::u16string_view name, const auto &value) {
        forEachField(right, [&](std::u16string_view other, const auto &otherValue) {
            if constexpr (std::is_same_v<decltype(value), decltype(otherValue)>) {
                if (different.empty() && name == other && value != otherValue) {
                    different = name;
                }
            }
        });
    });
    return different;
}

class DocumentReader {
public:
    DocumentReader(const RuleStrings &strings, Problems &problems)
        : strings_(strings), problems_(problems), form_(problems) {}

    RuleDocument read(const LinedJson &root) {
        RuleDocument document;
        if (!form_.require(root, Kind::object, "The document") || !isOurFormat(root)) {
            return document;
        }
        form_.allowMembers(root, "The document",
                           {"format", "version", "users", "accounts", "rules"});
        readNames(root.member("users"), "\"users\"", document.users);
        readNames(root.member("accounts"), "\"accounts\"", document.accounts);
        const LinedJson *rules = form_.required(root, "rules", "The document");
        if (rules != nullptr && form_.require(*rules, Kind::array, "\"rules\"")) {
            document.rules.reserve(rules->values.size());
            for (const LinedJson &rule : rules->values) {
                document.rules.push_back(readRule(rule));
            }
        }
        return document;
    }

private:
    bool isOurFormat(const LinedJson &root) {
        const LinedJson *format = form_.required(root, "format", "The document");
        const LinedJson *version = form_.required(root, "version", "The document");
        if (format == nullptr || version == nullptr) {
            return false;
        }
        if (format->kind != Kind::text || format->text != "kvex-rules") {
            form_.add(format->line, "\"format\" must be \"kvex-rules\".");
            return false;
        }
        if (version->kind != Kind::integer || version->number != 1) {
            form_.add(version->line, "\"version\" must be 1. A newer kvexrules may read others.");
            return false;
        }
        return true;
    }

    void readNames(const LinedJson *json, std::string_view what, std::vector<DocumentName> &names) {
        if (json == nullptr || !form_.require(*json, Kind::object, what)) {
            return;
        }
        for (std::size_t at = 0; at < json->values.size(); ++at) {
            DocumentName name{fromUtf8(json->names[at]), {}, json->values[at].line};
            form_.take(json->values[at], "The name in " + std::string(what), name.name);
            names.push_back(std::move(name));
        }
    }

    DocumentRule readRule(const LinedJson &json) {
        DocumentRule rule{json.line, {}, {}, false, {}};
        if (!form_.require(json, Kind::object, "A rule")) {
            return rule;
        }
        const std::size_t before = problems_.size();
        form_.allowMembers(json, "A rule",
                           {"name", "active", "rule", "error", "queryParam", "actionParam"});
        if (const LinedJson *name = form_.required(json, "name", "A rule")) {
            form_.take(*name, "\"name\"", rule.content.name);
        }
        if (const LinedJson *active = form_.required(json, "active", "The rule")) {
            form_.take(*active, "\"active\"", rule.content.isActive);
        }
        const bool hasFields = json.member("rule") != nullptr;
        if (hasFields) {
            readFields(*json.member("rule"), rule);
        }
        rule.hasStrings = json.member("queryParam") || json.member("actionParam") || !hasFields;
        if (rule.hasStrings) {
            readStrings(json, rule.content);
        }
        const std::optional<EarlyEnd> end = readError(json);
        if (problems_.size() > before) {
            return rule;
        }
        if (rule.hasStrings) {
            requireAgreement(json, end, rule);
        } else {
            makeStrings(end, rule);
        }
        requireWholePairs(rule);
        return rule;
    }

    void readFields(const LinedJson &fields, DocumentRule &rule) {
        if (!form_.require(fields, Kind::object, "\"rule\"")) {
            return;
        }
        form_.allowMembers(fields, "\"rule\"", fieldMembers().at(""));
        for (const auto &[name, members] : fieldMembers()) {
            const LinedJson *object = name.empty() ? nullptr : fields.member(name);
            if (object != nullptr && form_.require(*object, Kind::object, quotedUtf8(name))) {
                form_.allowMembers(*object, quotedUtf8(name), members);
            }
        }
        rule.lines.emplace(u"", std::vector{fields.line});
        forEachField(rule.values, [&](std::u16string_view field, auto &value) {
            const std::string name = toUtf8(field);
            if (const LinedJson *json = fieldIn(fields, name)) {
                form_.take(*json, quotedUtf8(name), value);
                rule.lines.emplace(field, linesOf(*json));
            }
        });
    }

    void readStrings(const LinedJson &json, RuleContent &content) {
        if (const LinedJson *text = form_.required(json, "queryParam", "The rule")) {
            form_.take(*text, "\"queryParam\"", content.queryParam);
        }
        if (const LinedJson *text = form_.required(json, "actionParam", "The rule")) {
            form_.take(*text, "\"actionParam\"", content.actionParam);
        }
    }

    std::optional<EarlyEnd> readError(const LinedJson &json) {
        const LinedJson *error = json.member("error");
        if (error == nullptr || error->kind == Kind::null ||
            !form_.require(*error, Kind::object, "\"error\"")) {
            return std::nullopt;
        }
        form_.allowMembers(*error, "\"error\"", {"number", "tag"});
        EarlyEnd end{};
        const LinedJson *number = form_.required(*error, "number", "\"error\"");
        if (number != nullptr && form_.require(*number, Kind::integer, "\"number\"")) {
            const auto known = {error_number::invalidCall, error_number::overflow};
            const auto *found = std::ranges::find(known, number->number);
            end.number = found == known.end() ? 0 : *found;
        }
        if (const LinedJson *tag = form_.required(*error, "tag", "\"error\"")) {
            form_.take(*tag, "\"tag\"", end.tag);
        }
        return end;
    }

    /// The strings count. Fields beside them must say the same.
    void requireAgreement(const LinedJson &json, const std::optional<EarlyEnd> &end,
                          DocumentRule &rule) {
        const RuleRead read = readContent(rule.content, strings_);
        if (!rule.lines.empty() && read.values != rule.values) {
            const std::u16string field = differentField(read.values, rule.values);
            form_.add(rule.lineOf(field, 0),
                      "The field " + quotedUtf8(toUtf8(field)) +
                          " contradicts \"queryParam\" or \"actionParam\". Remove these two and "
                          "\"error\", so that the fields count, or remove \"rule\".");
        } else if (const LinedJson *error = json.member("error"); error && end != read.end) {
            form_.add(error->line, "\"error\" is not what reading \"queryParam\" and "
                                   "\"actionParam\" gives. Remove it.");
        }
        rule.values = read.values;
    }

    void makeStrings(const std::optional<EarlyEnd> &end, DocumentRule &rule) {
        if (end) {
            form_.add(rule.line, "A rule with an \"error\" needs \"queryParam\" and "
                                 "\"actionParam\". Remove \"error\" if the fields are complete.");
            return;
        }
        const RuleWritten written = strings_.write(rule.values);
        rule.content.queryParam = written.queryParam;
        rule.content.actionParam = written.actionParam;
        const RuleRead read = readContent(rule.content, strings_);
        if (read.values != rule.values) {
            const std::u16string field = differentField(read.values, rule.values);
            form_.add(rule.lineOf(field, 0),
                      "The field " + quotedUtf8(toUtf8(field)) +
                          " would be read back as something else. Its text may be empty, have "
                          "blanks at its ends, or hold \";\" or a tag.");
        } else if (read.end) {
            form_.add(rule.line, "The rule could not be read back, because a text holds a tag.");
        }
    }

    void requireWholePairs(const DocumentRule &rule) {
        const RuleContent &content = rule.content;
        for (const ColumnText &text : {content.name, content.queryParam, content.actionParam}) {
            if (text && hasHalfPair(*text)) {
                form_.add(rule.line, "The rule holds half a surrogate pair, and no database can "
                                     "store that.");
                return;
            }
        }
    }

    const RuleStrings &strings_;
    Problems &problems_;
    JsonForm form_;
};

} // namespace

std::size_t DocumentRule::lineOf(std::u16string_view field, std::size_t place) const {
    const auto found = lines.find(field);
    if (found == lines.end()) {
        const auto all = lines.find(u"");
        return all == lines.end() ? line : all->second.front();
    }
    const std::vector<std::size_t> &known = found->second;
    return place + 1 < known.size() ? known[place + 1] : known.front();
}

std::optional<RuleDocument> readRuleDocument(std::string_view text, const RuleStrings &strings,
                                             Problems &problems) {
    const std::optional<LinedJson> json = readLinedJson(text, problems);
    if (!json) {
        return std::nullopt;
    }
    const std::size_t before = problems.size();
    RuleDocument document = DocumentReader(strings, problems).read(*json);
    return problems.size() > before ? std::nullopt : std::optional(std::move(document));
}

} // namespace kvex::host
