// The designs of the actions' dialogs, control by control.
#include "tests/support/DesignTable.h"
#include "ui/actions/frmRuleAlert.h"
#include "ui/actions/frmRuleDistribute.h"
#include "ui/actions/frmRuleReply.h"

#include <gtest/gtest.h>

namespace kvex::test {
namespace {

TEST(ActionDesigns, DistributionHasTheseControls) {
    expectDesign(frmRuleDistributeDesign(), "frmRuleDistribute", "Distribution List",
                 {
                     R"(label Label2 "Available users" for="lvwUsersSource")",
                     R"(list lvwUsersSource many empty="The server's users appear here.")"
                     R"( images="imgListIcons" picture=1)",
                     R"(button cmdSelect "&Select ->")",
                     R"(button cmdAll "&All ->")",
                     R"(button cmdRemove "&Remove")",
                     R"(label Label1 "Selected users for distribution" for="lvwUsersSelected")",
                     R"(list lvwUsersSelected many empty="The users that you select appear here.")"
                     R"( images="imgListIcons" picture=1)",
                     R"(frame Frame1)",
                     R"(button cmdOK "&OK" disabled waits="Select a user first" default)",
                     R"(button cmdCancel "&Cancel" cancel)",
                     R"(images imgListIcons person)",
                 });
}

TEST(ActionDesigns, ReplyHasTheseControls) {
    expectDesign(frmRuleReplyDesign(), "frmRuleReply", "Configure Automated Reply",
                 {
                     R"(label Label2 "Type the Message that you want to send as Reply")"
                     R"( for="rtReplyText")",
                     R"(richText rtReplyText)",
                     R"(hint lblTextHint hidden describes="rtReplyText")",
                     R"(label Label1 "Characters :" for="txtCharCount")",
                     R"(text txtCharCount "0" readOnly)",
                     R"(label Label5 "2. Select the Account to be used for sending the Reply")"
                     R"( for="lvwOutAccount")",
                     R"(list lvwOutAccount checkBoxes empty="The server's accounts appear here.")"
                     R"( images="imgListIcons" picture=1)",
                     R"(frame Frame1)",
                     R"(button cmdOK "&OK" disabled waits="Type a text first" default)",
                     R"(button cmdCancel "&Cancel" cancel)",
                     R"(images imgListIcons account person)",
                 });
}

TEST(ActionDesigns, AlertHasTheseControls) {
    expectDesign(frmRuleAlertDesign(), "frmRuleAlert", "Configure Alert",
                 {
                     R"(label Label2 "1. Type the Alert Text" for="rtAlertText")",
                     R"(richText rtAlertText)",
                     R"(hint lblTextHint hidden describes="rtAlertText")",
                     R"(label Label3 "Characters :" for="txtCharCount")",
                     R"(text txtCharCount "0" readOnly)",
                     R"(hint Label6 "Tip: To include the original message in the Alert text use)"
                     R"( @@SMS@@ and @@SENDER@@ for the Sender mobile number")",
                     R"(label Label5 "2. Select the Account to be used for sending the Alert")"
                     R"( for="lvwOutAccount")",
                     R"(list lvwOutAccount checkBoxes empty="The server's accounts appear here.")"
                     R"( images="imgListIcons" picture=1)",
                     R"(label Label4 "3. Select the Alert Recipients. Type the mobile number and)"
                     R"( click Add")",
                     R"(label Label1 "Alert &Recipients" for="txtMobileNo")",
                     R"(text txtMobileNo)",
                     R"(hint lblNumberHint hidden describes="txtMobileNo")",
                     R"(button cmdAdd "&Add" disabled waits="Type a mobile number first" default)",
                     R"(button cmdAddressBook "Address &Book")",
                     R"(list lvwPeople called="Selected recipients")"
                     R"( empty="The recipients that you add appear here.")"
                     R"( images="imgListIcons" picture=2)",
                     R"(button cmdRemove "&Remove" disabled waits="Add a recipient first")",
                     R"(button cmdClear "Clear &List" disabled waits="Add a recipient first")",
                     R"(button cmdOptions "O&ptions" hidden disabled)"
                     R"( waits="Add a recipient first")",
                     R"(frame Frame1)",
                     R"(button cmdOK "&OK" disabled waits="Type a text and add a recipient first")",
                     R"(button cmdCancel "&Cancel" cancel)",
                     R"(images imgListIcons account person)",
                 });
}

} // namespace
} // namespace kvex::test
