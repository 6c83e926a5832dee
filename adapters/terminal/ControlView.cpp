#include "adapters/terminal/ControlView.h"

#include "adapters/terminal/ButtonViews.h"
#include "adapters/terminal/PickerView.h"
#include "adapters/terminal/RowsView.h"
#include "adapters/terminal/StaticViews.h"
#include "adapters/terminal/TextViews.h"

namespace kvex::terminal {

std::unique_ptr<ControlView> viewOf(lightweight::Element &element, Ability ability,
                                    std::vector<Picture> pictures) {
    switch (element.design().kind) {
    case ControlKind::label:
        return std::make_unique<LabelView>(element, ability);
    case ControlKind::commandButton:
        return std::make_unique<ButtonView>(element, ability);
    case ControlKind::checkBox:
    case ControlKind::optionButton:
        return std::make_unique<TickView>(element, ability);
    case ControlKind::textBox:
        return std::make_unique<TextBoxView>(dynamic_cast<lightweight::LightTextBox &>(element),
                                             ability);
    case ControlKind::richTextBox:
        return std::make_unique<RichTextView>(
            dynamic_cast<lightweight::LightRichTextBox &>(element), ability);
    case ControlKind::listView:
        return std::make_unique<RowsView>(dynamic_cast<lightweight::LightListView &>(element),
                                          ability, std::move(pictures));
    case ControlKind::datePicker:
    case ControlKind::timePicker:
        return std::make_unique<PickerView>(dynamic_cast<lightweight::LightDTPicker &>(element),
                                            ability);
    case ControlKind::frame:
    case ControlKind::imageList:
        break;
    }
    return std::make_unique<FrameView>(element, ability);
}

} // namespace kvex::terminal
