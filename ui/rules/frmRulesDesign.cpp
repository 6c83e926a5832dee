#include "ui/rules/frmRulesDesign.h"

namespace kvex {

WindowDesign frmRulesDesign() {
    using enum ControlKind;
    return {
        .name = u"frmRules",
        .caption = u"SMS Rules",
        .controls =
            {
                {.kind = label,
                 .name = u"Label1",
                 .caption = u"These rules will be applied to incoming short messages",
                 .buddy = u"lvwRules"},
                {.kind = listView,
                 .name = u"lvwRules",
                 .checkBoxes = true,
                 .imageList = u"ImgListView",
                 .columns = 48,
                 .lines = 12},
                {.kind = imageList, .name = u"ImgListView", .pictures = {Picture::sortAscending}},
                {.kind = commandButton, .name = u"cmdNew", .caption = u"&New"},
                {.kind = commandButton, .name = u"cmdModify", .caption = u"&Modify"},
                {.kind = commandButton, .name = u"cmdCopy", .caption = u"C&opy", .visible = false},
                {.kind = commandButton, .name = u"cmdRemove", .caption = u"&Remove"},
                {.kind = commandButton,
                 .name = u"cmdApply",
                 .caption = u"&Apply now...",
                 .visible = false},
                {.kind = commandButton, .name = u"cmdMoveUp", .caption = u"Move &Up"},
                {.kind = commandButton, .name = u"cmdMoveDown", .caption = u"Move &Down"},
                {.kind = label,
                 .name = u"Label2",
                 .caption = u"Rule description",
                 .buddy = u"rtRuleDesc"},
                {.kind = richTextBox, .name = u"rtRuleDesc", .readOnly = true, .lines = 6},
                {.kind = frame, .name = u"Frame1"},
                {.kind = commandButton, .name = u"cmdOK", .caption = u"&OK", .isDefault = true},
                {.kind = commandButton,
                 .name = u"cmdCancel",
                 .caption = u"&Cancel",
                 .isCancel = true},
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
