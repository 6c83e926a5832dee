#include "ui/conditions/frmRuleAccountDesign.h"

#include "platform/controls/DesignPieces.h"

namespace kvex {

WindowDesign frmRuleAccountDesign() {
    using namespace design;
    const std::u16string accountAwaited = u"Add an account first";
    const auto withHint = [&](ControlDesign control) {
        control.disabledHint = accountAwaited;
        return control;
    };
    return {
        .name = u"frmRuleAccount",
        .caption = u"Select Accounts",
        .controls =
            {
                {.kind = ControlKind::listView,
                 .name = u"lvwAccountSource",
                 .emptyText = u"The server's accounts appear here.",
                 .columns = 44,
                 .lines = 6},
                cancelButton(),
                withHint(plainOkButton()),
                byEnter(button(u"cmdAdd", u"&Add")),
                withHint(button(u"cmdRemove", u"&Remove")),
                withHint(button(u"cmdOptions", u"O&ptions")),
                withHint(button(u"cmdClear", u"Clear &List")),
                separator(),
                {.kind = ControlKind::listView,
                 .name = u"lvwAccountSelected",
                 .accessibleName = u"Selected Accounts",
                 .columns = 44,
                 .lines = 6},
                hint(u"Label4", u"Select an Account below and click Add"),
                label(u"Label1", u"&Accounts", u"lvwAccountSource"),
            },
        .layout = aboveButtons({
            place(u"Label4"),
            place(u"Label1"),
            row({column({place(u"lvwAccountSource", 1), place(u"lvwAccountSelected", 1)}, 1),
                 // Each half beside its list.
                 column({buttonColumn({u"cmdAdd"}, 1),
                         buttonColumn({u"cmdRemove", u"cmdClear", u"cmdOptions"}, 1)})},
                1),
        }),
        .columns = 68,
        .lines = 28,
    };
}

} // namespace kvex
