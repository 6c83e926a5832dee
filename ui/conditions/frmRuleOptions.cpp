#include "ui/conditions/frmRuleOptions.h"

#include "component/session/Session.h"
#include "platform/Text.h"
#include "platform/controls/DesignPieces.h"
#include "rules/Lookups.h"
#include "ui/EntryList.h"
#include "ui/ListColumns.h"

#include <algorithm>
#include <array>

namespace kvex {
namespace {

using Text = std::u16string RuleState::*;
using Flag = std::int16_t RuleState::*;

std::u16string accountName(std::u16string_view id) {
    return GetAccountName(toInt32(id));
}
std::u16string asItIs(std::u16string_view entry) {
    return std::u16string(entry);
}

} // namespace

/// A condition with its modifiers. A date has no list and keeps the captions of the design.
struct frmRuleOptions::Kind {
    std::u16string_view runFor;
    Flag isNot;
    Flag matchesAll;
    Text entries = nullptr;
    std::u16string (*shown)(std::u16string_view entry) = asItIs;
    const char16_t *column = nullptr, *heading = nullptr;
    const char16_t *con = nullptr, *not_ = nullptr, *all = nullptr, *any = nullptr;
};

const frmRuleOptions::Kind *frmRuleOptions::kind() const {
    static constexpr std::array kinds{
        Kind{.runFor = u"PEOPLE",
             .isNot = &RuleState::intPeopleNot,
             .matchesAll = &RuleState::intPeopleAll,
             .entries = &RuleState::strPeople,
             .column = u"People",
             .heading = condition_heading::people,
             .con = u"Message is from the People below",
             .not_ = u"Message is not from the People below",
             .all = u"Message is from all of the People below",
             .any = u"Message is from any one of the People below"},
        Kind{.runFor = u"ACCOUNT",
             .isNot = &RuleState::intAccountNot,
             .matchesAll = &RuleState::intAccountAll,
             .entries = &RuleState::varAccounts,
             .shown = accountName,
             .column = u"Account",
             .heading = condition_heading::accounts,
             .con = u"Message is received through the Accounts below",
             .not_ = u"Message is not received through the Accounts below",
             .all = u"Message is received through all of the Accounts below",
             .any = u"Message is received through any one of the Accounts below"},
        Kind{.runFor = u"WORD",
             .isNot = &RuleState::intWordsNot,
             .matchesAll = &RuleState::intWordsAll,
             .entries = &RuleState::strWords,
             .column = u"Word",
             .heading = condition_heading::words,
             .con = u"Message contains the Words below",
             .not_ = u"Message does not contain the Words below",
             .all = u"Message matches all of the Words below",
             .any = u"Message matches any one of the Words below"},
        Kind{.runFor = u"DATE",
             .isNot = &RuleState::intOptionNot,
             .matchesAll = &RuleState::intOptionAll},
    };
    const auto *found = std::ranges::find(kinds, RunFor, &Kind::runFor);
    return found == kinds.end() ? nullptr : found;
}

namespace {

ControlDesign option(const std::u16string &group, const std::u16string &member,
                     std::u16string caption, bool selected) {
    return {.kind = ControlKind::optionButton,
            .name = group + u"(" + member + u")",
            .caption = std::move(caption),
            .disabledHint = u"Any one of the entries is enough here",
            .group = group,
            .selected = selected};
}

} // namespace

WindowDesign frmRuleOptionsDesign() {
    using namespace design;
    ControlDesign cancel = cancelButton();
    cancel.name = u"cmdcancel";
    return {
        .name = u"frmRuleOptions",
        .caption = u"Rule Condition Options",
        .controls =
            {
                {.kind = ControlKind::frame, .name = u"Frame3"},
                option(u"opgAllAnyModifier", u"0", u"Message matches all of the words below",
                       false),
                option(u"opgAllAnyModifier", u"1", u"Message matches any of the words below", true),
                {.kind = ControlKind::frame, .name = u"Frame2"},
                option(u"opgConNotmodifier", u"0", u"Message contains the words below", true),
                option(u"opgConNotmodifier", u"1", u"Message does not contain the words below",
                       false),
                separator(),
                cancel,
                okButton(),
                {.kind = ControlKind::listView,
                 .name = u"lvwRuleCondition",
                 .columns = 44,
                 .lines = 8},
                label(u"Label5", u""),
                label(u"Label1", u"Rule Condition", u"lvwRuleCondition"),
                label(u"Label3", u""),
                label(u"Label2", u"Apply Rule if"),
                hint(u"Label4", u"You can further customize this condition by setting the options "
                                u"below"),
            },
        .layout = aboveButtons(
            {
                place(u"Label4"),
                row({place(u"Label2"), place(u"Label3", 1)}),
                placeFrame(u"Frame3", {column({place(u"opgAllAnyModifier(0)"),
                                               place(u"opgAllAnyModifier(1)")})}),
                placeFrame(u"Frame2", {column({place(u"opgConNotmodifier(0)"),
                                               place(u"opgConNotmodifier(1)")})}),
                row({place(u"Label1"), place(u"Label5", 1)}),
                place(u"lvwRuleCondition", 1),
            },
            u"cmdOK", u"cmdcancel"),
        .columns = 64,
        .lines = 28,
    };
}

frmRuleOptions::frmRuleOptions()
    : Form(frmRuleOptionsDesign()),
      opgAllAnyModifier{control<OptionButton>(u"opgAllAnyModifier(0)"),
                        control<OptionButton>(u"opgAllAnyModifier(1)")},
      opgConNotmodifier{control<OptionButton>(u"opgConNotmodifier(0)"),
                        control<OptionButton>(u"opgConNotmodifier(1)")},
      lvwRuleCondition(control<ListView>(u"lvwRuleCondition")) {
    for (OptionButton *member : {&opgAllAnyModifier.first, &opgAllAnyModifier.second}) {
        member->onClick = [this] { opgAllAnyModifier_Click(); };
    }
    for (OptionButton *member : {&opgConNotmodifier.first, &opgConNotmodifier.second}) {
        member->onClick = [this] { opgConNotmodifier_Click(); };
    }
    onClick(u"cmdOK", &frmRuleOptions::cmdOK_Click);
    onClick(u"cmdcancel", &frmRuleOptions::cmdcancel_Click);
}

void frmRuleOptions::Form_Load() {
    const Kind *condition = kind();
    if (condition == nullptr || condition->entries == nullptr) {
        return;
    }
    describe(*condition);
    RuleState &rule = ruleState();
    opgConNotmodifier.select(rule.*condition->isNot == 0);
    // A rule can require all of its words, unless they are a command. No other list can be required
    // as a whole.
    if (condition->entries != &RuleState::strWords) {
        disableAllAny();
        return;
    }
    opgAllAnyModifier.select(rule.intWordsAll != 0);
    if (rule.intAsCommand == 1) {
        rule.intWordsAll = 0;
        opgAllAnyModifier.second.select();
        disableAllAny();
    }
}

/// Shows the captions and the list of the condition.
void frmRuleOptions::describe(const Kind &kind) {
    opgConNotmodifier.first.setCaption(kind.con);
    opgConNotmodifier.second.setCaption(kind.not_);
    opgAllAnyModifier.first.setCaption(kind.all);
    opgAllAnyModifier.second.setCaption(kind.any);
    beginList(lvwRuleCondition, kind.column);
    lvwRuleCondition.addRow(kind.heading);
    const std::u16string &entries = ruleState().*kind.entries;
    if (entries.empty()) {
        return;
    }
    for (const std::u16string_view entry : split(entries, u';')) {
        lvwRuleCondition.addRow(indented(kind.shown(entry)));
    }
}

void frmRuleOptions::disableAllAny() {
    opgAllAnyModifier.first.setEnabled(false);
    opgAllAnyModifier.second.setEnabled(false);
}

void frmRuleOptions::opgAllAnyModifier_Click() {
    session().blnChanged = true;
}

void frmRuleOptions::opgConNotmodifier_Click() {
    session().blnChanged = true;
}

void frmRuleOptions::cmdOK_Click() {
    if (const Kind *condition = kind()) {
        ruleState().*condition->isNot = opgConNotmodifier.first.selected() ? 0 : 1;
        ruleState().*condition->matchesAll = opgAllAnyModifier.first.selected() ? 1 : 0;
    }
    Unload();
}

void frmRuleOptions::cmdcancel_Click() {
    Unload();
}

void showConditionOptions(const std::u16string &runFor) {
    frmRuleOptions options;
    options.RunFor = runFor;
    options.Show();
}

} // namespace kvex
