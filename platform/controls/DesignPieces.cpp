#include "platform/controls/DesignPieces.h"

namespace kvex::design {

ControlDesign label(std::u16string name, std::u16string caption, std::u16string buddy) {
    return {.kind = ControlKind::label,
            .name = std::move(name),
            .caption = std::move(caption),
            .buddy = std::move(buddy)};
}

ControlDesign button(std::u16string name, std::u16string caption) {
    return {
        .kind = ControlKind::commandButton, .name = std::move(name), .caption = std::move(caption)};
}

ControlDesign hiddenButton(std::u16string name, std::u16string caption) {
    ControlDesign hidden = button(std::move(name), std::move(caption));
    hidden.visible = false;
    return hidden;
}

ControlDesign waitingButton(std::u16string name, std::u16string caption, std::u16string hint) {
    ControlDesign waiting = button(std::move(name), std::move(caption));
    waiting.enabled = false;
    waiting.disabledHint = std::move(hint);
    return waiting;
}

ControlDesign separator() {
    return {.kind = ControlKind::frame, .name = u"Frame1"};
}

ControlDesign okButton() {
    ControlDesign ok = button(u"cmdOK", u"&OK");
    ok.isDefault = true;
    return ok;
}

ControlDesign cancelButton() {
    ControlDesign cancel = button(u"cmdCancel", u"&Cancel");
    cancel.isCancel = true;
    return cancel;
}

} // namespace kvex::design
