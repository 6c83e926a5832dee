#include "rules/RuleFields.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <variant>

namespace kvex {
namespace {

using Text = std::u16string RuleState::*;
using Flag = std::int16_t RuleState::*;
using Bool = bool RuleState::*;
/// Entries that ";" separates.
struct List {
    Text text;
};

struct FieldRow {
    std::u16string_view name;
    std::variant<Text, Flag, Bool, List> member;
};

constexpr std::array rows{
    FieldRow{u"allMessages", &RuleState::blnAllMessages},
    FieldRow{u"ignoreIfService", &RuleState::strIgnoreIfService},
    FieldRow{u"people.not", &RuleState::intPeopleNot},
    FieldRow{u"people.all", &RuleState::intPeopleAll},
    FieldRow{u"people.entries", List{&RuleState::strPeople}},
    FieldRow{u"accounts.not", &RuleState::intAccountNot},
    FieldRow{u"accounts.all", &RuleState::intAccountAll},
    FieldRow{u"accounts.entries", List{&RuleState::varAccounts}},
    FieldRow{u"words.not", &RuleState::intWordsNot},
    FieldRow{u"words.all", &RuleState::intWordsAll},
    FieldRow{u"words.asCommand", &RuleState::intAsCommand},
    FieldRow{u"words.entries", List{&RuleState::strWords}},
    FieldRow{u"dateTime", &RuleState::strDateTime},
    FieldRow{u"distribution", List{&RuleState::strDistribution}},
    FieldRow{u"reply.text", &RuleState::strReplyText},
    FieldRow{u"reply.account", &RuleState::strReplyAccount},
    FieldRow{u"alert.text", &RuleState::strAlertText},
    FieldRow{u"alert.account", &RuleState::strAlertAccount},
    FieldRow{u"alert.recipients", List{&RuleState::strAlertRecipients}},
    FieldRow{u"delete", &RuleState::varDelete},
    FieldRow{u"ignoreFurtherRules", &RuleState::strIgnoreFurtherRules},
};

constexpr std::u16string_view yes = u"YES";
constexpr std::u16string_view no = u"NO";
constexpr char16_t separator = u';';

using Visit = std::function<bool(std::u16string_view value)>;

/// Visits the entries of a list. An empty list has none.
bool visitEntries(std::u16string_view list, const Visit &visit) {
    while (!list.empty()) {
        const std::size_t end = list.find(separator);
        if (!visit(list.substr(0, end))) {
            return false;
        }
        if (end == std::u16string_view::npos) {
            return true;
        }
        list.remove_prefix(end + 1);
        if (list.empty()) {
            return visit(list);
        }
    }
    return true;
}

/// Visits the values of one field. Returns false when `visit` did.
struct Reader {
    const RuleState &rule;
    const Visit &visit;

    bool operator()(Text member) const { return visit(rule.*member); }
    bool operator()(Flag member) const { return visit(rule.*member == 1 ? yes : no); }
    bool operator()(Bool member) const { return visit(rule.*member ? yes : no); }
    bool operator()(List list) const { return visitEntries(rule.*list.text, visit); }
};

/// Takes one value of a field into the rule.
struct Writer {
    RuleState &rule;
    std::u16string_view value;
    bool isFirst;

    void operator()(Text member) const { rule.*member = value; }
    void operator()(Flag member) const {
        rule.*member = static_cast<std::int16_t>(value == yes ? 1 : 0);
    }
    void operator()(Bool member) const { rule.*member = value == yes; }
    void operator()(List list) const {
        if (!isFirst) {
            (rule.*list.text).push_back(separator);
        }
        (rule.*list.text).append(value);
    }
};

} // namespace

std::span<const std::u16string_view> ruleFieldNames() {
    static constexpr auto names = [] {
        std::array<std::u16string_view, rows.size()> result;
        std::ranges::transform(rows, result.begin(), &FieldRow::name);
        return result;
    }();
    return names;
}

void visitRuleFields(
    const RuleState &rule,
    const std::function<bool(std::size_t place, std::u16string_view value)> &visit) {
    for (std::size_t place = 0; place < rows.size(); ++place) {
        const Visit visitValue = [&](std::u16string_view value) { return visit(place, value); };
        if (!std::visit(Reader{rule, visitValue}, rows[place].member)) {
            return;
        }
    }
}

std::optional<RuleState> ruleOfFields(std::span<const FieldView> fields) {
    RuleState rule;
    std::array<bool, rows.size()> given{};
    for (const FieldView &field : fields) {
        const auto place = static_cast<std::size_t>(
            std::ranges::find(rows, field.name, &FieldRow::name) - rows.begin());
        if (place == rows.size()) {
            return std::nullopt;
        }
        std::visit(Writer{rule, field.value, !given[place]}, rows[place].member);
        given[place] = true;
    }
    return rule;
}

} // namespace kvex
