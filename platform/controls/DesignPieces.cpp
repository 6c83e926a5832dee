#include "platform/controls/DesignPieces.h"

namespace kvex::design {

ControlDesign label(std::u16string name, std::u16string caption, std::u16string buddy) {
    return {.kind = ControlKind::label,
            .name = std::move(name),
            .caption = std::move(caption),
            .buddy = std::move(buddy)};
}

ControlDesign hint(std::u16string name, std::u16string caption) {
    ControlDesign explanation = label(std::move(name), std::move(caption));
    explanation.hint = true;
    return explanation;
}

ControlDesign hintOn(std::u16string describes, std::u16string name) {
    ControlDesign explanation = hint(std::move(name), {});
    explanation.describes = std::move(describes);
    explanation.visible = false;
    return explanation;
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

ControlDesign byEnter(ControlDesign button) {
    button.isDefault = true;
    return button;
}

ControlDesign waiting(ControlDesign control, std::u16string hint) {
    control.enabled = false;
    control.disabledHint = std::move(hint);
    return control;
}

ControlDesign waitingButton(std::u16string name, std::u16string caption, std::u16string hint) {
    return waiting(button(std::move(name), std::move(caption)), std::move(hint));
}

ControlDesign separator() {
    return {.kind = ControlKind::frame, .name = u"Frame1"};
}

ControlDesign plainOkButton() {
    return button(u"cmdOK", u"&OK");
}

ControlDesign okButton() {
    return byEnter(plainOkButton());
}

ControlDesign cancelButton() {
    ControlDesign cancel = button(u"cmdCancel", u"&Cancel");
    cancel.isCancel = true;
    return cancel;
}

Layout aboveButtons(std::vector<Layout> content, const std::u16string &accept,
                    const std::u16string &cancel) {
    return column({scrolling(std::move(content)), place(u"Frame1"),
                   row({spring(), place(accept), place(cancel)})});
}

Layout buttonColumn(const std::vector<std::u16string> &buttons, int stretch) {
    std::vector<Layout> pieces;
    pieces.reserve(buttons.size() + 1);
    for (const std::u16string &button : buttons) {
        pieces.push_back(place(button));
    }
    pieces.push_back(spring());
    return column(std::move(pieces), stretch);
}

} // namespace kvex::design
