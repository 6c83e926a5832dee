// The designs of the conditions' dialogs, control by control.
#include "tests/support/DesignTable.h"
#include "ui/conditions/frmRuleAccount.h"
#include "ui/conditions/frmRuleDate.h"
#include "ui/conditions/frmRuleOptions.h"
#include "ui/conditions/frmRulePeople.h"
#include "ui/conditions/frmRuleWords.h"

#include <gtest/gtest.h>

namespace kvex::test {
namespace {

TEST(ConditionDesigns, PeopleHaveTheseControls) {
    expectDesign(frmRulePeopleDesign(), "frmRulePeople", "Select People",
                 {
                     R"(frame Frame1)",
                     R"(button cmdClear "Clear &List" disabled waits="Add a mobile number first")",
                     R"(button cmdOptions "Op&tions" disabled waits="Add a mobile number first")",
                     R"(button cmdRemove "&Remove" disabled waits="Add a mobile number first")",
                     R"(button cmdAddressBook "Address &Book")",
                     R"(button cmdAdd "&Add" disabled waits="Type a mobile number first" default)",
                     R"(button cmdOK "&OK" disabled waits="Add a mobile number first")",
                     R"(button cmdCancel "&Cancel" cancel)",
                     R"(text txtMobileNo max=20)",
                     R"(hint lblNumberHint hidden describes="txtMobileNo")",
                     R"(list lvwPeople called="Selected people")",
                     R"(label Label1 "&People" for="txtMobileNo")",
                     R"(hint Label4 "Type one mobile number at a time and click Add, or select)"
                     R"( numbers from the Address Book")",
                 });
}

TEST(ConditionDesigns, AccountsHaveTheseControls) {
    expectDesign(frmRuleAccountDesign(), "frmRuleAccount", "Select Accounts",
                 {
                     R"(list lvwAccountSource empty="The server's accounts appear here.")",
                     R"(button cmdCancel "&Cancel" cancel)",
                     R"(button cmdOK "&OK" waits="Add an account first")",
                     R"(button cmdAdd "&Add" default)",
                     R"(button cmdRemove "&Remove" waits="Add an account first")",
                     R"(button cmdOptions "O&ptions" waits="Add an account first")",
                     R"(button cmdClear "Clear &List" waits="Add an account first")",
                     R"(frame Frame1)",
                     R"(list lvwAccountSelected called="Selected Accounts")",
                     R"(hint Label4 "Select an Account below and click Add")",
                     R"(label Label1 "&Accounts" for="lvwAccountSource")",
                 });
}

TEST(ConditionDesigns, WordsHaveTheseControls) {
    expectDesign(frmRuleWordsDesign(), "frmRuleWords", "Select Words",
                 {
                     R"-(check chkWordAsCommand "As SMS Command (match from left)")-",
                     R"(frame Frame1)",
                     R"(button cmdClear "Clear &List" disabled waits="Add a word first")",
                     R"(button cmdOptions "O&ptions" disabled waits="Add a word first")",
                     R"(button cmdRemove "&Remove" disabled waits="Add a word first")",
                     R"(button cmdAdd "&Add" disabled waits="Type a word or a phrase first")"
                     R"( default)",
                     R"(button cmdOK "&OK" disabled waits="Add a word first")",
                     R"(button cmdCancel "&Cancel" cancel)",
                     R"(text txtWord max=150)",
                     R"(hint lblWordHint hidden describes="txtWord")",
                     R"(list lvwWords called="Selected words")",
                     R"(label Label1 "&Words" for="txtWord")",
                     R"(hint Label4 "Type specific words or a phrase and click Add")",
                 });
}

TEST(ConditionDesigns, OptionsHaveTheseControls) {
    expectDesign(frmRuleOptionsDesign(), "frmRuleOptions", "Rule Condition Options",
                 {
                     R"(frame Frame3)",
                     R"(option opgAllAnyModifier(0) "Message matches all of the words below")"
                     R"( waits="Any one of the entries is enough here")"
                     R"( group="opgAllAnyModifier")",
                     R"(option opgAllAnyModifier(1) "Message matches any of the words below")"
                     R"( waits="Any one of the entries is enough here")"
                     R"( group="opgAllAnyModifier" selected)",
                     R"(frame Frame2)",
                     R"(option opgConNotmodifier(0) "Message contains the words below")"
                     R"( waits="Any one of the entries is enough here")"
                     R"( group="opgConNotmodifier" selected)",
                     R"(option opgConNotmodifier(1) "Message does not contain the words below")"
                     R"( waits="Any one of the entries is enough here")"
                     R"( group="opgConNotmodifier")",
                     R"(frame Frame1)",
                     R"(button cmdcancel "&Cancel" cancel)",
                     R"(button cmdOK "&OK" default)",
                     R"(list lvwRuleCondition)",
                     R"(label Label5)",
                     R"(label Label1 "Rule Condition" for="lvwRuleCondition")",
                     R"(label Label3)",
                     R"(label Label2 "Apply Rule if")",
                     R"(hint Label4 "You can further customize this condition by setting the)"
                     R"( options below")",
                 });
}

TEST(ConditionDesigns, DateAndTimeHaveTheseControls) {
    expectDesign(frmRuleDateDesign(), "frmRuleDate", "Select Date/Time Range",
                 {
                     R"(frame Frame1)",
                     R"(label Label1 "Message is received between" for="FromDate")",
                     R"(date FromDate called="From Date" format="dd/MM/yyy")",
                     R"(time FromTime waits="Tick the From Date first" called="From Time")"
                     R"( format="HH:mm:ss")",
                     R"(label lblTime "and" for="ToDate")",
                     R"(date ToDate called="To Date" format="dd/MM/yyy")",
                     R"(time ToTime waits="Tick the To Date first" called="To Time")"
                     R"( format="HH:mm:ss" hour=23 minute=59 second=59)",
                     R"(button cmdOK "&OK" default)",
                     R"(button cmdCancel "&Cancel" cancel)",
                 });
}

} // namespace
} // namespace kvex::test
