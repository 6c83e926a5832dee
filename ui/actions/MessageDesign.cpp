#include "ui/actions/MessageDesign.h"

namespace kvex::design {

ControlDesign messageText(std::u16string name) {
    return {.kind = ControlKind::richTextBox, .name = std::move(name), .columns = 48, .lines = 4};
}

ControlDesign characterCount() {
    return {.kind = ControlKind::textBox,
            .name = u"txtCharCount",
            .caption = u"0",
            .readOnly = true,
            .columns = 8};
}

ControlDesign outAccounts() {
    return {.kind = ControlKind::listView,
            .name = u"lvwOutAccount",
            .checkBoxes = true,
            .emptyText = u"The server's accounts appear here.",
            .imageList = u"imgListIcons",
            .rowPicture = accountPicture,
            .columns = 48,
            .lines = 4};
}

ControlDesign listIcons() {
    return {.kind = ControlKind::imageList,
            .name = u"imgListIcons",
            .pictures = {Picture::account, Picture::person}};
}

} // namespace kvex::design
