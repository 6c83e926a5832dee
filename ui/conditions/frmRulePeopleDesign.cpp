#include "ui/conditions/frmRulePeopleDesign.h"

#include "platform/controls/DesignPieces.h"

namespace kvex {

WindowDesign frmRulePeopleDesign() {
    using namespace design;
    const std::u16string numberAwaited = u"Add a mobile number first";
    return {
        .name = u"frmRulePeople",
        .caption = u"Select People",
        .controls =
            {
                separator(),
                waitingButton(u"cmdClear", u"Clear &List", numberAwaited),
                waitingButton(u"cmdOptions", u"Op&tions", numberAwaited),
                waitingButton(u"cmdRemove", u"&Remove", numberAwaited),
                button(u"cmdAddressBook", u"Address &Book"),
                byEnter(waitingButton(u"cmdAdd", u"&Add", u"Type a mobile number first")),
                waiting(plainOkButton(), numberAwaited),
                cancelButton(),
                {.kind = ControlKind::textBox, .name = u"txtMobileNo", .maxLength = 20},
                {.kind = ControlKind::listView,
                 .name = u"lvwPeople",
                 .accessibleName = u"Selected people",
                 .columns = 44,
                 .lines = 10},
                label(u"Label1", u"&People", u"txtMobileNo"),
                hint(u"Label4", u"Type one mobile number at a time and click Add, or select "
                                u"numbers from the Address Book"),
            },
        .layout = aboveButtons({
            place(u"Label4"),
            place(u"Label1"),
            row({column({place(u"txtMobileNo"), place(u"lvwPeople", 1)}, 1),
                 buttonColumn(
                     {u"cmdAdd", u"cmdAddressBook", u"cmdRemove", u"cmdClear", u"cmdOptions"})},
                1),
        }),
        .columns = 74,
        .lines = 24,
    };
}

} // namespace kvex
