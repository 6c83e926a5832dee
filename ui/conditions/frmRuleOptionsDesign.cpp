#include "ui/conditions/frmRuleOptionsDesign.h"

#include "platform/controls/DesignPieces.h"

namespace kvex {
namespace {

ControlDesign option(const std::u16string &group, const std::u16string &member,
                     std::u16string caption, bool selected) {
    return {.kind = ControlKind::optionButton,
            .name = group + u"(" + member + u")",
            .caption = std::move(caption),
            .disabledHint = u"Any one of the entries is enough here",
            .group = group,
            .selected = selected};
}

} // namespace

WindowDesign frmRuleOptionsDesign() {
    using namespace design;
    ControlDesign cancel = cancelButton();
    cancel.name = u"cmdcancel";
    return {
        .name = u"frmRuleOptions",
        .caption = u"Rule Condition Options",
        .controls =
            {
                {.kind = ControlKind::frame, .name = u"Frame3"},
                option(u"opgAllAnyModifier", u"0", u"Message matches all of the words below",
                       false),
                option(u"opgAllAnyModifier", u"1", u"Message matches any of the words below", true),
                {.kind = ControlKind::frame, .name = u"Frame2"},
                option(u"opgConNotmodifier", u"0", u"Message contains the words below", true),
                option(u"opgConNotmodifier", u"1", u"Message does not contain the words below",
                       false),
                separator(),
                cancel,
                okButton(),
                {.kind = ControlKind::listView,
                 .name = u"lvwRuleCondition",
                 .columns = 44,
                 .lines = 8},
                label(u"Label5", u""),
                label(u"Label1", u"Rule Condition", u"lvwRuleCondition"),
                label(u"Label3", u""),
                label(u"Label2", u"Apply Rule if"),
                hint(u"Label4", u"You can further customize this condition by setting the options "
                                u"below"),
            },
        .layout = aboveButtons(
            {
                place(u"Label4"),
                row({place(u"Label2"), place(u"Label3", 1)}),
                placeFrame(u"Frame3", {column({place(u"opgAllAnyModifier(0)"),
                                               place(u"opgAllAnyModifier(1)")})}),
                placeFrame(u"Frame2", {column({place(u"opgConNotmodifier(0)"),
                                               place(u"opgConNotmodifier(1)")})}),
                row({place(u"Label1"), place(u"Label5", 1)}),
                place(u"lvwRuleCondition", 1),
            },
            u"cmdOK", u"cmdcancel"),
        .columns = 64,
        .lines = 28,
    };
}

} // namespace kvex
