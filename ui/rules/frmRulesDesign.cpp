#include "ui/rules/frmRulesDesign.h"

#include "platform/controls/DesignPieces.h"

namespace kvex {

WindowDesign frmRulesDesign() {
    using namespace design;
    return {
        .name = u"frmRules",
        .caption = u"SMS Rules",
        .controls =
            {
                label(u"Label1", u"These rules will be applied to incoming short messages",
                      u"lvwRules"),
                {.kind = ControlKind::listView,
                 .name = u"lvwRules",
                 .checkBoxes = true,
                 .emptyText = u"The rules appear here. Click New to make the first one.",
                 .imageList = u"ImgListView",
                 .columns = 42,
                 .lines = 12},
                {.kind = ControlKind::imageList,
                 .name = u"ImgListView",
                 .pictures = {Picture::inOrder}},
                button(u"cmdNew", u"&New"),
                button(u"cmdModify", u"&Modify"),
                hiddenButton(u"cmdCopy", u"C&opy"),
                button(u"cmdRemove", u"&Remove"),
                hiddenButton(u"cmdApply", u"&Apply now..."),
                button(u"cmdMoveUp", u"Move &Up"),
                button(u"cmdMoveDown", u"Move &Down"),
                label(u"Label2", u"Rule description", u"rtRuleDesc"),
                {.kind = ControlKind::richTextBox,
                 .name = u"rtRuleDesc",
                 .readOnly = true,
                 .lines = 10},
                separator(),
                okButton(),
                cancelButton(),
            },
        .layout = aboveButtons({
            place(u"Label1"),
            row({place(u"lvwRules", 1),
                 buttonColumn({u"cmdNew", u"cmdModify", u"cmdCopy", u"cmdRemove", u"cmdApply",
                               u"cmdMoveUp", u"cmdMoveDown"})},
                4),
            place(u"Label2"),
            place(u"rtRuleDesc", 3),
        }),
        .columns = 84,
        .lines = 30,
    };
}

} // namespace kvex
