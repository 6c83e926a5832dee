#include "host/addressbook/AddressBookWindow.h"

#include "platform/controls/DesignPieces.h"

namespace kvex::host {
namespace {

using namespace design;

/// A button that is visible only if the user may choose many contacts.
ControlDesign manyButton(std::u16string name, std::u16string caption, std::u16string wait,
                         bool multiple) {
    ControlDesign button = waitingButton(std::move(name), std::move(caption), std::move(wait));
    button.visible = multiple;
    return button;
}

} // namespace

WindowDesign addressBookDesign(bool multiple) {
    return {
        .name = u"frmAddressBook",
        .caption = u"Address Book",
        .controls =
            {
                label(u"Label1", u"&Find", u"txtSearch"),
                {.kind = ControlKind::textBox, .name = u"txtSearch"},
                hint(u"lblHint", {}),
                label(u"Label2", u"C&ontacts", u"lvwContacts"),
                {.kind = ControlKind::listView,
                 .name = u"lvwContacts",
                 .checkBoxes = multiple,
                 .emptyText = u"The contacts that are found appear here.",
                 .startsAtFirstRow = multiple,
                 .columns = 48,
                 .lines = 14},
                manyButton(u"cmdTickAll", u"&Tick All Shown", u"There is nothing left to tick",
                           multiple),
                manyButton(u"cmdClear", u"C&lear Selection", u"Nothing is ticked", multiple),
                label(u"lblCount", {}),
                separator(),
                byEnter(waitingButton(u"cmdSelect", u"&Select",
                                      multiple ? u"Tick a contact in the list first"
                                               : u"Select a contact in the list first")),
                cancelButton(),
            },
        .layout = aboveButtons(
            {
                row({place(u"Label1"), place(u"txtSearch", 1)}),
                place(u"lblHint"),
                place(u"Label2"),
                place(u"lvwContacts", 1),
                row({place(u"lblCount"), spring(), place(u"cmdTickAll"), place(u"cmdClear")}),
            },
            u"cmdSelect"),
        .columns = 64,
        .lines = 26,
    };
}

} // namespace kvex::host
