#include "ui/conditions/frmRuleWordsDesign.h"

#include "platform/controls/DesignPieces.h"

namespace kvex {

WindowDesign frmRuleWordsDesign() {
    using namespace design;
    const std::u16string wordAwaited = u"Add a word first";
    return {
        .name = u"frmRuleWords",
        .caption = u"Select Words",
        .controls =
            {
                {.kind = ControlKind::checkBox,
                 .name = u"chkWordAsCommand",
                 .caption = u"As SMS Command (match from left)"},
                separator(),
                waitingButton(u"cmdClear", u"Clear &List", wordAwaited),
                waitingButton(u"cmdOptions", u"O&ptions", wordAwaited),
                waitingButton(u"cmdRemove", u"&Remove", wordAwaited),
                byEnter(waitingButton(u"cmdAdd", u"&Add", u"Type a word or a phrase first")),
                waiting(plainOkButton(), wordAwaited),
                cancelButton(),
                {.kind = ControlKind::textBox, .name = u"txtWord", .maxLength = 150},
                {.kind = ControlKind::listView,
                 .name = u"lvwWords",
                 .accessibleName = u"Selected words",
                 .columns = 44,
                 .lines = 10},
                label(u"Label1", u"&Words", u"txtWord"),
                hint(u"Label4", u"Type specific words or a phrase and click Add"),
            },
        .layout = aboveButtons({
            place(u"Label4"),
            place(u"Label1"),
            row({column({place(u"txtWord"), place(u"lvwWords", 1), place(u"chkWordAsCommand")}, 1),
                 buttonColumn({u"cmdAdd", u"cmdRemove", u"cmdClear", u"cmdOptions"})},
                1),
        }),
        .columns = 68,
        .lines = 24,
    };
}

} // namespace kvex
