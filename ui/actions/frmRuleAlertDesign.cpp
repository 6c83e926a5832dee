#include "ui/actions/frmRuleAlertDesign.h"

#include "platform/controls/DesignPieces.h"
#include "ui/actions/MessageDesign.h"

namespace kvex {

WindowDesign frmRuleAlertDesign() {
    using namespace design;
    const std::u16string recipientAwaited = u"Add a recipient first";
    return {
        .name = u"frmRuleAlert",
        .caption = u"Configure Alert",
        .controls =
            {
                label(u"Label2", u"1. Type the Alert Text", u"rtAlertText"),
                messageText(u"rtAlertText"),
                label(u"Label3", u"Characters :", u"txtCharCount"),
                characterCount(),
                hint(u"Label6", u"Tip: To include the original message in the Alert text use "
                                u"@@SMS@@ and @@SENDER@@ for the Sender mobile number"),
                label(u"Label5", u"2. Select the Account to be used for sending the Alert",
                      u"lvwOutAccount"),
                outAccounts(),
                label(u"Label4",
                      u"3. Select the Alert Recipients. Type the mobile number and click Add"),
                label(u"Label1", u"Alert &Recipients", u"txtMobileNo"),
                {.kind = ControlKind::textBox, .name = u"txtMobileNo"},
                byEnter(waitingButton(u"cmdAdd", u"&Add", u"Type a mobile number first")),
                button(u"cmdAddressBook", u"Address &Book"),
                {.kind = ControlKind::listView,
                 .name = u"lvwPeople",
                 .accessibleName = u"Selected recipients",
                 .emptyText = u"The recipients that you add appear here.",
                 .imageList = u"imgListIcons",
                 .rowPicture = personPicture,
                 .columns = 32,
                 .lines = 5},
                waitingButton(u"cmdRemove", u"&Remove", recipientAwaited),
                waitingButton(u"cmdClear", u"Clear &List", recipientAwaited),
                waiting(hiddenButton(u"cmdOptions", u"O&ptions"), recipientAwaited),
                separator(),
                waiting(plainOkButton(), u"Type a text and add a recipient first"),
                cancelButton(),
                listIcons(),
            },
        .layout = aboveButtons({
            place(u"Label2"),
            place(u"rtAlertText", 2),
            row({place(u"Label3"), place(u"txtCharCount"), spring()}),
            place(u"Label6"),
            place(u"Label5"),
            place(u"lvwOutAccount", 2),
            place(u"Label4"),
            place(u"Label1"),
            row({column({place(u"txtMobileNo"), place(u"lvwPeople", 1)}, 1),
                 buttonColumn(
                     {u"cmdAdd", u"cmdAddressBook", u"cmdRemove", u"cmdClear", u"cmdOptions"})},
                2),
        }),
        .columns = 68,
        .lines = 38,
    };
}

} // namespace kvex
