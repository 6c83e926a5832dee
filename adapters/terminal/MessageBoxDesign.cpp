#include "adapters/terminal/MessageBoxDesign.h"

#include "kvex/MessageBox.h"
#include "platform/controls/DesignPieces.h"

#include <utility>
#include <vector>

namespace kvex::terminal {
namespace {

/// A caption that shows `text` as it is.
std::u16string asCaption(const std::u16string &text) {
    std::u16string caption;
    for (const char16_t unit : text) {
        caption.append(unit == u'&' ? 2 : 1, unit);
    }
    return caption;
}

} // namespace

WindowDesign messageBoxDesign(const std::u16string &title, const std::u16string &text,
                              std::int32_t style) {
    const bool asks = style == message_box::yesNo;
    std::vector<ControlDesign> buttons;
    if (asks) {
        buttons.push_back(design::button(yesButton, u"&Yes"));
    }
    buttons.push_back(asks ? design::button(noButton, u"&No") : design::button(okButton, u"&OK"));
    buttons.back().isCancel = true;

    std::vector<Layout> row{spring()};
    for (const ControlDesign &button : buttons) {
        row.push_back(place(button.name));
    }
    row.push_back(spring());
    // A blank line parts the text from the buttons.
    std::vector<ControlDesign> controls{design::label(messageLabel, asCaption(text) + u"\n")};
    controls.insert(controls.end(), buttons.begin(), buttons.end());
    return {.name = u"messageBox",
            .caption = title,
            .controls = std::move(controls),
            .layout = column({scrolling({place(messageLabel)}), kvex::row(std::move(row))})};
}

} // namespace kvex::terminal
