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
                 .imageList = u"ImgListView",
                 .columns = 48,
                 .lines = 12},
                {.kind = ControlKind::imageList,
                 .name = u"ImgListView",
                 .pictures = {Picture::sortAscending}},
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
                 .lines = 6},
                separator(),
                okButton(),
                cancelButton(),
            },
        .layout = column({
            place(u"Label1"),
            row({place(u"lvwRules", 1),
                 column({place(u"cmdNew"), place(u"cmdModify"), place(u"cmdCopy"),
                         place(u"cmdRemove"), place(u"cmdApply"), place(u"cmdMoveUp"),
                         place(u"cmdMoveDown"), spring()})},
                3),
            place(u"Label2"),
            place(u"rtRuleDesc", 1),
            place(u"Frame1"),
            row({spring(), place(u"cmdOK"), place(u"cmdCancel")}),
        }),
        .columns = 84,
        .lines = 30,
    };
}

} // namespace kvex
