#include "ui/actions/frmRuleDistributeDesign.h"

#include "platform/controls/DesignPieces.h"

namespace kvex {
namespace {

ControlDesign users(std::u16string name, std::u16string emptyText) {
    return {.kind = ControlKind::listView,
            .name = std::move(name),
            .multiSelect = true,
            .emptyText = std::move(emptyText),
            .imageList = u"imgListIcons",
            .rowPicture = 1,
            .columns = 30,
            .lines = 12};
}

} // namespace

WindowDesign frmRuleDistributeDesign() {
    using namespace design;
    return {
        .name = u"frmRuleDistribute",
        .caption = u"Distribution List",
        .controls =
            {
                label(u"Label2", u"Available users", u"lvwUsersSource"),
                users(u"lvwUsersSource", u"The server's users appear here."),
                button(u"cmdSelect", u"&Select ->"),
                button(u"cmdAll", u"&All ->"),
                button(u"cmdRemove", u"&Remove"),
                label(u"Label1", u"Selected users for distribution", u"lvwUsersSelected"),
                users(u"lvwUsersSelected", u"The users that you select appear here."),
                separator(),
                waiting(okButton(), u"Select a user first"),
                cancelButton(),
                {.kind = ControlKind::imageList,
                 .name = u"imgListIcons",
                 .pictures = {Picture::person}},
            },
        .layout = aboveButtons({
            row({column({place(u"Label2"), place(u"lvwUsersSource", 1)}, 1),
                 column({spring(), place(u"cmdSelect"), place(u"cmdAll"), place(u"cmdRemove"),
                         spring()}),
                 column({place(u"Label1"), place(u"lvwUsersSelected", 1)}, 1)},
                1),
        }),
        .columns = 84,
        .lines = 24,
    };
}

} // namespace kvex
