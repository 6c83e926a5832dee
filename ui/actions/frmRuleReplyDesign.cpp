#include "ui/actions/frmRuleReplyDesign.h"

#include "platform/controls/DesignPieces.h"
#include "ui/actions/MessageDesign.h"

namespace kvex {

WindowDesign frmRuleReplyDesign() {
    using namespace design;
    return {
        .name = u"frmRuleReply",
        .caption = u"Configure Automated Reply",
        .controls =
            {
                label(u"Label2", u"Type the Message that you want to send as Reply",
                      u"rtReplyText"),
                messageText(u"rtReplyText"),
                label(u"Label1", u"Characters :", u"txtCharCount"),
                characterCount(),
                label(u"Label5", u"2. Select the Account to be used for sending the Reply",
                      u"lvwOutAccount"),
                outAccounts(),
                separator(),
                waiting(okButton(), u"Type a text first"),
                cancelButton(),
                listIcons(),
            },
        .layout = aboveButtons({
            place(u"Label2"),
            place(u"rtReplyText", 3),
            row({place(u"Label1"), place(u"txtCharCount"), spring()}),
            place(u"Label5"),
            place(u"lvwOutAccount", 2),
        }),
        .columns = 64,
        .lines = 26,
    };
}

} // namespace kvex
