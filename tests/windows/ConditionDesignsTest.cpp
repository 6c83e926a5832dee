// The designs of the conditions' dialogs: their controls in order, as they are at first.
#include "tests/support/ComponentTest.h"
#include "ui/conditions/frmRuleAccountDesign.h"
#include "ui/conditions/frmRuleOptionsDesign.h"
#include "ui/conditions/frmRulePeopleDesign.h"
#include "ui/conditions/frmRuleWordsDesign.h"

#include <algorithm>

namespace kvex::test {
namespace {

/// The controls, one a text: name, caption, and in brackets what sets them apart at first.
Texts described(const WindowDesign &design) {
    Texts texts;
    for (const ControlDesign &control : design.controls) {
        std::u16string text = control.name;
        text += control.caption.empty() ? u"" : u" " + control.caption;
        text += control.enabled ? u"" : u" [disabled]";
        text += control.visible ? u"" : u" [hidden]";
        text += control.isDefault ? u" [default]" : u"";
        text += control.isCancel ? u" [cancel]" : u"";
        text += control.selected ? u" [selected]" : u"";
        text += control.multiSelect || control.checkBoxes ? u" [many]" : u"";
        texts.push_back(text);
    }
    return texts;
}

int maxLength(const WindowDesign &design, std::u16string_view name) {
    const auto &controls = design.controls;
    return std::ranges::find(controls, name, &ControlDesign::name)->maxLength;
}

TEST(ConditionDesigns, PeopleStandInTheirOrder) {
    const WindowDesign design = frmRulePeopleDesign();
    const std::u16string hint = u"Label4 Type one mobile number at a time and click Add, or select "
                                u"numbers from the Address Book";
    EXPECT_EQ(described(design),
              (Texts{u"Frame1", u"cmdClear Clear &List [disabled]",
                     u"cmdOptions Op&tions [disabled]", u"cmdRemove &Remove [disabled]",
                     u"cmdAddressBook Address &Book", u"cmdAdd &Add [disabled] [default]",
                     u"cmdOK &OK [disabled]", u"cmdCancel &Cancel [cancel]", u"txtMobileNo",
                     u"lvwPeople", u"Label1 &People", hint}));
    EXPECT_EQ(maxLength(design, u"txtMobileNo"), 20);
}

TEST(ConditionDesigns, AccountsStandInTheirOrder) {
    EXPECT_EQ(described(frmRuleAccountDesign()),
              (Texts{u"lvwAccountSource", u"cmdCancel &Cancel [cancel]", u"cmdOK &OK",
                     u"cmdAdd &Add [default]", u"cmdRemove &Remove", u"cmdOptions O&ptions",
                     u"cmdClear Clear &List", u"Frame1", u"lvwAccountSelected",
                     u"Label4 Select an Account below and click Add", u"Label1 &Accounts"}));
}

TEST(ConditionDesigns, WordsStandInTheirOrder) {
    const WindowDesign design = frmRuleWordsDesign();
    EXPECT_EQ(
        described(design),
        (Texts{u"chkWordAsCommand As SMS Command (match from left)", u"Frame1",
               u"cmdClear Clear &List [disabled]", u"cmdOptions O&ptions [disabled]",
               u"cmdRemove &Remove [disabled]", u"cmdAdd &Add [disabled] [default]",
               u"cmdOK &OK [disabled]", u"cmdCancel &Cancel [cancel]", u"txtWord", u"lvwWords",
               u"Label1 &Words", u"Label4 Type specific words or a phrase and click Add"}));
    EXPECT_EQ(maxLength(design, u"txtWord"), 150);
}

TEST(ConditionDesigns, OptionsStandInTheirOrder) {
    const std::u16string hint = u"Label4 You can further customize this condition by setting the "
                                u"options below";
    EXPECT_EQ(
        described(frmRuleOptionsDesign()),
        (Texts{u"Frame3", u"opgAllAnyModifier(0) Message matches all of the words below",
               u"opgAllAnyModifier(1) Message matches any of the words below [selected]", u"Frame2",
               u"opgConNotmodifier(0) Message contains the words below [selected]",
               u"opgConNotmodifier(1) Message does not contain the words below", u"Frame1",
               u"cmdcancel &Cancel [cancel]", u"cmdOK &OK [default]", u"lvwRuleCondition",
               u"Label5", u"Label1 Rule Condition", u"Label3", u"Label2 Apply Rule if", hint}));
}

} // namespace
} // namespace kvex::test
