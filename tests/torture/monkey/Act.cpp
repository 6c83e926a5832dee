#include "tests/torture/monkey/Act.h"

#include "adapters/lightweight/LightListView.h"
#include "platform/Text.h"
#include "tests/torture/monkey/Hands.h"

namespace kvex::torture {
namespace {

using headless::HeadlessWindow;

template <class Kind> const Kind &control(const HeadlessWindow &window, std::u16string_view name) {
    return dynamic_cast<const Kind &>(*window.element(name));
}

const ListView &rulesIn(const HeadlessWindow &window) {
    return control<ListView>(window, u"lvwRules");
}

Act inRulesWindow(const Aim &aim, const HeadlessWindow &window, bool answersYes) {
    Act act{.window = window.name()};
    if (aim.control == u"lvwRules") {
        act.kind = Act::Kind::activation;
        act.rule = ruleOf(window, aim.row);
        act.active = !rulesIn(window).checked(aim.row);
    } else if (aim.control == u"cmdRemove" && selectedRule(window) > 0) {
        act.kind = Act::Kind::removal;
        act.rule = ruleOf(window, selectedRule(window));
        act.confirmed = answersYes;
    } else if (aim.control == u"cmdOK") {
        act.kind = Act::Kind::order;
        for (int row = 1; row <= rulesIn(window).rowCount(); ++row) {
            act.rows.push_back(ruleOf(window, row));
        }
    }
    return act;
}

} // namespace

std::int64_t ruleOf(const HeadlessWindow &rulesWindow, int row) {
    return toInt64(rulesIn(rulesWindow).subItem(row, 2));
}

int selectedRule(const HeadlessWindow &rulesWindow) {
    return rulesIn(rulesWindow).selectedRow();
}

Act actOf(const Event &event, const HeadlessWindow &window, std::int64_t edited, bool answersYes) {
    const Aim aim = aimOf(event, window);
    if (window.name() == u"frmRules") {
        return inRulesWindow(aim, window, answersYes);
    }
    Act act{.window = window.name()};
    if (window.name() == u"frmRuleEdit" && aim.control == u"cmdOK") {
        act.kind = Act::Kind::saving;
        act.rule = edited;
        act.name = control<TextBox>(window, u"txtRuleName").text();
        act.typed = ruleState();
        act.description = control<RichTextBox>(window, u"rtRuleDesc").text();
    }
    return act;
}

Tables permitted(const Act &act, const Tables &before, const Tables &now) {
    Tables result = before;
    const auto take = [&](std::int64_t id, auto... columns) {
        const auto target = result.rules.find(id);
        const auto source = now.rules.find(id);
        if (target != result.rules.end() && source != now.rules.end()) {
            ((target->second.*columns = source->second.*columns), ...);
        }
    };
    switch (act.kind) {
    case Act::Kind::none:
        break;
    case Act::Kind::activation:
        take(act.rule, &StoredRule::active);
        break;
    case Act::Kind::removal:
        if (act.confirmed && !now.rules.contains(act.rule)) {
            result.rules.erase(act.rule);
        }
        break;
    case Act::Kind::saving:
        take(act.rule, &StoredRule::name, &StoredRule::query, &StoredRule::action);
        if (act.rule == 0 && now.rules.size() == before.rules.size() + 1) {
            result.rules.insert(*now.rules.rbegin());
        }
        break;
    case Act::Kind::order:
        for (const std::int64_t id : act.rows) {
            take(id, &StoredRule::priority);
        }
        break;
    }
    return result;
}

} // namespace kvex::torture
